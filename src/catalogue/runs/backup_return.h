#pragma once

#include "catalogue/runs/record_copy.h"

/// What comes back out of a backup: the whole catalogue, or single albums and pictures.

/// Pictures of one album of a backup.
struct Return {
    QString table;
    QStringList numbers;  ///< 序号, in the order of the album; a number twice means both records.
};

/// All pictures of an album that have a number.
Return wholeAlbum(const Database& backup, const QString& table);

/// Takes pictures out of a backup into the catalogue. They go to the album of the same title, which is made again where
/// it is gone, under a name of its own if another album has that by now. A picture that the album has already is left
/// out; a number that is taken becomes the album's next one. The report names the records by their numbers, one album
/// after the other.
RunReport takeBack(const Database& catalogue, const QString& backup, const QList<Return>& returns, RunWatch& watch);

/// Copies a backup to `prepared`, on the disk, and proves the copy. A run that fails or is stopped leaves nothing
/// there. The report counts the pictures that have a fingerprint: by that they are proved.
RunReport prepareRestore(const QString& backup, const QString& prepared, RunWatch& watch);
