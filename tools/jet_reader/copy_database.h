#pragma once

#include "platform/database/foreign/jet_outcome.h"

#include <string>

/// Copies the tables of a Jet database into an empty SQLite file that stands there. What is in it is of use only when
/// the outcome is `done`.
JetOutcome copyDatabase(const std::string& from, const std::string& to);
