#include "platform/picture/scan_bits.h"

#include "platform/picture/jpeg_source.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr uchar mark = 0xFF;

}  // namespace

void ScanBits::fill() {
    const uchar* const limit = bytes_.data() + bytes_.size() - longestBlock;
    while (end_ < limit && !ended_) {
        if (file_ == fileEnd_) {
            const QByteArrayView more = source_.take();
            file_ = reinterpret_cast<const uchar*>(more.begin());
            fileEnd_ = reinterpret_cast<const uchar*>(more.end());
            ended_ = more.isEmpty();
        } else if (markBefore_) {
            markBefore_ = false;
            marker_ = *file_++;
            ended_ = marker_ != 0;
            if (!ended_) *end_++ = mark;
        } else {
            const auto room = size_t(std::min(limit - end_, fileEnd_ - file_));
            const auto* found = static_cast<const uchar*>(std::memchr(file_, mark, room));
            const size_t plain = found ? size_t(found - file_) : room;
            std::memcpy(end_, file_, plain);
            end_ += plain;
            file_ += plain + (found ? 1 : 0);
            markBefore_ = found;
        }
    }
    std::memset(end_, 0, longestBlock);
    // A cursor that has not passed the last bit has taken in less than a word behind it.
    low_ = ended_ ? end_ + sizeof(BitCursor::word) : end_ - longestBlock;
}

BitCursor ScanBits::supply(BitCursor cursor) {
    if (ended_) return cursor;
    const auto left = size_t(end_ - cursor.next);
    std::memmove(bytes_.data(), cursor.next, left);
    end_ = bytes_.data() + left;
    cursor.next = bytes_.data();
    fill();
    return cursor;
}

bool ScanBits::passRestart(BitCursor& cursor, int number) {
    cursor = supply(cursor);
    const qint64 left = bitsLeft(cursor);
    const bool isNext = ended_ && marker_ == 0xD0 + number && left >= 0 && left < 8;
    ended_ = false;
    end_ = bytes_.data();
    fill();
    cursor = begin();
    return isNext;
}
