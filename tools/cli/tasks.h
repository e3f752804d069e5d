#pragma once

#include <QString>
#include <QTextStream>

/// How the program ends, for scripts.
enum class Exit { good = 0, bad = 1, wrongWords = 2, notDone = 3 };

/// The tasks of `lunq-cli`. Each writes what it has found or done, and works while the album is open in its window.
/// They throw `Error` where the task could not be carried out.

/// Looks through the whole file for damage, and compares every picture with the fingerprint that is kept of it.
Exit checkCatalogue(const QString& catalogue, QTextStream& out);

/// Makes a copy of the catalogue of one moment.
Exit backUp(const QString& catalogue, const QString& copy, QTextStream& out);

/// Writes the pictures of an album, named by its table or title, to files of a folder, which is made if it is missing.
Exit exportAlbum(const QString& catalogue, const QString& album, const QString& folder, QTextStream& out);
