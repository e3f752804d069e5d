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
    bool fillsDisk = false;  ///< Its disk is filled up instead.
    QStringList scenes;      ///< All when empty.
};

/// Starts the program, kills it, or lets it end after its disk has filled up, and checks the files that it leaves,
/// again and again. Prints the result on the standard output; returns 0 when nothing was wrong.
int killAgainAndAgain(const KillOrder& order);
