#include "backup/copy_pace.h"

#include <algorithm>

namespace {
/// The program that writes gives up after busyTimeoutMs (platform/database/file/connection.cpp).
constexpr qint64 longestMs = 1000;
/// A disk can become slow from one moment to the next, in the middle of a step. Few pages are soon written even then;
/// more of them are ventured only where a catalogue changes too often to be copied otherwise.
constexpr qint64 mostPagesEver = 1 << 16;
constexpr qint64 growth = 2;
}  // namespace

void CopyPace::stepTook(qint64 ms, int done) {
    const bool begunAnew = done_ > 0 && done <= done_;
    if (begunAnew) {
        fairMs_ = std::min(fairMs_ * 2, longestMs);
        mostPages_ = std::min(mostPages_ * 2, mostPagesEver);
    }
    done_ = done;
    const qint64 fair = pages_ * fairMs_ / std::max<qint64>(ms, 1);
    pages_ = std::clamp<qint64>(fair, 1, std::min(pages_ * growth, mostPages_));
}
