#pragma once

#include "platform/database/records/recordset.h"
#include "viewer/filters.h"

/// Title under which the preset album `tc00` is shown, also while no album is open.
inline const QString presetTitle = QStringLiteral("演示");

/// The open album, and which of its pictures are shown: those that a button, a day and a number choose, sorted by 序号.
/// Only reads the catalogue.
class Selection {
  public:
    /// Opens an album with all its pictures; it becomes the current table. Throws where the table cannot be read: then
    /// the selection is as before.
    void open(const QString& table, const QString& title);
    /// Leaves the album. A condition on the day stays for the next one.
    void close();
    bool isOpen() const { return !records_.isNothing(); }

    /// Selects all pictures with the code of a button, whatever the conditions. Throws where they cannot be read.
    void chooseCode(const QString& code);
    /// Takes effect with the next `select`.
    void setDay(const std::optional<DayCondition>& day) { conditions_.day = day; }
    /// Selects by code, day and this condition on the number. If the engine refuses the statement, the present
    /// selection stays.
    void select(const QString& number, int picturesPerPage);

    Recordset& records() { return records_; }
    const Recordset& records() const { return records_; }
    const QString& title() const { return title_; }  ///< Of the album.
    int count() const { return count_; }             ///< Of pictures.
    const QString& line() const { return line_; }    ///< First half of the page line.

  private:
    void countAll();

    Recordset records_;  ///< Nothing while no album is open.
    QString title_;
    Conditions conditions_;
    bool isNarrowed_ = false;  ///< A day or a number has chosen the pictures.
    int count_ = 0;
    QString line_;
};
