#pragma once

#include "../tests/settings/settings_window.h"
#include "memory.h"
#include "table.h"

/// What a run by the pages of the settings window costs its user.
struct RunCost {
    double milliseconds = 0;  ///< From the click to the closing message.
    double longestWait = 0;   ///< The longest time, in milliseconds, in which no event was handled.
    double memory = 0;        ///< Megabytes above those before the click.
};

/// Clicks a button, answers all boxes with their first answer and waits for one that begins with `closing`.
inline RunCost measureRun(SettingsWindow& window, const QString& button, const QString& closing) {
    constexpr int pulseMs = 2;
    constexpr int patience = 600000;
    RunCost cost;
    bool isOver = false;
    QElapsedTimer all, sinceEvent;
    chooseInBoxesWith([&](const BoxText& box) {
        if (box.text.startsWith(closing)) {
            cost.milliseconds = double(all.nsecsElapsed()) / 1e6;
            isOver = true;
        }
        return 0;
    });
    const auto noteWait = [&] {
        cost.longestWait = std::max(cost.longestWait, double(sinceEvent.nsecsElapsed()) / 1e6 - pulseMs);
        sinceEvent.restart();
    };
    QTimer pulse;
    pulse.setTimerType(Qt::PreciseTimer);
    pulse.callOnTimeout(noteWait);
    forgetPeak();
    const double memoryBefore = memory("VmRSS:");
    all.start();
    sinceEvent.start();
    pulse.start(pulseMs);
    window.click(button);
    while (!isOver && !all.hasExpired(patience)) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    noteWait();
    cost.memory = memory("VmHWM:") - memoryBefore;
    if (!isOver) cost.milliseconds = failed;
    return cost;
}

/// Several runs of one kind.
class RunCosts {
  public:
    void add(const RunCost& cost) {
        times_.push_back(cost.milliseconds);
        longestWait_ = std::max(longestWait_, cost.longestWait);
        memory_ = std::max(memory_, cost.memory);
    }
    double time() const { return median(times_); }

    /// The rows that every run has besides those of its time.
    void tellRest(const char* topic, const std::string& what) const {
        row(topic, {.what = what + ": longest wait for an event", .measured = longestWait_, .atMost = 50});
        row(topic, {.what = what + ": memory", .measured = memory_, .unit = "MB", .atMost = 120});
    }

  private:
    std::vector<double> times_;
    double longestWait_ = 0;
    double memory_ = 0;
};
