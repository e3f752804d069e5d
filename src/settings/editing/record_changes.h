#pragma once

#include "platform/database/records/database.h"

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

/// What tells a record apart for people, in one line.
QString recordInWords(const RecordTexts& texts);

/// What keeps changed texts from being stored: a sentence for the number, one for the date; empty where nothing does.
/// A text that is still the one that was `shown` is never refused.
QString numberFault(const Database& catalogue, const QString& album, const RecordTexts& texts,
                    const RecordTexts& shown);
QString dateFault(const RecordTexts& texts, const RecordTexts& shown);

/// Whether another record of the album has the changed number.
bool isNumberTaken(const Database& catalogue, const QString& album, const RecordTexts& texts, const RecordTexts& shown);

/// Stores the texts in the current record, all of them or none; throws `Error`. A column whose text is still the one
/// that was `shown` keeps its value, which may tell more than its text does; not so the codes, where a blank becomes
/// none.
void storeRecord(Recordset& records, const RecordTexts& texts, const RecordTexts& shown);

/// Has the selection button of every code in `codes` offer the album.
struct CodesRegistered {
    int added = 0;         ///< Buttons that did not offer it before.
    QStringList failures;  ///< A sentence for every one that could not be changed.
};
CodesRegistered registerCodes(const Database& catalogue, const QString& codes, const QString& album);
