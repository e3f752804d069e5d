#pragma once

#include "catalogue/runs/run_report.h"

/// What the page 图片录入 says of a run when it is over.

/// What is said when a run came to its end with files, or records, that have no place in the album; empty when there
/// are none.
QString filesNotReplacedText(const RunReport& report);
QString notReplacedText(const RunReport& report, const QString& indexField);

/// The question whether doubtful pictures that were left out are to be taken in all the same: how many there are,
/// which, and what their fault is. `indexField` is empty for files.
QString leftOutQuestion(const RunReport& report, const QString& indexField, bool replace);
