#pragma once

#include "catalogue/runs/run_report.h"
#include "platform/database/records/rows_by_number.h"

#include <QStringList>

/// The record that a line of the list means.
struct ChosenRecord {
    QString table;
    QString number;
    int earlier = 0;  ///< How many records of this number, still in the album, the lines above stand for.
    bool move = false;
};

/// A copy takes the only record of a number as often as it is asked to. `Eof` when there is none.
Recordset openChosen(const Database& album, const ChosenRecord& chosen);

/// The rows that all lines of a list mean, found in one pass over the album; 0 where there is none.
std::vector<qint64> chosenRows(const Database& album, const QString& table, const QStringList& numbers, bool move);

/// Said where there is none.
inline const QString recordVanished = QStringLiteral("记录已不在图册中");

/// The report of a run that has taken records out of an album: what is done is counted, also when a failure has ended
/// the run, and the reasons can be parts of sentences.
RunReport reportOfTransfer(RunReport report);
