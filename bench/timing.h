#pragma once

#include <QElapsedTimer>
#include <algorithm>
#include <functional>
#include <vector>

/// How long a piece of work takes, in milliseconds.
inline double milliseconds(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

inline double median(std::vector<double> values) {
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// Median time of that many runs of a piece of work, in milliseconds. What has to be done before each is not timed.
inline double medianMilliseconds(int rounds, const std::function<void()>& work,
                                 const std::function<void()>& before = {}) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        if (before) before();
        times.push_back(milliseconds(work));
    }
    return median(times);
}
