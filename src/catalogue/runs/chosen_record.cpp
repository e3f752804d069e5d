#include "catalogue/runs/chosen_record.h"

#include "catalogue/table_shape.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

Recordset openChosen(const Database& album, const ChosenRecord& chosen) {
    Recordset records = album.OpenRecordset(allRecordsSql(chosen.table) + u" WHERE 序号 = "_s + chosen.number);
    const int last = records.rowCount() - 1;
    if (last < 0) return records;
    records.moveToRow(std::min(chosen.earlier, last));
    if (chosen.move && chosen.earlier > last) records.MoveNext();
    return records;
}
