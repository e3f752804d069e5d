#pragma once

#include <QString>

/// The making of a new catalogue with one album, for pictures that were to go into a Jet database: that cannot be
/// written.

/// What is said about such a file, and the new one offered in its place.
QString jetTargetText(const QString& jetFile, const QString& target, const QString& table);

/// A path beside the file that nothing has yet.
QString newTargetPath(const QString& jetFile);

/// The name of its album: tables of a target are chosen by their names in the open catalogue.
QString newTargetTable(const QString& sourceTable);

/// Makes the file with one empty album. Throws `Error`, and leaves nothing behind, when it cannot.
void makeTarget(const QString& path, const QString& table, const QString& title);
