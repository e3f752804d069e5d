#pragma once

#include "platform/database/records/database.h"

#include <QFrame>
#include <QLabel>
#include <functional>

/// A data control: a recordset on a file, told by path and source text, with buttons that move through it. Grids and
/// fields follow it through its signals.
class DataControl : public QFrame {
    Q_OBJECT

  public:
    explicit DataControl(QWidget* parent = nullptr);

    void setCaption(const QString& caption);

    const QString& DatabaseName() const { return databaseName_; }
    void setDatabaseName(const QString& path) { databaseName_ = path; }
    const QString& RecordSource() const { return recordSource_; }
    void setRecordSource(const QString& source) { recordSource_ = source; }

    /// A handle that is open already is used instead of opening its file again.
    void useDatabase(const Database& database);

    /// Opens the source anew and stands on its first record. On failure the control has no records, and it throws.
    void Refresh();

    /// May be Nothing before the first successful `Refresh`.
    ::Recordset& Recordset() { return recordset_; }
    /// Number of records, 0 when there is no recordset.
    int total() const;

    /// Moves and tells everybody.
    void moveToRow(int row);
    /// Moves for the person, unless `mayGoTo` keeps him where he is. False when it did, or there is no such record.
    bool goTo(int row);
    /// Asked before the person goes to a record, by the grid or the buttons; also to the one that is current, which
    /// reads it anew. Not set: always.
    std::function<bool(int row)> mayGoTo;
    /// Finds as `Recordset::FindFirst` does and tells everybody; true when found.
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
    Database given_;
    Database opened_;
    ::Recordset recordset_;
    QLabel* caption_;
};
