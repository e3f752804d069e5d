#pragma once

#include "catalogue_maker/rows.h"

/// The chapters of the shipped catalogue. Each fills tables that exist and are empty.

void fillDemonstrationAlbum(const Database& database, Workshop& workshop);  ///< tcbm, tc00
void fillSelectionButtons(const Database& database, Workshop& workshop);    ///< tcan
void fillColourSchemes(const Database& database);                           ///< tcys
void fillSettings(const Database& database, Workshop& workshop);            ///< tcsz, tctb
void fillHelpContents(const Database& database);                            ///< tcbz

/// The real main window in the colours of each scheme, for the rows of `tcys`. `path` is the database's file, which has
/// to be complete but for these pictures. They are written to a folder, too, each as the number of its scheme.
void fillWindowPreviews(const Database& database, const QString& path, const QString& folder, Workshop& workshop);
