#pragma once

#include "platform/database/records/recordset.h"

/// The one row of `tcsz`, in which the main window keeps its settings. Both throw where the catalogue refuses.

Recordset settingsRow();
void storeSetting(const QString& column, const FieldValue& value);
