#pragma once

#include "copy_writer.h"

#include <string>

/// Copies the tables of a Jet database into an existing, empty SQLite file. Its content is of use only when the outcome
/// is `done`.
JetOutcome copyDatabase(const std::string& from, const std::string& to,
                        CopyWriter::LongValues longValues = CopyWriter::LongValues::whole);
