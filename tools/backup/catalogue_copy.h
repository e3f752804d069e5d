#pragma once

#include <QString>

/// Copies a catalogue that another program may have open and may be writing to. The copy is the catalogue of one
/// moment; the other program waits a second at most, and a long run of its changes comes to its end first. The copy
/// gets its name when it is on the disk and was read back from there: its structure is sound, and its pictures are
/// those of their fingerprints. What had the name until then stays under a dated one, see catalogue/backup_file.h.
/// Throws `Error` when the copy cannot be made; all backups stay as they were then, but for old ones that made way for
/// it.
void copyCatalogue(const QString& from, const QString& to);
