#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

#include <QString>

/// Takes what is whole of a damaged catalogue into a new one: albums with all columns of their records, buttons,
/// titles, settings, colours, screen pictures, and what the program remembers. What is in the bin, and the editor's
/// steps, stay behind.
struct RescueOrder {
    QString damaged;  ///< Only read.
    QString fresh;    ///< A catalogue of ours: what the damaged one has lost besides its albums comes from it.
    QString target;   ///< The new file; there is none yet.
};

/// Takes record by record, then reads every picture back and compares it with a second reading. The report names each
/// record by table and number; what is lost has notes. A picture that can be read but is not the one of its kept
/// fingerprint comes along, and keeps that fingerprint: so the proof of the pictures goes on telling of it, and heals
/// it from a backup. A failure of the new file ends the run. Throws `Error` when it cannot begin.
RunReport rescueCatalogue(const RescueOrder& order, RunWatch& watch);
