#pragma once

#include <QString>

/// Throws an `Error` when there is no file at `path`. It says what is there instead: nothing, a folder, a link that
/// leads nowhere, or a pipe or device, at which the program would wait for ever.
void requireDatabaseFile(const QString& path);
