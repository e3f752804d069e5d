#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

/// Gives the pictures of an album the numbers 1, 2, 3 … in the order of a column, records of equal value in the order
/// in which a listing by that column shows them. Either all numbers are changed or none: a failure, and a watch that
/// ends the run, leave them as they were. The report counts the records and names none.
RunReport renumberAlbum(const Database& album, const QString& table, const QString& sortField, RunWatch& watch);
