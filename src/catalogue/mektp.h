#pragma once

#include "platform/database/records/database.h"

#include <QString>

/// What all windows share: the open catalogue and the album in hand.
namespace mekTp {

/// The one open database. Closed until `openCatalogue` has found the file.
extern Database catalogue;

/// Table of the open album, `tc00` when none is open.
extern QString currentTable;

/// Twips by which the desktop's title bars are higher than the designs assume. The heights in the layout rules include
/// the title bar: the rules take this off the room for controls, and half of it off vertical positions. It is 0 on
/// every desktop in use today. The windows share one value, so that their rules cannot differ.
extern int titleBarExtra;

/// Path of the catalogue: `lunq.mdb` in the program's folder, unless another file was chosen for this time.
QString cataloguePath();
/// Chooses another file, until the program ends. An empty path goes back to the program's own.
void setCataloguePath(const QString& path);

/// Path of the lock file by which the program keeps the catalogue to itself. It is beside the real `lunq.mdb`, even
/// when the one in the program's folder is a link.
QString lockPath();

/// Opens the catalogue, and raises an older one to the present version where it can be written;
/// throws `Error` when it cannot open it. The program keeps the file to itself by then (see `SingleCopy`).
void openCatalogue();

}  // namespace mekTp
