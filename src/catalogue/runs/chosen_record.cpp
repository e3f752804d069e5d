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

std::vector<qint64> chosenRows(const Database& album, const QString& table, const QStringList& numbers, bool move) {
    std::vector<qint32> wanted;
    for (const QString& number : numbers) wanted.push_back(number.toInt());
    const RowsByNumber all(album, table, u"序号"_s, wanted);
    QHash<qint32, std::size_t> seen;
    std::vector<qint64> rows;
    for (const qint32 number : wanted) {
        const std::vector<qint64> ofNumber = all.of(number);
        const std::size_t earlier = seen[number]++;
        const bool isThere = earlier < ofNumber.size() || (!move && !ofNumber.empty());
        rows.push_back(isThere ? ofNumber[std::min(earlier, ofNumber.size() - 1)] : 0);
    }
    return rows;
}

RunReport reportOfTransfer(RunReport report) {
    report.count = int(report.placesOf({Fate::taken}).size());
    for (RunItem& item : report.items) item.reason = withoutStop(item.reason);
    return report;
}
