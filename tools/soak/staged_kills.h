#pragma once

#include "soak/killer.h"

/// Plays a stage (see `Stage`) again and again: kills it, fills its disk or takes its disk away, and looks at the files
/// that it leaves. Prints the result on the standard output; returns 0 when nothing was wrong.
int killStage(const QString& name, const KillOrder& order);

/// What the process of a stage has to bear besides.
struct StageLife {
    qint64 room = -1;  ///< Bytes that a file may have; as many as it likes for -1.
    bool unsynced = false;
    quint32 seed = 1;
};
/// Is the process of a stage. Returns 0 when it ended well.
int playStage(const QString& name, const QString& folder, const StageLife& life);
