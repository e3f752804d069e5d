#pragma once

#include <QRgb>
#include <QtGlobal>
#include <algorithm>
#include <array>
#include <vector>

/// Colours at the nodes of an even grid over N channels of 8 bits. What lies between the nodes is interpolated in the
/// simplex around it: N + 1 nodes for a pixel.
template <int N>
class ColourGrid {
  public:
    static constexpr int side = N == 3 ? 33 : 17;  ///< Nodes along a channel.

    /// Red, green and blue in one number: a multiplication of a node weighs all three.
    using Node = quint64;

    /// Of lights up to 65535.
    static Node node(const std::array<quint16, 3>& lights) {
        Node packed = 0;
        for (const quint16 light : lights) packed = packed << laneBits | (light * uint(most) + 32767) / 65535;
        return packed;
    }

    static constexpr int nodeCount() {
        int count = 1;
        for (int channel = 0; channel < N; ++channel) count *= side;
        return count;
    }

    /// The last channel changes from node to node, the first one least often.
    explicit ColourGrid(std::vector<Node> nodes) : nodes_(std::move(nodes)) {
        int stride = 1;
        for (size_t channel = N; channel-- > 0; stride *= side) {
            for (int value = 0; value < 256; ++value) {
                // The last value is at the far end of the last cell: the walk below never leaves the grid.
                const int cell = std::min(value * cells / 255, cells - 1);
                const int part = ((value * cells - cell * 255) * weights + 127) / 255;
                places_[channel][size_t(value)] = {cell * stride, Step(part) << strideBits | Step(stride)};
            }
        }
    }

    QRgb at(const std::array<uint, N>& values) const {
        int first = 0;
        std::array<Step, N> steps;
        for (size_t channel = 0; channel < N; ++channel) {
            const Place& place = places_[channel][values[channel]];
            first += place.cell;
            steps[channel] = place.step;
        }
        sortDownwards(steps);

        const Node* node = &nodes_[size_t(first)];
        Node sum = halves;
        Node left = weights;
        for (const Step step : steps) {
            const Node part = step >> strideBits;
            sum += *node * (left - part);
            left = part;
            node += step & ((Step(1) << strideBits) - 1);
        }
        sum += *node * left;
        const auto light = [&](int lane) { return int(sum >> (lane * laneBits + oneBits)) & 0xFF; };
        return qRgb(light(2), light(1), light(0));
    }

  private:
    static constexpr int cells = side - 1;
    static constexpr int weights = 256;  ///< All that a colour is made of.
    static constexpr int most = 255 * 32;
    static constexpr int oneBits = 13;   ///< A whole shade: 32 times the weights.
    static constexpr int laneBits = 21;  ///< Hold `most * weights`, and a half.
    static constexpr quint64 half = quint64(1) << (oneBits - 1);
    static constexpr quint64 halves = half << 2 * laneBits | half << laneBits | half;

    /// How far a colour is into its cell along a channel, above the way to the next node in that direction.
    using Step = quint64;
    static constexpr int strideBits = 32;

    struct Place {
        int cell;  ///< The number of its first node, as far as the channel decides.
        Step step;
    };

    /// A network for so few numbers: it takes no branches.
    static void sortDownwards(std::array<Step, N>& steps) {
        const auto order = [&](size_t first, size_t second) {
            const Step a = steps[first], b = steps[second];
            steps[first] = a > b ? a : b;
            steps[second] = a > b ? b : a;
        };
        if constexpr (N == 4) {
            order(0, 1);
            order(2, 3);
            order(0, 2);
            order(1, 3);
            order(1, 2);
        } else {
            order(0, 1);
            order(1, 2);
            order(0, 1);
        }
    }

    std::vector<Node> nodes_;
    std::array<std::array<Place, 256>, N> places_;
};
