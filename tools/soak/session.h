#pragma once

#include <QStringList>

struct SessionOrder {
    QString freshCatalogue;
    QString folder;
    int rounds;
    int minutes;
    quint32 seed;
    QStringList scenes;  ///< All when empty.
};

/// Plays all scenes round after round in one process, and prints what it takes of memory, open files, temporary files
/// and windows. Returns 0 when that no longer grows once the first rounds are over.
int playSession(const SessionOrder& order);
