#pragma once

#include "platform/database/records/database.h"

#include <QString>
#include <functional>

/// Gives the pictures of an album the numbers 1, 2, 3 … in the order of a column, records of equal value in the order
/// in which a listing by that column shows them. Either all numbers are changed or none. `progress` is told the
/// percentage whenever it grows. Throws `Error` when the album cannot be read or a number cannot be stored.
void renumberAlbum(const Database& catalogue, const QString& table, const QString& sortField,
                   const std::function<void(int percent)>& progress = {});
