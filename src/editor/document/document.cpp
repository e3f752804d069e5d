#include "editor/document/document.h"

#include "editor/document/kept_work.h"
#include "editor/pixels/row_blocks.h"
#include "platform/base/twips.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int gone = -1;

QSize sizeOf(const Picture& picture) {
    return {pictureTwips(picture.Width(), picture.pixels().width()),
            pictureTwips(picture.Height(), picture.pixels().height())};
}

QSize inTwips(QSize pixels) {
    return {twipsFromPixels(pixels.width()), twipsFromPixels(pixels.height())};
}

}  // namespace

int pictureTwips(int hiMetric, int pixels) {
    const int twips = roundHalfEven(hiMetric / 1.7638);
    return pixelsFromTwips(twips) == pixels ? twips : twipsFromPixels(pixels);
}

void Document::begin(const PictureSource& source, const QImage& picture, const QByteArray& profile, QSize size) {
    dropLastPaint();
    shown_ = inEditorFormat(picture);
    profile_ = profile;
    photograph_ = {};
    source_ = source;
    size_ = size;
    origin_ = {};
    selection_ = {};
    tag_.clear();
    isWhole_ = true;
    isSourceKept_ = isResumed_ = isTakenBack_ = isTakingBack_ = false;
}

void Document::open(const PictureSource& source, const Picture& picture, const QString& hint) {
    forgetSource();
    begin(source, picture.image(), picture.profile(), sizeOf(picture));
    settle();
    Q_EMIT pictureChanged();
    stepCount_ = 0;
    steps_.start(nextStep(hint, 0));
    keep();
    setCaption({});
    Q_EMIT opened();
}

std::optional<QString> Document::resume(const PictureSource& source) {
    const auto step = steps_.newest();
    if (!step) return {};
    begin(source, step->picture, step->profile, step->size);
    tag_ = step->tag;
    isResumed_ = isSourceKept_ = true;
    isWhole_ = false;  // nobody knows
    setState(EditState::copied);
    Q_EMIT pictureChanged();
    stepCount_ = step->number;
    keptStep_ = gone;
    setCaption(tag_.isEmpty() ? QString() : u"["_s + tag_ + u']');
    Q_EMIT opened();
    return step->label;
}

void Document::close() {
    dropLastPaint();
    photograph_ = shown_ = {};
    source_ = NoSource();
    stepCount_ = keptStep_ = 0;
    if (std::exchange(isSourceKept_, false)) forgetSource();
    setState(EditState::nothing);
    setCaption({});
    Q_EMIT closed();
}

/// Before another large picture comes.
void Document::dropLastPaint() {
    lastPaint_ = {};
    Q_EMIT lastPaintDropped();
}

void Document::setCaption(const QString& words) {
    caption_ = sourceLine(source_) + words;
    Q_EMIT captionChanged(caption_);
}

void Document::setState(EditState state) {
    state_ = state;
    operation_ = nullptr;
}

void Document::settle() {
    setState(isFromAlbum() ? EditState::fromAlbum : EditState::fromFile);
}

/// On the way back only an operation that has the window for itself becomes the one that is tried again.
void Document::ask(const Operation& operation) {
    if (isTakingBack_ && !operation.isExclusive) return;
    state_ = EditState::asking;
    operation_ = &operation;
}

void Document::carryOut(const Operation& operation, const QString& entry, const Progress& progress) {
    isTakingBack_ = false;
    Operation::Outcome outcome;
    try {
        outcome = operation.plan({shown_, size_, origin_, selection_, entry});
    } catch (const TooLarge&) {
        origin_ = {};
        dropLastPaint();
        throw;
    }
    dropLastPaint();
    lastPaint_ = outcome.paint(progress);
    shown_ = lastPaint_;
    if (showsThumbnail() || !origin_.isNull()) isWhole_ = false;
    photograph_ = {};
    size_ = outcome.size;
    origin_ = outcome.origin;
    tag_ += outcome.tag;
    isTakenBack_ = false;
    state_ = EditState::done;
    operation_ = &operation;
    Q_EMIT pictureChanged();
    setCaption((operation.asksNothing() ? u"["_s : u" ["_s) + tag_ + u']');
}

void Document::showThumbnail(const QImage& thumbnail) {
    photograph_ = std::exchange(shown_, thumbnail);
    size_ = inTwips(thumbnail.size());
    origin_ = {};
    Q_EMIT thumbnailShown();
}

// ------------------------------------------------------------------------------------------------------------ steps

UndoSteps::Step Document::nextStep(const QString& hint, double parameter) {
    ++stepCount_;
    if (stepCount_ <= keptStep_) keptStep_ = gone;
    return {stepCount_, hint, tag_, inTwips(shown_.size()), parameter, shown_, profile_};
}

/// A source is never kept before a step of its own: it would be taken for that of an earlier picture's steps.
void Document::record(const QString& hint, double parameter) {
    if (steps_.record(nextStep(hint, parameter)) && !isSourceKept_) {
        keepSource(source_);
        isSourceKept_ = true;
    }
    const QString loss = steps_.takeLoss();
    if (!loss.isEmpty()) Q_EMIT stepLost(loss);
}

void Document::clearSteps() {
    steps_.clear();
    isResumed_ = isSourceKept_ = false;
}

void Document::setRecordPicture(qint64 id) {
    if (auto* record = std::get_if<AlbumRecord>(&source_)) record->picture = id;
    keepSourceAnew();
}

void Document::setFileLength(qint64 bytes) {
    if (auto* file = std::get_if<PictureFile>(&source_)) file->bytesNow = bytes;
    keepSourceAnew();
}

/// Its steps are in the catalogue until the picture is settled, or longer.
void Document::keepSourceAnew() {
    if (isSourceKept_) keepSource(source_);
}

std::optional<QString> Document::takeBack() {
    if (stepCount_ == 0) return {};
    steps_.remove(stepCount_);
    if (--stepCount_ == 0) {
        close();
        return {};
    }
    const auto step = steps_.read(stepCount_);
    if (!step) {  // it could not be stored: what is on the screen is no step that is kept
        keptStep_ = gone;
        return {};
    }
    photograph_ = {};
    shown_ = inEditorFormat(step->picture);
    size_ = step->size;
    tag_ = step->tag;
    isTakenBack_ = true;
    Q_EMIT pictureChanged();
    setCaption(tag_.isEmpty() ? QString() : u"["_s + tag_ + u']');
    return step->label;
}
