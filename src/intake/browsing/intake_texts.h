#pragma once

#include <QString>
#include <QStringList>

/// Texts of the pages that bring pictures in and out.

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

inline const QString chooseAlbumFirst = QStringLiteral("请先选择要录入的图册，然后才能继续！");
inline const QString onlyOneDatabase = QStringLiteral("只能选择一个数据库！");
