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

    /// Red, green and blue up to 65535; the fourth number makes a node eight bytes long.
    using Node = std::array<quint16, 4>;

    static constexpr int nodeCount() {
        int count = 1;
        for (int channel = 0; channel < N; ++channel) count *= side;
        return count;
    }

    /// The last channel changes from node to node, the first one least often.
    explicit ColourGrid(std::vector<Node> nodes) : nodes_(std::move(nodes)) {
        for (int value = 0; value < 256; ++value) {
            // The last value is at the far end of the last cell: the walk below never leaves the grid.
            const int cell = std::min(value * cells / 255, cells - 1);
            cell_[size_t(value)] = quint8(cell);
            part_[size_t(value)] = quint8(value * cells - cell * 255);
        }
    }

    QRgb at(const std::array<uint, N>& values) const {
        int place = 0;
        std::array<int, N> steps;  // how far into the cell, with the channel in the lowest bits
        for (int channel = 0; channel < N; ++channel) {
            place = place * side + cell_[values[size_t(channel)]];
            steps[size_t(channel)] = part_[values[size_t(channel)]] << channelBits | channel;
        }
        sortDownwards(steps);

        const Node* node = &nodes_[size_t(place)];
        std::array<uint, 3> sum{};
        int left = 255;
        for (const int step : steps) {
            const int part = step >> channelBits;
            add(sum, *node, uint(left - part));
            left = part;
            node += strides[size_t(step & ((1 << channelBits) - 1))];
        }
        add(sum, *node, uint(left));
        return qRgb(rounded(sum[0]), rounded(sum[1]), rounded(sum[2]));
    }

  private:
    static constexpr int cells = side - 1;
    static constexpr int channelBits = 2;

    static constexpr std::array<int, N> strides = [] {
        std::array<int, N> all{};
        int stride = 1;
        for (int channel = N - 1; channel >= 0; --channel, stride *= side) all[size_t(channel)] = stride;
        return all;
    }();

    static void add(std::array<uint, 3>& sum, const Node& node, uint weight) {
        for (size_t i = 0; i < sum.size(); ++i) sum[i] += node[i] * weight;
    }
    static int rounded(uint sum) { return int((sum + 32767) / 65535); }

    /// A network for so few numbers: it takes no branches.
    static void sortDownwards(std::array<int, N>& steps) {
        const auto order = [&](size_t first, size_t second) {
            const int larger = std::max(steps[first], steps[second]);
            steps[second] = std::min(steps[first], steps[second]);
            steps[first] = larger;
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
    std::array<quint8, 256> cell_;
    std::array<quint8, 256> part_;  ///< Of 255.
};
