#pragma once

#include "platform/database/database.h"

#include <QStringList>

/// The texts of a picture record, as the page 图册编辑 shows them; a Null, and a blank that stands for no text, is
/// empty.
struct RecordTexts {
    QString number;
    QString codes;
    QString size;
    QString pixels;
    QString date;
    QString remark;

    bool operator==(const RecordTexts&) const = default;
};

/// The texts of the current record; what cannot be read is empty.
RecordTexts textsOfRecord(const Recordset& records);

/// Stores the texts in the current record. A value that the catalogue refuses leaves the old one in the record, and
/// the others are stored all the same. A column whose text is still the one that was `shown` keeps its value, which may
/// tell more than its text does; not so the codes, where a blank becomes none.
struct RecordStored {
    bool whole = false;    ///< False when the record as a whole could not be stored, and nothing has changed.
    QStringList failures;  ///< A sentence for everything that was not stored.
};
RecordStored storeRecord(Recordset& records, const RecordTexts& texts, const RecordTexts& shown);

/// Has the selection button of every code in `codes` offer the album.
struct CodesRegistered {
    int added = 0;         ///< Buttons that did not offer it before.
    QStringList failures;  ///< A sentence for every one that could not be changed.
};
CodesRegistered registerCodes(const Database& catalogue, const QString& codes, const QString& album);
