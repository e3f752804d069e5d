#pragma once

#include "platform/database/database.h"

#include <QString>

/// What all windows share: the open catalogue and the album in hand.
namespace mekTp {

/// The one open database, `lunq.mdb` beside the program. Closed until `openCatalogue` has found the file.
extern Database catalogue;

/// Table of the open album, `tc00` when none is open.
extern QString currentTable;

/// Twips by which the desktop's title bar is higher than usual; half of it is taken off vertical positions. 0 on every
/// desktop in use today; it stays a variable because the layout rules are written with it.
extern int titleBarExtra;

/// Path of `lunq.mdb`.
QString cataloguePath();

/// Whether a path, through links or not, leads to the program's catalogue.
bool isCatalogue(const QString& path);

/// Path of the file by which the program keeps the catalogue to itself: beside the real `lunq.mdb`, also where that in
/// the program's folder is a link.
QString lockPath();

/// Opens the catalogue in the program's folder, and raises an older one to the present version where it can be written;
/// throws `Error` when it cannot open it. The program keeps the file to itself by then (see `SingleCopy`).
void openCatalogue();

}  // namespace mekTp
