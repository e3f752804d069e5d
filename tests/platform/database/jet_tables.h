#pragma once

#include "jet_maker/jet_maker.h"

#include <QDateTime>
#include <QUuid>
#include <vector>

/// Tables of which tests make Jet databases.

/// A column with a value of it, and how both come out.
struct TypeCase {
    jet::Column column;
    QVariant value;
    QString text;
    QString layout;  ///< Type and size, such as `10:255`.
};

/// Every type of column; the texts hold what a code page of Chinese has.
inline std::vector<TypeCase> typeCases(jet::Version version) {
    using namespace Qt::Literals::StringLiterals;
    using jet::Type;
    std::vector<TypeCase> cases{
        {{u"Id"_s, Type::longInteger}, -2147483647, u"-2147483647"_s, u"4:4"_s},
        {{u"真"_s, Type::truth}, true, u"True"_s, u"1:1"_s},
        {{u"假"_s, Type::truth}, false, u"False"_s, u"1:1"_s},
        {{u"字节"_s, Type::byte}, 255, u"255"_s, u"2:1"_s},
        {{u"短"_s, Type::integer}, -5, u"-5"_s, u"3:2"_s},
        {{u"价"_s, Type::currency}, u"-12.3456"_s, u"-12.3456"_s, u"5:8"_s},
        {{u"单"_s, Type::single}, 6.6F, u"6.6"_s, u"6:4"_s},
        {{u"双"_s, Type::real}, 444.555, u"444.555"_s, u"7:8"_s},
        {{u"日期"_s, Type::date}, QDateTime({2003, 10, 2}, {12, 30, 59}), u"2003-10-02 12:30:59"_s, u"8:8"_s},
        {{u"早"_s, Type::date}, QDateTime({1850, 3, 4}, {5, 6, 7}), u"1850-03-04 05:06:07"_s, u"8:8"_s},
        {{u"名"_s, Type::text, 20}, u"普林斯顿大学"_s, u"普林斯顿大学"_s, u"10:20"_s},
        {{u"拉丁"_s, Type::text, 255}, u"world"_s, u"world"_s, u"10:255"_s},
        {{u"零"_s, Type::text, 1},
         QByteArray(version == jet::Version::jet3 ? 1 : 2, '\0'),
         QString(QChar(0)),
         u"10:1"_s},
        {{u"号"_s, Type::guid},
         QUuid(u"{EF129165-6FFE-4DF9-BB6B-BB16E413C883}"_s),
         u"{EF129165-6FFE-4DF9-BB6B-BB16E413C883}"_s,
         u"15:16"_s},
        {{u"备注"_s, Type::memo}, u"备注，第二行\r\n完"_s, u"备注，第二行\r\n完"_s, u"12:0"_s},
    };
    if (version == jet::Version::jet4) {
        cases.push_back({{u"准"_s, Type::decimal, 0, 4}, u"-98765.4321"_s, u"-98765.4321"_s, u"20:16"_s});
        cases.push_back({{u"emoji"_s, Type::text, 20}, u"emoji 😀 end"_s, u"emoji 😀 end"_s, u"10:20"_s});
    }
    return cases;
}

/// A row of the values and one of Null.
inline jet::Table allTypes(jet::Version version) {
    jet::Table table{QStringLiteral("全部 类型"), {}, {{}}};
    for (const TypeCase& each : typeCases(version)) {
        table.columns << each.column;
        table.rows[0] << each.value;
    }
    table.rows << jet::Row(table.columns.size());
    return table;
}

/// Bytes in which no two pages are alike.
inline QByteArray noise(qsizetype size) {
    QByteArray bytes(size, '\0');
    quint32 state = 1;
    for (char& byte : bytes) byte = char((state = state * 1664525 + 1013904223) >> 24);
    return bytes;
}

/// Long values of the given sizes, the longest of them over many pages; the texts beside them have as many letters.
inline jet::Table longValues(const QList<qsizetype>& sizes = {1, 65, 30000}) {
    using namespace Qt::Literals::StringLiterals;
    jet::Table table{
        u"长"_s, {{u"长度"_s, jet::Type::longInteger}, {u"图片"_s, jet::Type::ole}, {u"备注"_s, jet::Type::memo}}, {}};
    for (const qsizetype size : sizes)
        table.rows << jet::Row{int(size), noise(size), QString(size, u'z').replace(size / 2, 1, QChar(u'é'))};
    return table;
}

/// Rows over several pages, among them deleted ones.
inline jet::Table manyRows() {
    using namespace Qt::Literals::StringLiterals;
    jet::Table table{u"行"_s, {{u"序号"_s, jet::Type::longInteger}, {u"名"_s, jet::Type::text, 50}}, {}};
    for (int i = 1; i <= 700; ++i) table.rows << jet::Row{i, u"row %1"_s.arg(i)};
    for (int i = 1; i <= 30; ++i) table.deletedRows << jet::Row{-i, u"deleted"_s};
    return table;
}

/// More columns than one page can define, and a row that they fill.
inline jet::Table manyColumns() {
    using namespace Qt::Literals::StringLiterals;
    jet::Table table{u"列"_s, {}, {{}}};
    for (int i = 1; i <= 100; ++i) {
        table.columns << jet::Column{u"column%1"_s.arg(i), jet::Type::text, 50};
        table.rows[0] << u"value %1"_s.arg(i);
    }
    return table;
}
