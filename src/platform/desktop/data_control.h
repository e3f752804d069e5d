#pragma once

#include "platform/database/records/database.h"

#include <QFrame>
#include <QLabel>
#include <functional>

/// A data control: a recordset on a file (path and source text are its properties), with buttons that move through it.
/// Grids and fields follow it through its signals.
class DataControl : public QFrame {
    Q_OBJECT

  public:
    explicit DataControl(QWidget* parent = nullptr);

    void setCaption(const QString& caption);

    const QString& DatabaseName() const { return databaseName_; }
    void setDatabaseName(const QString& path) { databaseName_ = path; }
    const QString& RecordSource() const { return recordSource_; }
    void setRecordSource(const QString& source) { recordSource_ = source; }

    /// Uses a database that is open already, instead of opening the file again.
    void useDatabase(const Database& database);

    /// Opens the source anew and goes to its first record. On failure the control has no records, and it throws.
    void Refresh();

    /// May be Nothing before the first successful `Refresh`.
    ::Recordset& Recordset() { return recordset_; }
    /// Number of records, 0 when there is no recordset.
    int total() const;

    /// Moves and sends `repositioned`.
    void moveToRow(int row);
    /// Moves because the person wants it, unless `mayGoTo` refuses. False when it did, or there is no such record.
    bool goTo(int row);
    /// Asked before the person goes to a record, by the grid or the buttons; also before going to the current record,
    /// which reads it anew. Not set: always.
    std::function<bool(int row)> mayGoTo;
    /// Finds as `Recordset::FindFirst` does and sends `repositioned`; true when found.
    bool findFirst(const QString& criteria);

  Q_SIGNALS:
    void refreshed();
    /// Another record is the current one (also after `refreshed`, when there is one).
    void repositioned();

  private:
    void step(int by);
    /// From where a record has been deleted, or from behind the last one, to the neighbour.
    void leaveGap(bool forwards);
    QString databaseName_;
    QString recordSource_;
    Database given_;   ///< By `useDatabase`; closed where the control opens its file itself.
    Database opened_;  ///< The database of the present records.
    ::Recordset recordset_;
    QLabel* caption_;  ///< Text between the buttons.
};
