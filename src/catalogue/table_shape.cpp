#include "catalogue/table_shape.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

TableShape shapeOf(const Database& database, const QString& table) {
    const Recordset rows = database.OpenRecordset(noRecordsSql(table));
    TableShape shape;
    for (int i = 0; i < rows.FieldCount(); ++i) {
        const Field field = rows.Fields(i);
        shape.push_back({field.Name(), field.Type(), field.Size()});
    }
    return shape;
}

std::optional<FieldShape> fieldNamed(const TableShape& shape, const QString& name) {
    const auto found = std::find_if(shape.begin(), shape.end(), [&](const FieldShape& field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == shape.end()) return std::nullopt;
    return *found;
}

QString allRecordsSql(const QString& table, const QString& orderColumn) {
    const QString all = u"SELECT * FROM ["_s + table + u']';
    return orderColumn.isEmpty() ? all : all + u" ORDER BY ["_s + orderColumn + u']';
}

QString noRecordsSql(const QString& table) {
    return allRecordsSql(table) + u" WHERE 1 = 0"_s;
}
