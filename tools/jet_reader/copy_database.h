#pragma once

#include "copy_writer.h"

#include <string>

/// Copies the tables of a Jet database into an existing, empty SQLite file. What is damaged is left out, and noted in a
/// table of the copy (see `reading_notes_table.h`). `codePage` is that of the texts of Jet 3; 0: it is found by them.
/// The content of the copy is of use only when the outcome is `done`.
JetOutcome copyDatabase(const std::string& from, const std::string& to, int codePage = 0,
                        CopyWriter::LongValues longValues = CopyWriter::LongValues::whole);
