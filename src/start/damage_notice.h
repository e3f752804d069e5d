#pragma once

#include <QDateTime>
#include <QString>

/// What helps when the catalogue is damaged.
struct Rescue {
    QString catalogue;  ///< The damaged file.
    QString backup;     ///< Where its copy should be; empty when no place was chosen.
    QDateTime copied;   ///< Of the copy there; invalid when there is none.
    QString script;     ///< Brings the copy back; empty when it is missing.
    QString journal;    ///< Left beside the damaged file by a change that did not end; empty when there is none.
};

/// Whether the catalogue is a file of the kind that is looked through for damage. One that cannot be opened is, to tell
/// why; but not a database of another format, whatever keeps that from being opened.
bool isCatalogueCheckable();

/// Looks where the settings say, or the script beside the program when the settings cannot be read any more.
Rescue rescueOfCatalogue();

/// Tells of the damage, and what to do and to leave now.
QString damageText(const Rescue& rescue);
