#pragma once

#include "platform/picture/scan_bits.h"

#include <array>

// The library's header leans on these two.
// clang-format off
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>
// clang-format on

/// The codes of a JPEG table, the short ones in a table by their first bits.
class HuffmanCodes {
  public:
    static constexpr int tableBits = 12;
    using Index = unsigned;

    struct Code {
        quint8 bits = 0;  ///< Length; 0 where the bits begin no code.
        quint8 symbol = 0;
    };

    /// False when it is no valid table, or one with larger symbols.
    bool assign(const JHUFF_TBL& table, quint8 largestSymbol);

    /// The code with which these bits, the first of them on top, begin.
    Code find(quint64 word) const {
        const Code code = byBits_[word >> (64 - tableBits)];
        return code.bits > 0 ? code : findLong(word);
    }
    /// The same of the first bits alone; longer codes are not found.
    Code findShort(Index bits) const { return byBits_[bits]; }

  private:
    static constexpr int longest = 16;
    Code findLong(quint64 word) const;

    std::array<Code, 1 << tableBits> byBits_;
    std::array<int, longest + 1> beyond_;    ///< By length: the first code that is larger than those of this length.
    std::array<int, longest + 1> toSymbol_;  ///< By length: what leads from a code to its symbol.
    std::array<quint8, 256> symbols_;
};

/// Reads the differences of means.
class MeanTable {
  public:
    bool assign(const JHUFF_TBL& table) { return codes_.assign(table, mostMeanBits); }

    /// Adds the next difference to a mean. False when the bits are no code. Takes 27 bits at most.
    bool read(BitCursor& bits, int& mean) const {
        const HuffmanCodes::Code code = codes_.find(bits.word);
        if (code.bits == 0) return false;
        bits.skip(code.bits);
        // A value that begins with 0 is negative.
        const int value = int(bits.word >> 1 >> (63 - code.symbol));
        const int isNegative = int(~bits.word >> 63);
        mean += value - (isNegative << code.symbol) + isNegative;
        bits.skip(code.symbol);
        return true;
    }

  private:
    static constexpr int mostMeanBits = 11;

    HuffmanCodes codes_;
};

/// Skips what follows the mean of a block, several codes and their values at a time.
class DetailTable {
  public:
    bool assign(const JHUFF_TBL& table);

    /// Goes to the end of the block. False when the bits are no codes, or lead past it.
    bool pass(BitCursor& bits) const {
        constexpr int end = 64;
        int place = 1;
        while (true) {
            const Step several = several_[bits.peek(HuffmanCodes::tableBits)];
            const int next = place + several.places;
            if (next < end) {
                place = next;
                bits.skip(several.bits);
                bits.refill();
            } else if (next == end || (next >= toEnd && next < toEnd + end)) {
                bits.skip(several.bits);
                return true;
            } else {
                const Step one = single(codes_.find(bits.word));
                if (one.bits == 0) return false;
                bits.skip(one.bits);
                bits.refill();
                if (one.places == toEnd) return true;
                place += one.places;
                if (place >= end) return place == end;
            }
        }
    }

  private:
    static constexpr int mostValueBits = 10;
    static constexpr int toEnd = 128;     ///< Places of the code that ends a block.
    static constexpr int unknown = 0xFF;  ///< Places, when the bits hold no whole code.

    struct Step {
        quint8 bits = 0;  ///< With those of the values; 26 at most.
        quint8 places = 0;
    };
    static Step single(HuffmanCodes::Code code) {
        const int valueBits = code.symbol & 15;
        const int zeros = code.symbol >> 4;
        if (code.bits == 0 || valueBits > mostValueBits) return {0, unknown};
        const bool ends = valueBits == 0 && zeros < 15;
        return {quint8(code.bits + valueBits), quint8(ends ? toEnd : zeros + 1)};
    }

    std::array<Step, 1 << HuffmanCodes::tableBits> several_;
    HuffmanCodes codes_;
};
