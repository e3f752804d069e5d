#pragma once

#include "catalogue_maker/rows.h"

/// The chapters of the shipped catalogue. Each fills tables that exist and are empty.

void fillDemonstrationAlbum(const Database& database, Workshop& workshop);  ///< tcbm, tc00
void fillSelectionButtons(const Database& database, Workshop& workshop);    ///< tcan
void fillColourSchemes(const Database& database, Workshop& workshop);       ///< tcys
void fillSettings(const Database& database, Workshop& workshop);            ///< tcsz, tctb
void fillHelpContents(const Database& database);                            ///< tcbz

/// The manual as rich text. Its headings are what the help window looks for.
QString manualText();
