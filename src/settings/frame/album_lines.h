#pragma once

#include "platform/database/records/database.h"

#include <QComboBox>

/// The lines of the album choosers cboBm and cboFc: table name, blank, title.

/// Fills a chooser with all albums and chooses none. Throws `Error` when the directory cannot be read.
void fillAlbumLines(QComboBox& chooser, const Database& catalogue);

/// Adds the line of a new album at the end; what is chosen stays chosen. A line of the same name that has stayed behind
/// an album deleted since goes: it would stand for the new one.
void addAlbumLine(QComboBox& chooser, const QString& line);

/// Adds the lines of the albums that have none.
void addMissingAlbumLines(QComboBox& chooser, const Database& catalogue);

/// Takes the line of an album away. When it was the chosen one, none is chosen afterwards.
void removeAlbumLine(QComboBox& chooser, const QString& table);

/// The table of the line that a text, chosen or typed, stands for; empty when there is none.
QString offeredTable(const QComboBox& chooser, const QString& text);

/// Chooses the line of an album, without telling anybody; none where there is no such line.
void chooseAlbumLine(QComboBox& chooser, const QString& table);

/// A long line begins at the left edge of the box.
void showBeginning(QComboBox& chooser);
