#pragma once

#include <QString>
#include <QStringList>
#include <functional>

/// The picture files of a folder and of those below it. Nothing here throws.

/// Whether a file is of a format that can be read, by its first bytes and not by its name. That the rest is sound is
/// not looked for. The open album is none, and is not opened.
bool isPictureByContent(const QString& path);

/// Which files are listed.
enum class ListedFiles { byEnding, byContent };

/// Names that end like a JPEG or BMP.
inline const QString picturePattern = QStringLiteral("*.jpg;*.bmp");

/// The paths of the pictures in a folder and below it, from that folder on, in natural order. Links are followed, but
/// to no folder twice. Hidden folders, and those that cannot be read, are passed over. `goesOn` hears the count after
/// each folder and many a file; where it says false the list is left empty.
QStringList picturesBelow(const QString& folder, ListedFiles which, const std::function<bool(qsizetype count)>& goesOn);
