#pragma once

#include <QString>

/// Copies a catalogue that another program may have open and may be writing to. The copy is the catalogue of one
/// moment; the other program waits a second at most, and a long run of its changes comes to its end first. The copy
/// gets its name when it is whole and on the disk; a file with that name stays until then. Throws `Error` when it
/// cannot be made.
void copyCatalogue(const QString& from, const QString& to);
