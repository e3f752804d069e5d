#pragma once

#include "soak/ledger.h"

/// Checks the files that a killed program has left, with the engine alone, without the program's own code.

/// All albums and the selection buttons of a catalogue; places begin with `prefix`. Opening it lets the engine take
/// back an unfinished change. Adds to `faults` when the file is damaged, when a picture is not whole or does not match
/// its record, and when records and long-binary values do not belong together one by one.
Found lookIntoCatalogue(const QString& file, const QString& prefix, QStringList& faults);

/// The picture files of a folder as the place `name`.
Found lookIntoFolder(const QString& folder, const QString& name, QStringList& faults);
