#include "viewer/cell_pictures.h"

#include "platform/base/error.h"
#include "platform/picture/preview.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int restMs = 100;
// So long a page waits for whole pictures before it makes do with previews...
constexpr int quickMs = 25;
// ...and so long for those that have no preview, before it shows empty cells.
constexpr int patienceMs = 200;
// A smaller picture is decoded as soon as its preview would be.
constexpr qint64 smallPicture = 200'000;

// The page on the screen, those in front of it and behind it, and two that were left.
constexpr int pagesKept = 5;
constexpr int bytesPerPixel = 4;
constexpr qint64 leastRoom = 16 << 20;
constexpr qint64 mostRoom = 256 << 20;

}  // namespace

CellPictures::CellPictures(std::function<Requests()> upcoming) : upcoming_(std::move(upcoming)) {
    resting_.setSingleShot(true);
    resting_.setInterval(restMs);
    connect(&loader_, &PictureLoader::loaded, this, &CellPictures::take);
    connect(&resting_, &QTimer::timeout, this, [this] {
        Requests next = missing();
        attempt([&] { std::ranges::copy(upcoming_(), std::back_inserter(next)); });
        loader_.want(next);
    });
}

void CellPictures::setPageArea(qint64 devicePixels) {
    loader_.setRoom(std::clamp(devicePixels * bytesPerPixel * pagesKept, leastRoom, mostRoom));
}

void CellPictures::begin() {
    open_.clear();
    resting_.stop();
    formerContents_ = std::exchange(contents_, {});
}

bool CellPictures::stoodIn(const ImageBox* cell, const StoredValue& value) const {
    return std::ranges::any_of(formerContents_,
                               [&](const Content& each) { return each.cell == cell && each.value == value; });
}

void CellPictures::put(ImageBox* cell, const StoredValue& value, bool keepsItsPicture) {
    const Picture before = cell->picture();
    const Picture without = keepsItsPicture ? before : Picture();
    const PictureRequest request{value, cell->targetSize()};
    contents_.push_back({cell, value});
    if (value.isNull()) {
        cell->setPicture(without);
        return;
    }
    if (const Picture* kept = loader_.kept(request)) {
        cell->setPicture(kept->isNull() ? without : *kept);
        return;
    }
    const bool isThere = !before.isNull() && stoodIn(cell, value);
    if (!isThere) cell->setPicture({});
    open_.push_back({cell, request, without, !isThere});
}

CellPictures::Requests CellPictures::missing() const {
    Requests requests;
    for (const Open& open : open_) requests.push_back(open.request);
    return requests;
}

void CellPictures::settle() {
    const QDeadlineTimer patience(patienceMs);
    loader_.want(missing());
    loader_.workUntil([this] { return open_.empty(); }, QDeadlineTimer(quickMs));
    for (Open& open : open_) showPreview(open);
    loader_.workUntil([this] { return std::ranges::none_of(open_, &Open::isBlank); }, patience);
    rest();
}

void CellPictures::rest() {
    resting_.start();
}

void CellPictures::take(const PictureRequest& request, const Picture& picture) {
    std::erase_if(open_, [&](const Open& open) {
        if (open.request != request) return false;
        if (open.cell) open.cell->setPicture(picture.isNull() ? open.without : picture);
        return true;
    });
}

void CellPictures::showPreview(Open& open) const {
    if (!open.isBlank) return;
    Picture preview;
    attempt([&] {
        if (open.request.value.size() > smallPicture) preview = LoadPreview(open.request.value.read(0, previewReach));
    });
    if (preview.isNull() || !open.cell) return;
    open.cell->setPicture(preview);
    open.isBlank = false;
}
