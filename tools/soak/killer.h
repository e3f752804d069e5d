#pragma once

#include <QStringList>

/// What the soak was asked for.
struct KillOrder {
    QString program;         ///< This executable, which also plays the worked program.
    QString freshCatalogue;  ///< Of the build.
    QString folder;          ///< To work in; emptied at the beginning.
    int kills = 500;
    int minutes = 60;  ///< Ends earlier when this is over.
    quint32 seed = 1;
    bool unsynced = false;
    QStringList scenes;  ///< All when empty.
};

/// Starts the program, kills it and looks at what it has left, time and again. Tells on the standard output what came
/// of it; returns 0 when nothing was wrong.
int killAgainAndAgain(const KillOrder& order);
