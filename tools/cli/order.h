#pragma once

#include <QString>
#include <QStringList>

/// What a person has typed behind `lunq-cli`.
struct Order {
    enum class Task { help, version, check, backup, exportAlbum };
    Task task = Task::help;
    QString catalogue = {};  ///< The album file.
    QString target = {};     ///< The file of the backup, or the folder of the pictures.
    QString album = {};      ///< Table or title of the album to export.
};

/// Throws `Error` that says what is wrong with the words.
Order orderFrom(QStringList words);

/// The album that is meant where none is named: that of this user's folder if there is one, else the one beside the
/// program.
QString usualCatalogue();

QString helpText();
