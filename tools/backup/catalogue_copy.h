#pragma once

#include <QString>

/// Copies a catalogue that may be open elsewhere, and be written to meanwhile: the copy is the catalogue as it was at
/// one moment. The program that writes waits a second at the most. The copy is made beside `to` and takes its name when
/// it is whole and on the disk; whatever bore the name stays until then. Throws `Error` when it cannot be made.
void copyCatalogue(const QString& from, const QString& to);
