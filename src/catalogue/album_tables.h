#pragma once

#include "platform/database/records/database.h"

/// Which tables of a catalogue hold pictures. Their columns decide, not their names: a person may have named an album
/// table.

/// Whether a table is an album: it has the columns of one and a name of four characters, and is none of the fixed
/// tables. False also for a table that does not exist or cannot be read.
bool isAlbumTable(const Database& catalogue, const QString& table);

/// All albums of a catalogue, in the order of their creation.
QStringList albumTables(const Database& catalogue);

/// The albums that pictures may be added to: all but the one that is only for show.
QStringList changeableAlbums(const Database& catalogue);

/// Said to who wants to change that one.
inline const QString onlyForShow = QStringLiteral("该表只做演示用，不能录入或编辑！");

/// Whether two paths, through links or not, lead to one file.
bool isSameFile(const QString& one, const QString& other);
