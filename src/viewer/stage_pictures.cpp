#include "viewer/stage_pictures.h"

#include "platform/base/error.h"

#include <algorithm>

namespace {
constexpr int patienceMs = 200;
// How long a zoomed picture may be blurred before it is decoded anew.
constexpr int sharpenMs = 60;
// The picture in view, one before it and one behind it; on screens of the usual size some that were left.
constexpr int picturesNeeded = 3;
constexpr int picturesKept = 6;
constexpr qint64 usualRoom = 48 << 20;
constexpr qint64 mostRoom = 256 << 20;
constexpr int bytesPerPixel = 4;
}  // namespace

StagePictures::StagePictures(std::function<Requests()> upcoming) : upcoming_(std::move(upcoming)) {
    rest_.setSingleShot(true);
    connect(&loader_, &PictureLoader::loaded, this, &StagePictures::take);
    connect(&rest_, &QTimer::timeout, this, &StagePictures::decode);
}

void StagePictures::bring(Stage& stage, const StoredValue& value) {
    stage_ = &stage;
    whole_ = {};
    wanted_ = {value, stage.target()};
    isWaiting_ = true;
    keepRoom();
    if (!showKept()) {
        loader_.want({wanted_});
        loader_.workUntil([this] { return !isWaiting_; }, QDeadlineTimer(patienceMs));
    }
    rest_.start(0);
}

void StagePictures::sharpen() {
    if (wanted_.value.isNull() || wanted_.target == stage_->target()) return;
    wanted_.target = stage_->target();
    isWaiting_ = true;
    if (stage_->isWhole() && !whole_.isNull())
        show(whole_);
    else if (!showKept())
        rest_.start(sharpenMs);
}

void StagePictures::leave() {
    rest_.stop();
    wanted_ = {};
    whole_ = {};
    isWaiting_ = false;
    loader_.want({});
    loader_.setRoom(0);
}

void StagePictures::keepRoom() {
    const QSize whole = stage_->room();
    const qint64 bytes = qint64(whole.width()) * whole.height() * bytesPerPixel;
    loader_.setRoom(std::min(std::max(picturesNeeded * bytes, std::min(picturesKept * bytes, usualRoom)), mostRoom));
}

bool StagePictures::showKept() {
    const Picture* kept = loader_.kept(wanted_);
    if (kept != nullptr) show(Picture(*kept));
    return kept != nullptr;
}

void StagePictures::show(const Picture& picture) {
    isWaiting_ = false;
    if (picture.isNull()) {
        Q_EMIT failed();
        return;
    }
    if (stage_->isWhole()) whole_ = picture;
    stage_->show(picture);
}

void StagePictures::take(const PictureRequest& request, const Picture& picture) {
    if (isWaiting_ && request == wanted_) show(picture);
}

void StagePictures::decode() {
    Requests requests;
    if (isWaiting_) requests.push_back(wanted_);
    attempt([&] { std::ranges::copy(upcoming_(), std::back_inserter(requests)); });
    loader_.want(requests);
}
