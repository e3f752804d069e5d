#pragma once

#include <QRgb>
#include <QtGlobal>
#include <algorithm>
#include <array>
#include <functional>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

// Where colours lie in an even grid over N channels of 8 bits. A colour lies in a cell between 2^N nodes: it is made of
// the N + 1 nodes on the way from the cell's first node, which is nearest to 0, to the far corner. The way takes the
// channels in the order of their steps: how far the colour is into the cell, the farthest first.

/// The measures of a grid.
template <int N>
struct GridMeasures {
    static constexpr int side = N == 3 ? 33 : 17;  ///< Nodes along a channel.
    static constexpr int cells = side - 1;
    static constexpr int weightBits = 8;
    static constexpr int weights = 1 << weightBits;  ///< All that a colour is made of; the longest step.
    static constexpr int farCorner = (1 << N) - 1;   ///< A corner has a bit for each channel.
    static constexpr int shifts[] = {16, 8, 0, 24};  ///< Of the channels in a pixel: red, green, blue, alpha.
};

/// The place of a pixel.
template <int N>
struct ColourPlace {
    using Grid = GridMeasures<N>;

    int first = 0;             ///< The number of its cell's first node.
    std::array<int, N> steps;  ///< Downwards, each above the bit of its channel.

    explicit ColourPlace(QRgb pixel) {
        for (size_t channel = 0; channel < N; ++channel) {
            const int value = int(pixel >> Grid::shifts[channel] & 0xFF) * Grid::cells;
            // That times 256 / 255, rounded.
            const int whole = value + ((value + Grid::weights / 2) * (Grid::weights + 1) >> 16);
            // The last value is at the far end of the last cell.
            const int cell = std::min(whole / Grid::weights, Grid::cells - 1);
            steps[channel] = (whole - cell * Grid::weights) << N | 1 << channel;
            first = first * Grid::side + cell;
        }
        std::sort(steps.begin(), steps.end(), std::greater());
    }
};

#ifdef __SSE2__

/// The places of eight pixels, computed at once.
template <int N>
class ColourPlaces {
  public:
    using Grid = GridMeasures<N>;

    explicit ColourPlaces(const QRgb* pixels) {
        const auto* const at = reinterpret_cast<const __m128i*>(pixels);
        const __m128i low = _mm_loadu_si128(at), high = _mm_loadu_si128(at + 1);
        __m128i steps[N], cells[N];
        for (int channel = 0; channel < N; ++channel)
            findCells(valuesOf(low, high, channel), 1 << channel, cells[channel], steps[channel]);
        findFirst(cells);
        sortDownwards(steps);
        followSteps(steps);
    }

    /// The number of a cell's first node.
    int first(int pixel) const { return first_[pixel]; }
    /// The corner that the way reaches with its n-th node; the one after N nodes is the far one.
    int corner(int n, int pixel) const { return corners_[n][pixel]; }
    /// The weights of the nodes 2n (in the low half) and 2n + 1; a node behind the last one weighs nothing.
    int weights(int n, int pixel) const { return weights_[n][pixel]; }

  private:
    static __m128i all(int number) { return _mm_set1_epi16(short(number)); }

    static __m128i valuesOf(__m128i low, __m128i high, int channel) {
        const int shift = Grid::shifts[channel];
        const __m128i byte = _mm_set1_epi32(0xFF);
        return _mm_packs_epi32(_mm_and_si128(_mm_srli_epi32(low, shift), byte),
                               _mm_and_si128(_mm_srli_epi32(high, shift), byte));
    }

    /// As `ColourPlace` computes them.
    static void findCells(__m128i values, int channelBit, __m128i& cells, __m128i& steps) {
        values = _mm_mullo_epi16(values, all(Grid::cells));
        const __m128i more = _mm_mulhi_epu16(_mm_add_epi16(values, all(Grid::weights / 2)), all(Grid::weights + 1));
        const __m128i whole = _mm_add_epi16(values, more);
        cells = _mm_min_epi16(_mm_srli_epi16(whole, Grid::weightBits), all(Grid::cells - 1));
        const __m128i parts = _mm_sub_epi16(whole, _mm_slli_epi16(cells, Grid::weightBits));
        steps = _mm_or_si128(_mm_slli_epi16(parts, N), all(channelBit));
    }

    void findFirst(const __m128i* cells) {
        const auto both = [](__m128i a, __m128i b) { return _mm_add_epi16(_mm_mullo_epi16(a, all(Grid::side)), b); };
        const __m128i front = both(cells[0], cells[1]);
        const __m128i back = N == 3 ? cells[2] : both(cells[2], cells[N - 1]);
        const __m128i strides = _mm_set1_epi32(1 << 16 | (N == 3 ? Grid::side : Grid::side * Grid::side));
        store(first_, _mm_madd_epi16(_mm_unpacklo_epi16(front, back), strides),
              _mm_madd_epi16(_mm_unpackhi_epi16(front, back), strides));
    }

    static void order(__m128i& higher, __m128i& lower) {
        const __m128i a = higher, b = lower;
        higher = _mm_max_epi16(a, b);
        lower = _mm_min_epi16(a, b);
    }

    /// A network for so few numbers: it takes no branches.
    static void sortDownwards(__m128i* steps) {
        order(steps[0], steps[1]);
        if constexpr (N == 4) {
            order(steps[2], steps[3]);
            order(steps[0], steps[2]);
            order(steps[1], steps[3]);
            order(steps[1], steps[2]);
        } else {
            order(steps[1], steps[2]);
            order(steps[0], steps[1]);
        }
    }

    void followSteps(const __m128i* steps) {
        __m128i weights[6] = {};
        __m128i corner = _mm_setzero_si128(), left = all(Grid::weights);
        for (int n = 0; n < N; ++n) {
            const __m128i part = _mm_srli_epi16(steps[n], N);
            weights[n] = _mm_sub_epi16(left, part);
            left = part;
            _mm_store_si128(reinterpret_cast<__m128i*>(corners_[n]), corner);
            corner = _mm_or_si128(corner, _mm_and_si128(steps[n], all(Grid::farCorner)));
        }
        weights[N] = left;
        for (int n = 0; n <= N / 2; ++n)
            store(weights_[n], _mm_unpacklo_epi16(weights[2 * n], weights[2 * n + 1]),
                  _mm_unpackhi_epi16(weights[2 * n], weights[2 * n + 1]));
    }

    static void store(qint32* numbers, __m128i low, __m128i high) {
        _mm_store_si128(reinterpret_cast<__m128i*>(numbers), low);
        _mm_store_si128(reinterpret_cast<__m128i*>(numbers + 4), high);
    }

    static constexpr int count = 8;
    alignas(16) qint32 first_[count];
    alignas(16) quint16 corners_[N][count];
    alignas(16) qint32 weights_[N / 2 + 1][count];
};

#endif
