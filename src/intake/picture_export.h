#pragma once

#include "platform/database/recordset.h"

#include <QString>

/// What became of a picture that was to be written to a file.
enum class Exported {
    written,
    nameTaken,  ///< A file of this name exists; it is as it was.
    noPicture   ///< The record has none; no file was made.
};

/// Writes the column 图片 of the current record to a file, byte for byte as it is stored, and forces it to the disk.
/// `name` is the path; it is given ".jpg" at its end unless it has it. The bytes are gathered in a scratch file beside
/// the place, which is then renamed: no reader ever sees half a picture. Throws `Error` when the file cannot be
/// written; nothing is left behind then.
Exported dctb(Recordset& recordset, QString& name);
