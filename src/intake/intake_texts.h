#pragma once

#include <QString>
#include <QStringList>

/// Texts of the intake from files, and the number that a file's name stands for.

/// The line that echoes the selected files: their names, shortened in the middle when they are too wide for it, and
/// their count.
QString selectionEcho(const QStringList& names);

/// Hint while files are selected.
QString selectionHint(int count);

/// What is about to be entered, as the question before the run describes it.
QString intakeDescription(const QString& focusedFile, bool replace, int count);
QString intakeQuestion(const QString& album, bool replace, const QString& description);

/// Record count of the album on the page.
QString recordCountLine(const QString& album, int count);

/// Said to who wants to change the album that is only for show.
inline const QString onlyForShow = QStringLiteral("该表只做演示用，不能录入或编辑！");

inline const QString chooseAlbumFirst = QStringLiteral("请先选择要录入的图册，然后才能继续！");
inline const QString onlyOneDatabase = QStringLiteral("只能选择一个数据库！");

/// Whether the name of a file stands for a 序号: it begins with a number that reads the same with and without its
/// commas, so that "1,234.jpg" is taken neither for 1 nor for 1234.
bool standsForNumber(const QString& name);

/// 序号 of the record that a file replaces: the number before the first "." of its name. Throws `Error` that names the
/// file when it is beyond every 序号.
int numberOfFile(const QString& name);

/// Names in one line for a message: the first ones, and how many there are when they are many.
QString someOf(const QStringList& names, qsizetype most = 12, const QString& separator = QStringLiteral("、"));

/// The same for what is to be told one by one, as far as a box has room.
QString nearlyAllOf(const QStringList& names);
