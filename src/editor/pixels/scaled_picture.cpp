#include "editor/pixels/scaled_picture.h"

#include "editor/pixels/resampling.h"

namespace {

QSize halved(QSize size) {
    return {(size.width() + 1) / 2, (size.height() + 1) / 2};
}

bool holds(QSize size, QSize target) {
    return size.width() >= target.width() && size.height() >= target.height();
}

}  // namespace

void ScaledPicture::set(const QImage& picture) {
    halves_.clear();
    whole_ = picture;
}

qsizetype ScaledPicture::bytesBeside() const {
    qsizetype bytes = 0;
    for (const QImage& half : halves_) bytes += half.sizeInBytes();
    return bytes;
}

QImage ScaledPicture::part(QSize target, const QRect& part) {
    if (holds(target, 2 * whole_.size())) return inBlocks(whole_, target, part);
    return resampled(leastFor(target), target, part);
}

/// The smallest one that is kept and need not grow to `target`.
const QImage& ScaledPicture::leastFor(QSize target) {
    const QImage* least = &whole_;
    for (size_t level = 0;; ++level) {
        const QSize half = halved(least->size());
        if (!holds(half, target) || half == least->size()) return *least;
        if (level == halves_.size()) halves_.push_back(resampled(*least, half));
        least = &halves_[level];
    }
}
