#pragma once

#include "platform/database/records/recordset.h"

#include <QString>

/// The data line of a picture: `序号：3 12.5KB 640 * 480 2003年10月01日 12:30:00 备注`. It is caption, tool tip and
/// accessible name of its cell.
QString tagOfRecord(const Recordset& album, int row);
