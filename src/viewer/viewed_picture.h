#pragma once

#include "platform/database/records/recordset.h"

#include <QSize>

/// What the view of a picture alone needs of its record.
struct ViewedPicture {
    QString number;       ///< 序号; empty for no record.
    QString data;         ///< Its data line (see `tagOfRecord`).
    QSize pixels;         ///< Empty where 规格 has no size.
    StoredValue picture;  ///< Null where the record has none.
};

/// Throws where the record is gone.
ViewedPicture viewedPictureAt(const Recordset& album, int row);

/// The row that is so many records behind that number, or with less than 0 before it; perhaps outside the album, which
/// is sorted by 序号. The number itself need not be in it. `probableRow` is where its record was.
int rowStepsFrom(const Recordset& album, const QString& number, int probableRow, int steps);
