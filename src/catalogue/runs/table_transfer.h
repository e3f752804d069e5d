#pragma once

#include "catalogue/runs/field_mapping.h"
#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

/// The taking of chosen records out of an album into a table of a catalogue. A record is named by its 序号.

/// Where records are to go. The pairs serve the other way round than at the intake: `target` names the column that is
/// read and `source` the one that is written. The first pair, that of 序号, is left out.
struct TransferTarget {
    Database database;
    QString table;
    FieldMapping mapping;
};

/// Opens a file as a target. Throws `Error` that says why when nothing can be written to it.
Database openTarget(const QString& path);

/// Why a table of an open target can take no pictures of an album; empty when it can.
QString objectionToTable(const Database& album, const Database& target, const QString& table);

/// Appends the records of these numbers to the target, with the numbers behind its highest one. They go in groups, each
/// of which is one change of the target: it is stored, and with `move` deleted from the album, whole or not at all. A
/// record that fails does not keep the others from it. Throws `Error` when the target can take none; nothing has
/// changed then.
RunReport transferToTable(const Database& album, const QString& table, const QStringList& numbers,
                          const TransferTarget& target, bool move, RunWatch& watch);
