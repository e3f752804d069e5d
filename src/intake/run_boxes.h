#pragma once

#include "catalogue/runs/picture_storing.h"
#include "catalogue/runs/run_report.h"

#include <QStringList>
#include <optional>

class QWidget;

/// What is asked before and after an intake run.

/// Asks what becomes of those of the files that can become JPEG; without any nothing is asked. Nothing: do not take
/// them in. The answer holds for one run.
std::optional<BmpFiles> askAboutBmp(QWidget* parent, const QStringList& paths);

/// Whether a run has left doubtful pictures out, and the person wants them all the same. Enter and Escape leave them
/// out. After a failure nothing is asked. `indexField` names the records; it is empty for files.
bool takesLeftOut(QWidget* parent, const RunReport& report, const QString& indexField, bool replace);
