#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

#include <QString>

/// The conversion of an album catalogue of another format into one of ours. The old file is only read.
struct ConversionOrder {
    QString old;     ///< A Jet database.
    QString fresh;   ///< A catalogue of ours: what the old one does not have comes from it.
    QString target;  ///< The new file; there is none yet.
};

/// Makes the new file, reads every picture back from it, and compares it with a second reading of the old file. The
/// report names each record by table and number; `cameToEnd` says whether the new file holds all that could be read.
/// Records that cannot be taken as they are have notes. A failure of the new file ends the run. Throws `Error` when it
/// cannot begin.
RunReport convertCatalogue(const ConversionOrder& order, RunWatch& watch);

/// Begins a new catalogue with a copy of the shipped one. Throws `Error`.
void copyFresh(const QString& fresh, const QString& target);
