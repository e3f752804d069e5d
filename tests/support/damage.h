#pragma once

#include "platform/database/records/database.h"

#include <SQLiteCpp/SQLiteCpp.h>

/// What the engine gives for a statement, behind the program's back; the rows of a file rot in this way.
inline QString behindTheBack(const QString& file, const QString& sql) {
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    SQLite::Statement statement(database, sql.toStdString());
    return statement.executeStep() ? QString::fromStdString(statement.getColumn(0).getString()) : QString();
}

/// Turns a bit in the middle of the picture of a record; returns the id of the value.
inline qint64 rot(const QString& file, const QString& album, int number) {
    const QString id =
        behindTheBack(file, QStringLiteral("SELECT 图片 FROM %1 WHERE 序号 = %2").arg(album, QString::number(number)));
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    SQLite::Statement read(database, "SELECT bytes FROM long_binary WHERE id = " + id.toStdString());
    read.executeStep();
    std::string bytes = read.getColumn(0).getString();
    read.reset();
    bytes[bytes.size() / 2] ^= 1;
    SQLite::Statement write(database, "UPDATE long_binary SET bytes = ? WHERE id = " + id.toStdString());
    write.bind(1, bytes.data(), int(bytes.size()));
    write.exec();
    return id.toLongLong();
}
