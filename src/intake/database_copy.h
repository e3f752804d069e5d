#pragma once

#include "intake/form_state.h"
#include "intake/mapping_rules.h"

#include <QStringList>
#include <functional>

class DataControl;

/// The copying of chosen records of another database into an album table.

/// A record of the source: that with the key behind `earlier` others with the same one.
struct SourceRecord {
    QString key;
    int earlier = 0;
    bool operator==(const SourceRecord&) const = default;
};

/// The records with these keys. A key that comes again stands for the next record that has it.
QList<SourceRecord> recordsOfKeys(const QStringList& keys);
QStringList keysOf(const QList<SourceRecord>& records);

/// What is to be copied, and how.
struct CopyOrder {
    QString indexField;           ///< Source field that tells the records apart.
    FieldMapping mapping;         ///< By target field.
    QList<SourceRecord> records;  ///< Told by the index field.
    bool replace = false;
    bool fillFields = true;      ///< 自动补足
    bool takesDoubtful = false;  ///< Values that are no whole picture are copied like others, and not left out.
};

/// What became of it.
struct CopyResult {
    int count = 0;              ///< Records copied, 0 unless the run came to its end.
    QStringList copied = {};    ///< Keys of the records that are in the album.
    QStringList notFound = {};  ///< Keys that no record of the album has; nothing was replaced.
    QStringList kept = {};      ///< Keys of replaced records whose picture stayed, since the source had none to give.
    QString failedKey = {};     ///< The record at which the run ended early; empty when it had not begun.
    QString failure = {};       ///< Why; empty when the run was not ended by a failure.
    QStringList left = {};      ///< Records that it did not reach.

    QList<SourceRecord> leftOut = {};
    QStringList noPictures = {};  ///< Keys of those left out because what they have is neither BMP nor JPEG.
    QStringList truncated = {};   ///< Keys of those left out because their picture ends early.

    /// Adds what became of the records that were left out before. They are counted as far as the second run came.
    void add(const CopyResult& second);
};

/// Copies the records of `order` one by one from `state.sourceTable` of `state.sourceDatabasePath` into the table of
/// `datLr` (`state.targetTable` of `state.targetDatabasePath`); each is durable, and whole, when its step is done. The
/// first failure ends the run. A value that is no whole picture is no failure: its record is left out, and no number is
/// spent on it. `progress` hears the percentage after each record.
CopyResult sklr(DataControl& datLr, const CopyOrder& order, FormState& state, const std::function<void(int)>& progress);

/// What to say when the run came to its end with records that have no place in the album; empty when there are none.
QString notReplacedText(const CopyResult& result, const QString& indexField);

/// What to say before the closing message: what was not copied and why; empty when all went well.
QString copyReport(const CopyResult& result, const QString& indexField);
