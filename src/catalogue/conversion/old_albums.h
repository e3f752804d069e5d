#pragma once

#include "platform/database/records/database.h"

#include <QString>
#include <vector>

/// Which albums a catalogue of another format has. Its tables need not be as ours are.

struct OldAlbum {
    QString table;     ///< In the old catalogue; empty for one that is listed, but not there.
    QString name;      ///< Of its table in the new one: the same, unless that cannot be.
    QString listedAs;  ///< 表名 in the directory.
    QString title;     ///< As the directory has it, or one of our own.
    QString remark;
    bool isListed = false;  ///< In the directory.
};

/// Whether a database of another format is a catalogue of albums: it has a directory of them, or an album.
bool isOldCatalogue(const Database& database);

/// Whether it has a directory that can be read: only then it may have no album at all.
bool hasDirectory(const Database& old);

/// All albums: those of the directory in its order, and then those that it does not list. They have their names.
std::vector<OldAlbum> oldAlbums(const Database& old);

/// Gives them their names: their own, or free ones in place of those that are no table names of ours, or are `taken`.
void nameAlbums(std::vector<OldAlbum>& albums, QStringList taken);

/// The table by its name in either case; empty when there is none.
QString tableNamed(const Database& database, const QString& name);

/// A name of an album table that is none of these.
QString freeAlbumName(const QStringList& taken);
