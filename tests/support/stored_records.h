#pragma once

#include "catalogue/mektp.h"

/// The values of 序号 in the order of the table.
inline QStringList numbersOf(const QString& table, const Database& database = mekTp::catalogue) {
    QStringList all;
    for (Recordset rows = database.OpenRecordset(table); !rows.Eof(); rows.MoveNext())
        all << rows.Fields(QStringLiteral("序号")).Value().textOr();
    return all;
}

/// The picture of a record, empty where it has none or does not exist.
inline QByteArray stored(const QString& table, int number, const Database& database = mekTp::catalogue) {
    const QString source = QStringLiteral("SELECT * FROM %1 WHERE 序号 = %2").arg(table).arg(number);
    const Recordset row = database.OpenRecordset(source);
    const FieldValue picture = row.Eof() ? FieldValue() : row.Fields(QStringLiteral("图片")).Value();
    return picture.isNull() ? QByteArray() : picture.toBytes();
}
