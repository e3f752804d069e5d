#pragma once

#include "catalogue/runs/run_report.h"

#include <QString>

class QWidget;

/// Whether a run has left doubtful pictures out, and the person wants them all the same. Enter and Escape leave them
/// out. After a failure, or a stop, nothing is asked. `indexField` names the records; it is empty for files.
bool takesLeftOut(QWidget* parent, const RunReport& report, const QString& indexField, bool replace);
