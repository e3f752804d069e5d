#pragma once

#include <QDate>
#include <QString>

/// The reminder that the last good backup is long ago. It is off until a person chooses a number of days.

int reminderDays();  ///< 0: off.
void setReminderDays(int days);

/// A day that has not come yet is as good as none: the clock was wrong then, or is now.
bool isBackupDue(const QDate& last, const QDate& today, int days);
QString reminderText(const QDate& last, const QDate& today);

/// The day of the last copy that was good, invalid where there was none. A failed one does not change it. What the
/// script beside the program tells is kept in the catalogue for that.
QDate lastGoodBackup();

/// Says that a backup is due, if it is, without waiting for an answer.
void remindOfBackup();
