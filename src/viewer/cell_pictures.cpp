#include "viewer/cell_pictures.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/picture/preview.h"
#include "viewer/middle.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int restMs = 100;
// Longer than a window's steps are apart while a person drags its edge.
constexpr int stillMs = 30;
// How long a page waits for whole pictures before it shows previews...
constexpr int quickMs = 25;
// ...and how long, where there is no preview, before it shows empty cells.
constexpr int patienceMs = 200;
// A smaller picture is decoded as quickly as its preview.
constexpr qint64 smallPicture = 200'000;

// The page on the screen, the pages before and after it, and on screens of the usual size two that were left.
constexpr int pagesNeeded = 3;
constexpr int pagesKept = 5;
constexpr int bytesPerPixel = 4;
constexpr qint64 usualRoom = 48 << 20;
constexpr qint64 mostRoom = 256 << 20;

// Cameras put bars around the preview of a wide photograph. With more of them it is of another picture.
constexpr double mostOff = 1.35;

/// The middle of a preview, cut to the shape of its cell; null where the preview has another shape.
Picture inShapeOf(QSize place, const Picture& preview) {
    const Picture middle = middleFor(place, preview);
    const QSize size = preview.image().size(), part = middle.image().size();
    if (size.width() > part.width() * mostOff || size.height() > part.height() * mostOff) return {};
    return middle;
}

}  // namespace

CellPictures::CellPictures(std::function<Requests()> upcoming) : upcoming_(std::move(upcoming)) {
    resting_.setSingleShot(true);
    connect(&loader_, &PictureLoader::loaded, this, &CellPictures::take);
    connect(&resting_, &QTimer::timeout, this, &CellPictures::decodeAhead);
}

void CellPictures::setPageArea(qint64 devicePixels) {
    const qint64 page = devicePixels * bytesPerPixel;
    loader_.setRoom(std::min(std::max(pagesNeeded * page, std::min(pagesKept * page, usualRoom)), mostRoom));
}

void CellPictures::begin() {
    formerOpen_ = std::exchange(open_, {});
    formerContents_ = std::exchange(contents_, {});
    resting_.stop();
}

void CellPictures::leave() {
    begin();
    loader_.want({});
}

bool CellPictures::stoodIn(const CellBox* cell, const StoredValue& value) const {
    return std::ranges::any_of(formerContents_,
                               [&](const Content& each) { return each.cell == cell && each.value == value; });
}

void CellPictures::put(CellBox* cell, const StoredValue& value, bool keepsItsPicture) {
    contents_.push_back({cell, value});
    if (!value.isNull())
        waitFor({cell, {value, cell->targetSize()}, false, cell->picture().isNull() || !stoodIn(cell, value)});
    else if (keepsItsPicture)
        keepPicture(cell);
    else
        cell->showPicture({});
}

/// The page before may have been left before the picture of this cell had come.
void CellPictures::keepPicture(CellBox* cell) {
    cell->dropSign();
    const auto former = std::ranges::find_if(formerOpen_, [&](const Open& open) { return open.cell == cell; });
    if (former == formerOpen_.end()) return;
    former->isOfFormerRecord = true;
    waitFor(*former);
}

void CellPictures::waitFor(Open open) {
    if (showKept(open)) return;
    if (open.isBlank) open.cell->showPicture({});
    open_.push_back(std::move(open));
}

bool CellPictures::showKept(const Open& open) const {
    const Picture* kept = loader_.kept(open.request);
    if (kept != nullptr) showIn(open, *kept);
    return kept != nullptr;
}

void CellPictures::showIn(const Open& open, const Picture& picture) {
    if (picture.isNull() && !open.isOfFormerRecord)
        open.cell->showSign();
    else
        open.cell->showPicture(picture);
}

CellPictures::Requests CellPictures::missing() const {
    Requests requests;
    for (const Open& open : open_) requests.push_back(open.request);
    return requests;
}

void CellPictures::settle() {
    const QDeadlineTimer patience(patienceMs);
    // A preview that fills the whole page looks poor.
    const QDeadlineTimer quick = contents_.size() > 1 ? QDeadlineTimer(quickMs) : patience;
    want(missing());
    loader_.workUntil([this] { return open_.empty(); }, quick);
    for (Open& open : open_)
        if (open.isBlank && !patience.hasExpired()) showPreview(open);
    loader_.workUntil([this] { return std::ranges::none_of(open_, &Open::isBlank); }, patience);
    if (open_.empty())
        resting_.start(0);
    else
        rest();
}

void CellPictures::settleLater() {
    loader_.want({});
    resting_.start(stillMs);
}

void CellPictures::rest() {
    resting_.start(restMs);
}

void CellPictures::decodeAhead() {
    Requests next = missing();
    attempt([&] { std::ranges::copy(upcoming_(), std::back_inserter(next)); });
    want(next);
}

/// Where the pictures are not in the file cache, the disk brings the next ones while the first are decoded.
void CellPictures::want(const Requests& requests) {
    std::vector<qint64> values;
    for (const PictureRequest& request : requests)
        if (loader_.kept(request) == nullptr) values.push_back(request.value.id());
    if (!values.empty()) ahead_.ask(mekTp::catalogue.Name(), std::move(values));
    loader_.want(requests);
}

void CellPictures::take(const PictureRequest& request, const Picture& picture) {
    std::erase_if(open_, [&](const Open& open) {
        if (open.cell && open.request != request) return false;
        if (open.cell) showIn(open, picture);
        return true;
    });
}

void CellPictures::showPreview(Open& open) const {
    const PictureRequest& request = open.request;
    Picture preview;
    attempt([&] {
        if (request.value.size() > smallPicture) preview = LoadPreview(request.value.read(0, previewReach));
    });
    preview = inShapeOf(request.target, preview);
    if (preview.isNull() || !open.cell) return;
    open.cell->showPicture(preview);
    open.isBlank = false;
}
