#include "catalogue/runs/renumbering.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// False when the watch ends it.
bool numberAnew(Recordset& records, RunWatch& watch) {
    const int count = records.rowCount();
    for (int i = 1; i <= count; ++i) {
        records.Edit();
        records.Fields(u"序号"_s).SetValue(i);
        records.Update();
        records.MoveNext();
        if (!watch.progress({int(qint64(i) * 100 / count), i, count})) return false;
    }
    return true;
}

}  // namespace

RunReport renumberAlbum(const Database& album, const QString& table, const QString& sortField, RunWatch& watch) {
    RunReport report;
    try {
        Transaction transaction(album);
        Recordset records = album.OpenRecordset(u"SELECT * FROM "_s + table + u" ORDER BY ["_s + sortField + u']');
        report.stopped = !numberAnew(records, watch);
        if (report.stopped) return report;
        transaction.commit();
        report.count = records.rowCount();
        report.cameToEnd = true;
    } catch (const std::exception& failure) {
        report.failure = reasonOf(failure);
    }
    return report;
}
