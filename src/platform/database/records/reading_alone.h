#pragma once

#include "platform/database/records/database.h"

/// Lets a file be read alone: whoever in this process wants to change it gets an `Error` that says that it is damaged.
/// It is so as long as one of its users has it open.
void keepFromChanges(const Database& database);
