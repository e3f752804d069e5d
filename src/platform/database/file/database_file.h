#pragma once

#include <QString>

/// Throws an `Error` that tells what stands at `path` where no database file does: nothing, a folder, a link that leads
/// nowhere, or a pipe or device, at which the program would wait for ever.
void requireDatabaseFile(const QString& path);
