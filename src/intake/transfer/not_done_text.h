#pragma once

#include "catalogue/runs/run_report.h"

/// What a transfer did not do, a line for each reason. `heading` has "%1" for the count. Empty when it did all.
QString notDoneText(const RunReport& report, const QString& heading);
