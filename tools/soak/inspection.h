#pragma once

#include "soak/ledger.h"

/// Looks at what a killed program has left, with the engine alone, and none of the program's own code.

/// All albums and the selection buttons of a catalogue; places begin with `prefix`. Opening it lets the engine take
/// back what was under way. Adds to `faults` where the file is damaged, where a picture is not whole or not the one
/// that its record tells about, and where records and long-binary values do not belong together one by one.
Found lookIntoCatalogue(const QString& file, const QString& prefix, QStringList& faults);

/// The picture files of a folder as the place `name`.
Found lookIntoFolder(const QString& folder, const QString& name, QStringList& faults);
