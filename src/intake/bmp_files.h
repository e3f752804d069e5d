#pragma once

#include <QByteArray>
#include <QStringList>
#include <optional>

class QWidget;

/// Files that end in "bmp" go into the catalogue as JPEG. What becomes of the files themselves is asked once a run.

enum class BmpFiles {
    toJpeg,  ///< The file on the disk becomes a JPEG, too; its name stays.
    keep     ///< It is turned into a JPEG in memory and stays as it is.
};

/// Whether taking this file in can turn it into a JPEG on the disk: it ends in "bmp", in small letters, and can be
/// written over. Does not throw.
bool canBecomeJpeg(const QString& path);

/// Asks what becomes of those of the files that can become JPEG; without any nothing is asked. Nothing: do not take
/// them in. The answer holds for one run.
std::optional<BmpFiles> askAboutBmp(QWidget* parent, const QStringList& paths);

/// Turns a file that ends in "bmp" into a JPEG: on the disk, or in memory when it is to be kept or cannot be written
/// over. Returns the bytes in memory; none when the file itself is what has to be stored, as every other file is.
/// Throws `Error` when the file is no picture.
QByteArray convertBmp(const QString& path, BmpFiles bmp);
