#pragma once

#include "platform/database/records/field_value.h"

#include <QString>

/// Names of picture files: the 序号 that a name means, and the names under which pictures leave an album.

/// Whether the name of a file means a 序号: it begins with a number that reads the same with and without its
/// commas, so that "1,234.jpg" is taken neither for 1 nor for 1234.
bool standsForNumber(const QString& name);

/// 序号 of the record that a file replaces: the number before the first "." of its name. Throws `Error` that names the
/// file when it is beyond every 序号.
int numberOfFile(const QString& name);

/// Name of the file that a picture gets by default: 编号 ("0" where there are none but blanks), 序号 and ".jpg". A sign
/// that would lead to another folder becomes "_".
QString defaultPictureName(const FieldValue& code, int number);

/// A name as the box for it completes it: it always ends in ".jpg". An empty one stays empty.
QString completedPictureName(const QString& name);

/// Why a complete name can be no file in the chosen folder; empty when it does.
QString objectionToFileName(const QString& name);

/// `name` with ".jpg" at its end, unless its last four characters are that.
QString withJpgEnding(const QString& name);
