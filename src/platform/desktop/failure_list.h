#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

/// The failures that people were told of in this run of the program, for who looks into them later. They are kept in
/// memory alone.
struct ToldFailure {
    QDateTime when;
    QString
        what;  ///< The message up to its first empty line, with names of files, tables and columns, but no contents.
};

/// Message boxes titled "错误提示" are noted by themselves. One that comes again is kept once, with its last time. Only
/// for the thread of the windows.
void noteFailure(const QString& message);

/// The last ten, the newest first.
std::vector<ToldFailure> lastFailures();

/// What a message tells without the contents of records: of the words that it quotes, those remain that name a file, a
/// table or a column.
QString withoutContents(const QString& message);
