#pragma once

#include "platform/picture/colour_places.h"

#include <utility>
#include <vector>

/// Colours at the nodes of an even grid over N channels of 8 bits. What lies between the nodes is made of those around
/// it: N + 1 for a pixel. Eight pixels are turned at a time where the processor has SSE2; the plain way gives the same.
template <int N>
class ColourGrid {
    using Grid = GridMeasures<N>;

  public:
    static constexpr int side = Grid::side;

    /// Blue, green, red and alpha, each up to `most`.
    using Node = std::array<qint16, 4>;

    /// Of red, green and blue up to 65535.
    static Node node(const std::array<quint16, 3>& lights) {
        const auto part = [&](size_t i) { return qint16((lights[i] * uint(most) + 32767) / 65535); };
        return {part(2), part(1), part(0), most};
    }

    static constexpr int nodeCount() {
        int count = 1;
        for (int channel = 0; channel < N; ++channel) count *= side;
        return count;
    }

    /// The last channel changes from node to node, the first one least often.
    explicit ColourGrid(std::vector<Node> nodes) : nodes_(std::move(nodes)) {
        for (size_t corner = 0; corner < ways_.size(); ++corner)
            for (int channel = 0; channel < N; ++channel)
                ways_[corner] = ways_[corner] * side + int(corner >> channel & 1);
    }

    /// Turns pixels in place. Their channels are red, green, blue and alpha.
    void turn(QRgb* pixels, qsizetype count) const {
#ifdef __SSE2__
        for (; count >= 8; pixels += 8, count -= 8) turnEight(pixels);
#endif
        for (; count > 0; ++pixels, --count) *pixels = turned(*pixels);
    }

  private:
    static constexpr int shadeBits = 7;
    static constexpr int most = 255 << shadeBits;
    static constexpr int sumBits = Grid::weightBits + shadeBits;
    static constexpr int half = 1 << (sumBits - 1);

    QRgb turned(QRgb pixel) const {
        const ColourPlace<N> place(pixel);
        std::array<int, 4> sums{half, half, half, half};
        int corner = 0, left = Grid::weights;
        const auto add = [&](int weight) {
            const Node& node = nodes_[size_t(place.first + ways_[size_t(corner)])];
            for (size_t i = 0; i < sums.size(); ++i) sums[i] += node[i] * weight;
        };
        for (const int step : place.steps) {
            add(left - (step >> N));
            left = step >> N;
            corner |= step & Grid::farCorner;
        }
        add(left);
        return qRgb(sums[2] >> sumBits, sums[1] >> sumBits, sums[0] >> sumBits);
    }

#ifdef __SSE2__
    void turnEight(QRgb* pixels) const {
        const ColourPlaces<N> places(pixels);
        for (int i = 0; i < 8; i += 4) {
            const __m128i two = _mm_packs_epi32(sum(places, i), sum(places, i + 1));
            const __m128i more = _mm_packs_epi32(sum(places, i + 2), sum(places, i + 3));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels + i), _mm_packus_epi16(two, more));
        }
    }

    /// Blue, green, red and alpha of a pixel.
    __m128i sum(const ColourPlaces<N>& places, int pixel) const {
        const Node* const first = nodes_.data() + places.first(pixel);
        const auto node = [&](int n) {
            const auto corner = size_t(n == N ? Grid::farCorner : places.corner(n, pixel));
            return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(first + (n == 0 ? 0 : ways_[corner])));
        };
        __m128i sum = _mm_set1_epi32(half);
        for (int n = 0; n <= N; n += 2) {
            const __m128i next = n < N ? node(n + 1) : _mm_setzero_si128();
            const __m128i weights = _mm_set1_epi32(places.weights(n / 2, pixel));
            sum = _mm_add_epi32(sum, _mm_madd_epi16(_mm_unpacklo_epi16(node(n), next), weights));
        }
        return _mm_srai_epi32(sum, sumBits);
    }
#endif

    std::vector<Node> nodes_;
    std::array<int, 1 << N> ways_{};  ///< From the first node of a cell to its corners.
};
