#pragma once

#include "catalogue/runs/readable_rows.h"
#include "platform/database/records/reading_notes.h"

#include <optional>

class QWidget;

/// What is asked and said about a source database when it is opened.

/// Shows the texts both ways and asks for the code page, 936 or 1252; nothing when it is not in doubt. `promise`: what
/// is said at the end about the next time.
std::optional<int> askCodePage(QWidget* parent, const ReadingNotes& notes, const QString& promise = {});

/// Says what of a database, or of a table, is damaged, if anything is.
void sayDamage(QWidget* parent, const ReadingNotes& notes);
void sayDamage(QWidget* parent, const QString& table, const ReadableRows& rows, int listed);
