#pragma once

#include "catalogue/runs/field_mapping.h"
#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

/// The copying of chosen records of another database into an album table.

/// A record of the source: that with the key behind `earlier` others with the same one.
struct SourceRecord {
    QString key;
    int earlier = 0;
    bool operator==(const SourceRecord&) const = default;
};

/// The records with these keys. A key that comes again means the next record that has it.
QList<SourceRecord> recordsOfKeys(const QStringList& keys);

/// What is to be copied, and how.
struct CopyOrder {
    QString sourcePath;  ///< The database file.
    QString sourceTable;
    QString indexField;                ///< Source field that tells the records apart.
    FieldMapping mapping = {};         ///< By target field.
    QList<SourceRecord> records = {};  ///< Told by the index field.
    bool replace = false;
    bool fillFields = true;      ///< 自动补足
    bool takesDoubtful = false;  ///< Values that are no whole picture are copied like others, and not left out.
    bool takesSpoilt = false;    ///< So are those that are not what their fingerprint says.
    bool keepNumbers = false;    ///< A record that is appended keeps its 序号 where the album has not got it.
    bool skipKnown = false;  ///< Records whose picture the album had before the run are left out, if none is replaced.
};

/// Copies the records of `order` into an album table. They go in groups, each of which is one change: at any time whole
/// records alone are there, and what the report counts is on the disk. The first failure ends the run, unless the watch
/// passes over failures. A value that is no whole picture is no failure: its record is left out, and no number is spent
/// on it. A record that is replaced keeps its picture where the source has none to give. The report names the records
/// by their keys; its places are those in `records`.
RunReport sklr(const Database& album, const QString& table, const CopyOrder& order, RunWatch& watch);
