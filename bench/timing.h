#pragma once

#include <QElapsedTimer>
#include <algorithm>
#include <functional>
#include <vector>

/// Median time of that many runs of a piece of work, in milliseconds.
inline double medianMilliseconds(int rounds, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::nth_element(times, times.begin() + rounds / 2);
    return times[size_t(rounds / 2)];
}
