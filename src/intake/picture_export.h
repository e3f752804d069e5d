#pragma once

#include "platform/database/recordset.h"

#include <QString>

/// What became of a picture that was to be written to a file.
enum class Exported {
    written,
    nameTaken,  ///< A file of this name exists; it is as it was.
    noPicture   ///< The record has none; no file was made.
};

/// Whether a file is to be on the disk when it has its name, or whether the caller sees to that for many at once.
enum class Sync { now, later };

/// Writes the column 图片 of the current record to a file, byte for byte as it is stored.
/// `name` is the path; it is given ".jpg" at its end unless it has it. The bytes are gathered in a scratch file beside
/// the place, which is then renamed: no reader ever sees half a picture. Throws `Error` when the file cannot be
/// written; nothing is left behind then.
Exported dctb(Recordset& recordset, QString& name, Sync sync = Sync::now);
