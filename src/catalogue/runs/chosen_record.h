#pragma once

#include "platform/database/records/database.h"

/// The record that a line of the list means.
struct ChosenRecord {
    QString table;
    QString number;
    int earlier = 0;  ///< How many records of this number, still in the album, the lines above stand for.
    bool move = false;
};

/// A copy takes the only record of a number as often as it is asked to. `Eof` when there is none.
Recordset openChosen(const Database& album, const ChosenRecord& chosen);

/// Said where there is none.
inline const QString recordVanished = QStringLiteral("记录已不在图册中");
