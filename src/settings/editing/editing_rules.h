#pragma once

#include <QString>
#include <optional>

/// Rules of the page 图册编辑: the SQL texts of its listings and the texts of its labels and questions. An album line
/// is the chooser's: table name, blank, title.

// Listings of the album's records ------------------------------------------------------------------------------------

/// What the option buttons optBs show: 0 all records, 1 those without a code, 2 those with one.
struct RecordFilter {
    QString where;  ///< With a blank in front; empty for all records.
    QString name;   ///< As lblZs tells it.
};
RecordFilter recordFilter(int option);

QString filteredRecords(const QString& album, const RecordFilter& filter);
/// The records that carry a selection code; "v" stands for all of them.
QString recordsWithCode(const QString& album, const QString& code);

/// The column of option button optP1: 0 序号, 1 日期, 2 编号.
QString sortColumn(int option);

// The line lblZs -----------------------------------------------------------------------------------------------------

QString filterText(const QString& albumLine, const RecordFilter& filter, int count);
QString codeFilterText(const QString& albumLine, const QString& code, int count);

// Typed values -------------------------------------------------------------------------------------------------------

/// The number of a record that a text is: a whole one from 1 on. Nothing when it is none.
std::optional<qint32> recordNumber(const QString& typed);

// Questions ----------------------------------------------------------------------------------------------------------

/// `sortCaption` is that of the chosen option. With none chosen, `actingOrder` tells the order that will act.
QString renumberingQuestion(const QString& albumLine, const QString& sortCaption, const QString& actingOrder = {});
/// `record` tells what goes.
QString recordDeletionQuestion(const QString& number, const QString& record);
