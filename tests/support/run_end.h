#pragma once

#include <QPushButton>
#include <QtTest/QtTest>

/// Waits until no run is under way in the settings window, and what follows it is done.
inline void waitForRun(const QWidget* window) {
    const auto* stop = window == nullptr ? nullptr : window->findChild<QPushButton*>(QStringLiteral("cmdTz"));
    constexpr int longestMs = 60000;
    QTRY_VERIFY_WITH_TIMEOUT(stop == nullptr || stop->isHidden(), longestMs);
}
