#include "intake/databases/mapping_rules.h"

#include "platform/base/error.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

bool hasTable(const Database& database, const QString& table) {
    return database.isOpen() && database.TableDefs().contains(table, Qt::CaseInsensitive);
}

QString typeNumber(const FieldShape& field) {
    return QString::number(static_cast<int>(field.type));
}

}  // namespace

TableShape shapeByName(const Database& first, const Database& second, const QString& table) {
    return shapeOf(hasTable(first, table) ? first : second, table);
}

QStringList withoutSystemTables(const QStringList& tables) {
    QStringList offered;
    for (const QString& table : tables)
        if (!table.startsWith(u"MSys"_s, Qt::CaseInsensitive)) offered << table;
    return offered;
}

QString mappingCaption(const QString& targetField) {
    return targetField + u"<对应>"_s;
}

QString typeWarning(const FieldShape& source, const FieldShape& target) {
    if (source.type == target.type) return {};
    return u"两个字段的数据类型不同，不能继续，请重选！(源字段["_s + source.name + u"]类型＝"_s + typeNumber(source) +
           u"，(目标字段["_s + target.name + u"]类型＝"_s + typeNumber(target) + u')';
}

QString lengthQuestion(const FieldShape& source, const FieldShape& target) {
    if (target.size >= source.size) return {};
    return u"目标表的字段长度小于源表的字段长度，如果继续请按“确定”；否则按“取消”！(源字段["_s + source.name +
           u"]长度＝"_s + QString::number(source.size) + u"，(目标字段["_s + target.name + u"]长度＝"_s +
           QString::number(target.size) + u')';
}

int firstTypeMismatch(const TableShape& opened, const TableShape& other) {
    const auto pairs = std::min(opened.size(), other.size());
    for (std::size_t i = 0; i < pairs; ++i)
        if (opened[i].type != other[i].type) return static_cast<int>(i);
    return -1;
}

void requireKeyColumn(const TableShape& target, const QString& table, const QString& key) {
    if (fieldNamed(target, key)) return;
    throw Error(
        u"目标表中没有栏目“%1”，不能按它替换记录。请用目标表“%2”也有的栏目（如序号）对应“序号”。"_s.arg(key, table));
}

int mappedFields(const FieldMapping& mapping) {
    return static_cast<int>(
        std::count_if(mapping.begin(), mapping.end(), [](const FieldPair& pair) { return !pair.source.isEmpty(); }));
}
