#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

/// Proves all pictures of a catalogue now (see catalogue/picture_proof.h), and stores what it has found. The report
/// counts those that are unchanged and names the others.
RunReport proveCatalogue(const QString& file, RunWatch& watch);
