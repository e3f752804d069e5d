#pragma once

#include <QFile>

/// The bytes of a file, or `missing` where it cannot be read.
inline QByteArray contentOf(const QString& path, const QByteArray& missing = {}) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : missing;
}

/// Writes a file, over what is there, and returns its path. A test program that cannot write ends.
inline QString writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}
