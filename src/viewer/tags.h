#pragma once

#include "platform/database/recordset.h"

#include <QString>

/// The text that a cell carries: `序号：3 12.5KB 640 * 480 2003年10月01日 12:30:00 备注`. It is caption and tool tip,
/// and the number of the picture is read back out of it.

QString tagOfRecord(const Recordset& album);

/// What stands between "序号：" and the first blank; empty for an empty tag.
QString numberInTag(const QString& tag);
