#pragma once

#include "platform/database/records/database.h"

#include <QString>
#include <optional>

/// The album directory and what changes it. Every change is complete or not made at all; failures throw `Error`.

/// A row of `tcbm`; a Null of a text is empty.
struct Album {
    QString number;  ///< 序号 as text: several albums may bear the same.
    QString table;
    QString title;
    QString remark;
};

/// All albums in the order of the directory.
std::vector<Album> allAlbums(const Database& catalogue);
std::optional<Album> findAlbum(const Database& catalogue, const QString& table);
/// The first album of that title: the one that is opened by it.
std::optional<Album> findTitle(const Database& catalogue, const QString& title);

/// What is proposed for a new album. The number is the highest in use as it stands, 1 in an empty directory.
Album proposedAlbum(const Database& catalogue);

/// What is wrong with the name of a new album table, as a sentence for the user; empty when nothing is. Everything else
/// in the catalogue counts on names of four characters that begin with "tc".
QString tableNameFault(const QString& table);

/// Whether an album title is short enough for menus and lists, and the sentence for one that is not.
bool titleFits(const QString& title);
inline const QString titleTooLong = QStringLiteral("标题的汉字数不应超过8个（英文不应超过16个）。");
/// The same with how long it is.
QString titleFault(const QString& title);

QString titleInUse(const Album& owner);

/// What is lost with an album, for the question before: title, table, and as far as they can be counted its pictures
/// and their size.
QString albumContents(const Database& catalogue, const Album& album);

/// Makes the table of an album and its directory row.
void addAlbum(const Database& catalogue, const Album& album);
/// The same, and has the button for all pictures offer it. There must be that button.
void createAlbum(const Database& catalogue, const Album& album);
/// Takes a table and its directory row away, into the bin; the buttons go on naming it.
void undoAlbum(const Database& catalogue, const QString& table);
/// The same, and the button for all pictures, if there is one, no longer offers it.
void deleteAlbum(const Database& catalogue, const QString& table);

void storeRemark(const Database& catalogue, const QString& table, const QString& remark);
