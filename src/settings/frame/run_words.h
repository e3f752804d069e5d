#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

/// How a run is spoken of. Its things are files, or records that are named by a field.
struct RunWords {
    QString deed;           ///< What it does with a picture: "录入".
    QString field = {};     ///< Of records; empty for files.
    bool replaces = false;  ///< It puts its pictures in the place of others.
};

/// How far a run has come in this time: how many of how many, megabytes a second and the time left as far as they are
/// known.
QString progressText(const RunProgress& progress, qint64 elapsedMs);

/// What a run has done, in one line.
QString outcomeText(const RunReport& report, const RunWords& words);

/// Asked at the first failure of a run.
QString failureQuestion(const RunItem& failed, const RunWords& words);

/// Whether everything that a run was given is at its new place, so that its closing message tells all: there is no note
/// about any of it.
bool isAsExpected(const RunReport& report);

/// A line of the list of a report.
struct ReportLine {
    QString name;
    QString outcome;
    QString reason;
};

/// What was not as expected stands before what was.
std::vector<ReportLine> reportLines(const RunReport& report, const RunWords& words);

/// The report as a text: its outcome, and a line for each thing with tabs between the three parts.
QString reportAsText(const RunReport& report, const RunWords& words);

/// The places of those with which a run can be tried once more: what is doubtful would be stored twice.
QList<qsizetype> placesToRetry(const RunReport& report);

/// Puts what failed into the list of failures. Only for the thread of the windows.
void noteFailures(const RunReport& report);
