#include "catalogue/renumbering.h"

using namespace Qt::Literals::StringLiterals;

void renumberAlbum(const Database& catalogue, const QString& table, const QString& sortField,
                   const std::function<void(int percent)>& progress) {
    Transaction transaction(catalogue);
    Recordset records = catalogue.OpenRecordset(u"SELECT * FROM "_s + table + u" ORDER BY ["_s + sortField + u']');
    const int count = records.rowCount();
    int told = 0;
    for (int i = 1; i <= count; ++i) {
        records.Edit();
        records.Fields(u"序号"_s).SetValue(i);
        records.Update();
        records.MoveNext();
        const int percent = int(qint64(i) * 100 / count);
        if (progress && percent > told) progress(told = percent);
    }
    transaction.commit();
}
