#pragma once

#include <QString>

/// The moment in which a restored catalogue takes the place of the open one. Windows, threads and connections are gone
/// by then: the program ends its event loop, exchanges the files, and begins anew.

/// Where the copy of a backup waits for it: beside the real catalogue, on the same disk.
QString preparedRestorePath();

/// Ends the event loop of the program, which then calls `carryOutRestore`.
void planRestore();
bool isRestorePlanned();

/// The catalogue that goes stays beside the new one, under a name with the date; returns its path. A kill leaves one of
/// the two in place. Throws `Error` when the files cannot be exchanged, and the catalogue is as it was. Nothing of the
/// program may have it open.
QString carryOutRestore();

/// What a kill has left: a copy that was being prepared goes, with a second name of the catalogue; where that has lost
/// its name already, the prepared one gets it. Nobody else may work on the catalogue. Does not throw.
void resumeRestore();
