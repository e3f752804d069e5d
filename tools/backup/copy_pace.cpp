#include "backup/copy_pace.h"

#include <algorithm>

namespace {
/// The program that writes gives up after two seconds.
constexpr qint64 longestMs = 1000;
constexpr qint64 mostPages = 1 << 20;
constexpr qint64 growth = 8;
}  // namespace

void CopyPace::stepTook(qint64 ms, int done) {
    const bool begunAnew = done_ > 0 && done <= done_;
    if (begunAnew) fairMs_ = std::min(fairMs_ * 2, longestMs);
    done_ = done;
    const qint64 fair = pages_ * fairMs_ / std::max<qint64>(ms, 1);
    pages_ = static_cast<int>(std::clamp<qint64>(fair, 1, std::min(pages_ * growth, mostPages)));
}
