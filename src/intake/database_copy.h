#pragma once

#include "intake/form_state.h"
#include "intake/mapping_rules.h"

#include <QStringList>
#include <functional>

class DataControl;

/// The copying of chosen records of another database into an album table.

/// What is to be copied, and how.
struct CopyOrder {
    QString indexField;    ///< Source field that tells the records apart.
    FieldMapping mapping;  ///< By target field.
    QStringList keys;      ///< Values of the index field of the records to copy.
    bool replace = false;
    bool fillFields = true;  ///< 自动补足
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
};

/// Copies the records of `order` one by one from `state.sourceTable` of `state.sourceDatabasePath` into the table of
/// `datLr` (`state.targetTable` of `state.targetDatabasePath`); each is durable, and whole, when its step is done. The
/// first failure ends the run. `progress` hears the percentage after each record.
CopyResult sklr(DataControl& datLr, const CopyOrder& order, FormState& state, const std::function<void(int)>& progress);

/// What to say when the run came to its end with records that have no place in the album; empty when there are none.
QString notReplacedText(const CopyResult& result, const QString& indexField);

/// What to say before the closing message: what was not copied and why; empty when all went well.
QString copyReport(const CopyResult& result, const QString& indexField);

/// 序号 for a record that is appended: the one after that of the last record of the set, 1 in an empty set. Throws
/// `Error` when there is none left.
int nextNumber(Recordset& rows);
