#pragma once

#include <QtEndian>
#include <array>

class JpegSource;

/// A place in coded bits: the next bits, the first of them on top, and the bytes behind them.
struct BitCursor {
    quint64 word = 0;
    int count = 0;  ///< Bits of `word` that are taken in.
    const uchar* next = nullptr;

    /// Takes bytes in until there are 56 bits at least.
    void refill() {
        word |= qFromBigEndian<quint64>(next) >> count;
        next += (63 - count) >> 3;
        count |= 56;
    }
    unsigned peek(int bits) const { return unsigned(word >> (64 - bits)); }
    void skip(int bits) {
        word <<= bits;
        count -= bits;
    }
};

/// The coded bits of a scan, freed from the zero byte that follows each 0xFF in the file. They end at any marker;
/// behind their end there are zeros enough for one block.
class ScanBits {
  public:
    /// Bytes that one block takes at most, with those that a cursor has taken in or looks at beyond it.
    static constexpr int longestBlock = 256;

    explicit ScanBits(JpegSource& source) : source_(source) { fill(); }
    ScanBits(const ScanBits&) = delete;
    ScanBits& operator=(const ScanBits&) = delete;

    BitCursor begin() const { return {0, 0, bytes_.data()}; }

    /// Whether a whole block may not be read from here without asking for more.
    bool runsLow(const BitCursor& cursor) const { return cursor.next > low_; }
    /// The same place, with more bytes behind it if there are any.
    BitCursor supply(BitCursor cursor);
    /// Whether the cursor has passed the end.
    bool isPassedBy(const BitCursor& cursor) const { return bitsLeft(cursor) < 0; }

    /// Goes behind the restart marker of that number. False when it does not come next.
    bool passRestart(BitCursor& cursor, int number);

  private:
    void fill();
    qint64 bitsLeft(const BitCursor& cursor) const { return cursor.count + 8 * qint64(end_ - cursor.next); }

    JpegSource& source_;
    const uchar* file_ = nullptr;  ///< What the source gave, as far as it is not taken yet.
    const uchar* fileEnd_ = nullptr;
    bool markBefore_ = false;  ///< The last byte was 0xFF: the next one decides what it means.
    bool ended_ = false;
    uchar marker_ = 0;  ///< At which the bits end; 0 at the end of the file.
    std::array<uchar, 8192 + longestBlock> bytes_;
    uchar* end_ = bytes_.data();
    const uchar* low_ = bytes_.data();
};
