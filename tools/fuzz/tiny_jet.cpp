#include "tiny_jet.h"

#include <QList>
#include <QtEndian>
#include <array>
#include <numeric>
#include <utility>

namespace {

constexpr qsizetype pageSize = 4096;
enum Page : quint32 { header, usageMaps, objects, objectRows, table, tableRows, longValues, end };
enum Type : quint8 {
    truth = 1,
    integer = 3,
    longInteger = 4,
    currency = 5,
    real = 7,
    date = 8,
    text = 10,
    ole = 11,
    memo = 12
};

template <typename Number>
QByteArray bytesOf(Number number) {
    const Number stored = qToLittleEndian(number);
    return {reinterpret_cast<const char*>(&stored), sizeof stored};
}

template <typename Number>
void put(QByteArray& page, qsizetype place, Number number) {
    page.replace(place, qsizetype{sizeof number}, bytesOf(number));
}

QByteArray wide(const QString& words) {
    QByteArray bytes;
    for (const QChar letter : words) bytes += bytesOf(letter.unicode());
    return bytes;
}

/// With what the beginning of the file is hidden: RC4 over nothing but zeros.
QByteArray hiddenZeros(qsizetype count) {
    constexpr std::array<quint8, 4> key{0xC7, 0xDA, 0x39, 0x6B};
    std::array<quint8, 256> state{};
    std::iota(state.begin(), state.end(), quint8{0});
    quint8 j = 0;
    for (size_t i = 0; i < state.size(); ++i) {
        j = static_cast<quint8>(j + state[i] + key[i % key.size()]);
        std::swap(state[i], state[j]);
    }
    QByteArray bytes;
    j = 0;
    for (quint8 i = 1; bytes.size() < count; ++i) {
        j = static_cast<quint8>(j + state[i]);
        std::swap(state[i], state[j]);
        bytes += static_cast<char>(state[static_cast<quint8>(state[i] + state[j])]);
    }
    return bytes;
}

QByteArray headerPage() {
    QByteArray page(pageSize, '\0');
    page.replace(0, 20, QByteArray("\0\1\0\0Standard Jet DB\0", 20));
    page[0x14] = 1;
    return page.replace(0x18, 128, hiddenZeros(128));
}

/// A page of rows, which grow from its end towards their places at its beginning.
QByteArray rowPage(quint32 owner, const QList<QByteArray>& rows) {
    QByteArray page(pageSize, '\0');
    page[0] = page[1] = 1;
    put(page, 4, owner);
    put(page, 12, static_cast<quint16>(rows.size()));
    qsizetype start = pageSize;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        start -= rows[i].size();
        page.replace(start, rows[i].size(), rows[i]);
        put(page, 14 + 2 * i, static_cast<quint16>(start));
    }
    return page;
}

struct Column {
    QString name;
    Type type;
    quint16 size;
    bool isFixed() const { return type < text; }
};

/// The definition of a table whose pages stand in one of the usage maps.
QByteArray definitionPage(const QList<Column>& columns, quint8 map, quint32 rows) {
    QByteArray page(pageSize, '\0');
    page[0] = 2;
    page[1] = 1;
    QByteArray entries;
    QByteArray names;
    quint16 number = 0, fixedPlace = 0, variable = 0;
    for (const Column& column : columns) {
        QByteArray entry(25, '\0');
        entry[0] = static_cast<char>(column.type);
        put(entry, 5, number);
        put(entry, 7, column.isFixed() ? quint16{0} : variable++);
        put(entry, 9, number++);
        entry[15] = column.isFixed() ? 3 : 2;
        put(entry, 21, column.isFixed() ? fixedPlace : quint16{0});
        put(entry, 23, column.size);
        if (column.isFixed() && column.type != truth) fixedPlace = static_cast<quint16>(fixedPlace + column.size);
        entries += entry;
        names += bytesOf(static_cast<quint16>(2 * column.name.size())) + wide(column.name);
    }
    put(page, 8, static_cast<quint32>(63 + entries.size() + names.size()));
    put(page, 16, rows);
    page[40] = 'N';
    put(page, 41, number);
    put(page, 43, variable);
    put(page, 45, number);
    put(page, 55, map | usageMaps << 8);
    put(page, 59, map | usageMaps << 8);
    return page.replace(63, entries.size() + names.size(), entries + names);
}

/// The parts of a row: those of fixed length, those of variable length, and which are not Null.
QByteArray row(quint16 columns, const QByteArray& fixed, const QList<QByteArray>& parts, quint8 present) {
    QByteArray bytes = bytesOf(columns) + fixed;
    QByteArray places;
    for (const QByteArray& part : parts) {
        places.prepend(bytesOf(static_cast<quint16>(bytes.size())));
        bytes += part;
    }
    places.prepend(bytesOf(static_cast<quint16>(bytes.size())));
    return bytes + places + bytesOf(static_cast<quint16>(parts.size())) + static_cast<char>(present);
}

QByteArray usageMap(quint32 page) {
    QByteArray map(1 + 4 + 64, '\0');
    map[static_cast<qsizetype>(5 + page / 8)] = static_cast<char>(1U << page % 8);
    return map;
}

QByteArray longValue(quint32 lengthAndKind, quint32 place, const QByteArray& bytes = {}) {
    return bytesOf(lengthAndKind) + bytesOf(place) + bytesOf(quint32{0}) + bytes;
}

}  // namespace

QByteArray tinyJetDatabase(const QByteArray& picture) {
    constexpr quint32 inTheRow = 0x80000000;
    constexpr quint32 inOnePiece = 0x40000000;
    const QByteArray wrapped = QByteArray("\x15\x1C", 2) + QByteArray(30, 'w') + picture;
    const QByteArray words = wide(QStringLiteral("记"));

    const QByteArray object =
        row(4, bytesOf(quint32{table}) + bytesOf(quint16{1}) + bytesOf(quint32{0}), {wide(QStringLiteral("T"))}, 0x0F);
    constexpr double day = 37896.5;  // 2003-10-02, noon
    const QByteArray numbers = bytesOf(quint32{7}) + bytesOf(day) + bytesOf(quint64{12345}) + bytesOf(1.5);
    const QByteArray full =
        row(8, numbers,
            {wide(QStringLiteral("字a")), longValue(static_cast<quint32>(wrapped.size()) | inOnePiece, longValues << 8),
             longValue(static_cast<quint32>(words.size()) | inTheRow, 0, words)},
            0xFF);
    const QByteArray nulls = row(8, QByteArray(numbers.size(), '\0'), {{}, {}, {}}, 0);

    QByteArray file = headerPage();
    file += rowPage(usageMaps, {usageMap(objectRows), usageMap(tableRows)});
    file += definitionPage({{QStringLiteral("Id"), longInteger, 4},
                            {QStringLiteral("Type"), integer, 2},
                            {QStringLiteral("Flags"), longInteger, 4},
                            {QStringLiteral("Name"), text, 64}},
                           0, 1);
    file += rowPage(objects, {object});
    file += definitionPage({{QStringLiteral("序号"), longInteger, 4},
                            {QStringLiteral("日期"), date, 8},
                            {QStringLiteral("价"), currency, 8},
                            {QStringLiteral("大小"), real, 8},
                            {QStringLiteral("真"), truth, 1},
                            {QStringLiteral("名"), text, 20},
                            {QStringLiteral("图片"), ole, 0},
                            {QStringLiteral("备注"), memo, 0}},
                           1, 2);
    file += rowPage(table, {full, nulls});
    return file + rowPage(0, {wrapped});
}
