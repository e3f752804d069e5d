#include "viewer/viewed_picture.h"

#include "catalogue/album_rules.h"
#include "viewer/tags.h"

using namespace Qt::Literals::StringLiterals;

namespace {

FieldValue numberAt(const Recordset& album, int row) {
    return album.valueAt(row, u"序号"_s);
}

bool isAt(const Recordset& album, int row, const QString& number) {
    return row >= 0 && row < album.rowCount() && numberAt(album, row).textOr() == number;
}

/// The first row whose number is not lower.
int lowestRowFrom(const Recordset& album, int number) {
    int first = 0, end = album.rowCount();
    while (first < end) {
        const int middle = first + (end - first) / 2;
        const FieldValue found = numberAt(album, middle);
        if (found.isNull() || found.toInteger() < number)
            first = middle + 1;
        else
            end = middle;
    }
    return first;
}

}  // namespace

ViewedPicture viewedPictureAt(const Recordset& album, int row) {
    return {numberAt(album, row).textOr(), tagOfRecord(album, row),
            sizeFromSpec(album.valueAt(row, u"规格"_s).textOr()).value_or(QSize()), album.storedAt(row, u"图片"_s)};
}

int rowStepsFrom(const Recordset& album, const QString& number, int probableRow, int steps) {
    if (isAt(album, probableRow, number)) return probableRow + steps;
    const int row = lowestRowFrom(album, number.toInt());
    // Without a record of that number the next one is the first step.
    return steps > 0 && !isAt(album, row, number) ? row + steps - 1 : row + steps;
}
