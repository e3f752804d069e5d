#pragma once

#include "platform/database/records/recordset.h"
#include "platform/desktop/growing.h"

#include <QObject>
#include <QRect>
#include <functional>

class DataControl;
class Grid;
class TabControl;

/// The grid msgBm and the records in it, through which datBj moves. The page in front lists there what it works on.
class RecordGrid : public QObject {
    Q_OBJECT

  public:
    explicit RecordGrid(TabControl* sstFz);

    /// Lists records of the catalogue, or of another database; the first one becomes the current one. Throws `Error`
    /// when they cannot be read; there are none then.
    void list(const QString& source);
    void list(const QString& source, const QString& database);
    /// All records of an album, in the order of a column.
    void listAlbum(const QString& table, const QString& orderColumn);
    /// The same records once more, as they are by now.
    void listAgain();
    /// Empties the grid until records are listed again.
    void clear();

    int total() const;
    /// Stands on the current record. Nothing before the first listing.
    Recordset& records() const;
    void moveToRow(int row);
    /// Makes the first record that meets the criteria the current one; false when there is none.
    bool findFirst(const QString& criteria);

    /// The grid reads no records until `release`.
    void hold();
    void release();

    void setEnabled(bool on);
    void setHeadings(const QString& headings);
    void setGrowth(const Growth& growth);
    /// The columns get the widths that a person has given them on that page, and the next ones are remembered.
    void rememberWidths(int page);
    /// In twips of the tab control, or of a group.
    void putOn(int page, const QRect& place);
    void putIn(QWidget* group, const QRect& place);
    void raise();
    /// datBj, the buttons that lead from record to record.
    void putMoverIn(QWidget* group, const QRect& place, const QString& caption);
    void setMoverEnabled(bool on);

    /// Asked before the person goes to a record, perhaps to the current one again. Not set: always.
    std::function<bool(int row)> mayGoTo;

  Q_SIGNALS:
    void rowSelected();  ///< The person has made a row the current record.
    void rowClicked();   ///< A row was clicked, or Enter pressed on it.
    void listed();       ///< Records have been listed, or listed again.
    void moved();        ///< Another record is the current one.

  private:
    QString widthsName_;  ///< Under which widths of columns are remembered.
    TabControl* sstFz_;
    DataControl* datBj;  ///< The records, and the buttons that move through them.
    Grid* msgBm;         ///< A line for each record.
};
