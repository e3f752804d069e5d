#pragma once

#include "platform/database/records/database.h"

/// Names of the tables that every catalogue has besides its albums.
QStringList fixedTables();

/// Makes the fixed tables but for their rows. The program never does: it is given a catalogue. The maker of the shipped
/// catalogue and the tests make theirs with it.
void createFixedTables(const Database& database);
