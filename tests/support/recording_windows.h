#pragma once

#include "catalogue/colour_scheme.h"
#include "windows/picture_offer.h"
#include "windows/windows.h"

#include <QList>

/// Remembers what a window asked of the others.
class RecordingWindows : public Windows {
  public:
    void handOver(WindowKind, WindowKind to) override { handedTo << to; }
    void takeIn(const QString& table, const PictureOffer& offer) override { offers << std::pair(table, offer); }
    void show(WindowKind window) override { shown << window; }
    void unload(WindowKind window) override { unloaded << window; }
    void coloursChanged() override { ++colourChanges; }
    void tryColours(const ColourScheme& scheme) override { tried << scheme; }
    void showHelp(const QString& topic) override { topics << topic; }
    void endProgram() override { ended = true; }

    QList<WindowKind> handedTo, shown, unloaded;
    QStringList topics;
    QList<std::pair<QString, PictureOffer>> offers;  ///< With the tables of their albums.
    QList<ColourScheme> tried;
    int colourChanges = 0;
    bool ended = false;
};
