#pragma once

#include <QString>

/// Puts the catalogue that the program is shipped with, `fresh/lunq.mdb`, beside the program when there is none.
/// One that is there, or that has left its journal behind, is never touched. Throws where the copy fails.
void placeFirstCatalogue();

/// Where that is; the file need not be there.
QString shippedCatalogue();
