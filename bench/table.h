#pragma once

#include "timing.h"

#include <cstdio>
#include <optional>
#include <string>

/// One line of the table that `./bench.sh` prints. Without a limit it is for information only.
struct Figure {
    std::string what;
    double measured = 0;
    const char* unit = "ms";
    std::string peer = {};                 ///< Comparable work, measured in the same run.
    double peerMeasured = 0;               ///< In the same unit.
    std::optional<double> atMost = {};     ///< In the same unit.
    std::optional<double> timesPeer = {};  ///< At most so many times the peer.

    bool fallsShort() const {
        return (atMost && measured > *atMost) || (timesPeer && measured > *timesPeer * peerMeasured);
    }
};

/// Prints a figure: | topic | what | measured | beside | ratio | to reach | reached |
inline void row(const char* topic, const Figure& figure) {
    const auto number = [](double value, const char* unit) {
        if (value >= failed) return std::string("failed");
        char text[40];
        std::snprintf(text, sizeof text, "%.*f %s", value < 10 ? 2 : value < 100 ? 1 : 0, value, unit);
        return std::string(text);
    };
    std::string beside, ratio, limit;
    if (!figure.peer.empty()) {
        beside = figure.peer + ": " + number(figure.peerMeasured, figure.unit);
        ratio = number(figure.measured / figure.peerMeasured, "x");
    }
    if (figure.atMost) limit = "<= " + number(*figure.atMost, figure.unit);
    if (figure.timesPeer) limit += (limit.empty() ? "<= " : ", <= ") + number(*figure.timesPeer, "x");
    std::printf("| %-10s | %-58s | %10s | %-44s | %7s | %-18s | %-3s |\n", topic, figure.what.c_str(),
                number(figure.measured, figure.unit).c_str(), beside.c_str(), ratio.c_str(), limit.c_str(),
                limit.empty()         ? ""
                : figure.fallsShort() ? "NO"
                                      : "yes");
    std::fflush(stdout);
}
