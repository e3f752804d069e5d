#pragma once

#include "windows/windows.h"

#include <QList>

/// Remembers what a window asked of the others.
class RecordingWindows : public Windows {
  public:
    void handOver(WindowKind, WindowKind to) override { handedTo << to; }
    void show(WindowKind window) override { shown << window; }
    void unload(WindowKind window) override { unloaded << window; }
    void coloursChanged() override { ++colourChanges; }
    void showHelp(const QString& topic) override { topics << topic; }
    void endProgram() override { ended = true; }

    QList<WindowKind> handedTo, shown, unloaded;
    QStringList topics;
    int colourChanges = 0;
    bool ended = false;
};
