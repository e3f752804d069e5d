#pragma once

#include "platform/database/records/database.h"

#include <QDateTime>
#include <QList>
#include <QString>

/// The backups of a catalogue in a folder. The newest has the name that was chosen for it, older ones have the same
/// with their date: lunq-2026-11-22-1645.mdb. Each knows which catalogue it is of, so those of several can share a
/// folder.

struct BackupFile {
    QString path;
    QString catalogue = {};  ///< Which one it is of; empty where that is not known.
    qint64 number = 0;       ///< Counts the backups of the catalogue, whatever the clock says; 0 when not known.
    QDateTime made = {};
    qint64 size = 0;  ///< In bytes.
    int albums = 0;
    int pictures = 0;
};

inline constexpr int olderBackups = 3;

/// What is written into each copy, among the values that the program keeps for itself.
inline const QString backupNumberName = QStringLiteral("backup.number");
inline const QString backupTimeName = QStringLiteral("backup.made");

/// The name by which a catalogue and its backups know each other; empty where it has none yet.
QString identityOf(const Database& catalogue);
/// Gives it one where it has none. Throws `Error` when it cannot be written.
void giveIdentity(const Database& catalogue);

/// What a file says of itself. Throws `Error` when it is no catalogue. Counting looks at all records, and is left out
/// where `counts` is false.
BackupFile describedBackup(const QString& path, bool counts);

/// The path for the one that has stood under `newest` until now, with a date; one that is free.
QString datedPath(const QString& newest, const QDateTime& made);
/// The names of all files that look like that, the last first. A link is no file of its own.
QStringList datedNames(const QString& newest);
/// All files of such names, by name from the last to the first. Those that are no catalogues are left out, and so is a
/// second name of `newest`.
QList<BackupFile> datedBeside(const QString& newest, bool counts);
/// The same behind `newest`, where that is there.
QList<BackupFile> backupsBeside(const QString& newest, bool counts);

/// Of the older backups of a catalogue those to be removed, the oldest first, so that `keep` stay. What belongs to
/// another one, or to nobody knows which, stays.
QList<BackupFile> surplusBackups(QList<BackupFile> older, const QString& catalogue, int keep = olderBackups);
/// The older backups that can make way for so many bytes, the oldest first: none where they suffice not, or need not.
QList<BackupFile> makingWay(QList<BackupFile> older, const QString& catalogue, qint64 needed, qint64 free);
