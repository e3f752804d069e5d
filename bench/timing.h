#pragma once

#include <QElapsedTimer>
#include <algorithm>
#include <functional>
#include <vector>

/// The time of work that failed: it exceeds every limit.
constexpr double failed = 1e9;

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

/// Median time of that many runs of a piece of work, in milliseconds. Preparing a run and checking its result are not
/// timed.
inline double medianMilliseconds(int rounds, const std::function<void()>& work,
                                 const std::function<void()>& before = {}, const std::function<bool()>& isDone = {}) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        if (before) before();
        const double time = milliseconds(work);
        times.push_back(!isDone || isDone() ? time : failed);
    }
    return median(times);
}
