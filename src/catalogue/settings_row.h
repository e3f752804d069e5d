#pragma once

#include "platform/database/records/recordset.h"

/// The one row of `tcsz`, in which the windows keep their settings, each in a column of its own. All throw `Error`
/// where the catalogue refuses.

/// Stands on the row.
Recordset settingsRow();
FieldValue setting(const QString& column);
/// Writes nothing where the value is stored already.
void storeSetting(const QString& column, const FieldValue& value);
