#pragma once

#include "platform/database/records/recordset.h"

#include <QStringList>

/// What the running program has stored, read by its own means.

/// Fingerprint of the picture of the current record, empty where it has none.
QString pictureOf(const Recordset& record);
/// The pictures of an album in the order of 序号.
QStringList picturesOf(const QString& album);
/// Fingerprints of the column 序号, row by row: as it is, and as renumbering by a column is to make it.
struct Numbering {
    QString before, after;
};
Numbering numberingBy(const QString& album, const QString& column);

/// The pictures in the bin.
QStringList picturesInBin();
/// Number and source of the editor's steps, in the words of the `Ledger`.
QString stepsWithSource();
