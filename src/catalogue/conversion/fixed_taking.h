#pragma once

#include "catalogue/conversion/old_albums.h"
#include "catalogue/runs/run_report.h"

/// Takes into a new catalogue what an old one has besides its albums: their directory, the selection buttons, the
/// settings, the person's own colours and the backgrounds of the screen panel. The manual, its contents and the other
/// colours stay those of the new catalogue. What the old one lacks stays as it is in the new one. Returns an item for
/// each thing that could not be taken as it is. Throws `Error` when the new catalogue cannot be written.
std::vector<RunItem> takeFixedTables(const Database& old, const Database& target, const std::vector<OldAlbum>& albums);

/// What could not be read at all: an item for each table.
std::vector<RunItem> lostParts(const Database& old);

/// What a report says about a table, or about a record of it.
RunItem noteAbout(const QString& table, const QString& reason);
RunItem noteAbout(const QString& table, const QString& number, const QString& reason);
