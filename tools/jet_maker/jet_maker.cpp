#include "jet_maker.h"

#include "jet_bytes.h"

#include <QDateTime>
#include <QUuid>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace jet {
namespace {

/// Places of the parts of pages in the two versions.
struct Places {
    qsizetype pageSize, rowCount;
    // in the definition of a table
    qsizetype tableRows, tableKind, usageMap, columns, entrySize;
    // in a column's entry there
    qsizetype number, variablePlace, rowNumber, flags, fixedPlace, size;
    qsizetype hiddenHeader;  ///< Length of what the header hides.
};
constexpr Places placesOfJet3{2048, 8, 12, 20, 35, 43, 18, 1, 3, 5, 13, 14, 16, 126};
constexpr Places placesOfJet4{4096, 12, 16, 40, 55, 63, 25, 5, 7, 9, 15, 21, 23, 128};

constexpr qsizetype bmpHeader = 14;
constexpr quint32 usageMapPage = 1;
constexpr quint32 objectsPage = 2;
constexpr quint16 deletedMark = 0xC000;
constexpr quint16 leadsAwayMark = 0x4000;  ///< In its old place a moved row has but the way to its new one,
constexpr quint16 movedMark = 0x8000;      ///< where only that way leads to it.

const Places& placesOf(Version version) {
    return version == Version::jet3 ? placesOfJet3 : placesOfJet4;
}

/// The bytes of a value of fixed length; 0 for a type that has none in the row.
qsizetype fixedSize(Type type) {
    switch (type) {
        case Type::byte:
            return 1;
        case Type::integer:
            return 2;
        case Type::longInteger:
        case Type::single:
            return 4;
        case Type::currency:
        case Type::real:
        case Type::date:
            return 8;
        case Type::guid:
            return 16;
        case Type::decimal:
            return 17;
        default:
            return 0;
    }
}

bool isVariable(Type type) {
    return type != Type::truth && fixedSize(type) == 0;
}

quint16 numberOf(const QList<Column>& columns, qsizetype place) {
    return quint16(columns[place].number < 0 ? place : columns[place].number);
}

double daysOf(const QDateTime& time) {
    const QDate dayNought(1899, 12, 30);
    const auto days = double(dayNought.daysTo(time.date()));
    const double part = time.time().msecsSinceStartOfDay() / 86'400'000.0;
    return days < 0 ? days - part : days + part;  // the time counts forward on both sides
}

QByteArray currencyBytes(const QString& number) {
    const auto [isNegative, words] = scaled(number, 4);
    const quint64 amount = quint64{words[2]} << 32 | words[3];
    return bytesOf(isNegative ? 0 - amount : amount);
}

QByteArray decimalBytes(const QString& number, int scale) {
    const auto [isNegative, words] = scaled(number, scale);
    QByteArray bytes(1, isNegative ? '\x80' : '\0');
    for (const quint32 word : words) bytes += bytesOf(word);
    return bytes;
}

QByteArray fixedBytes(const Column& column, const QVariant& value) {
    switch (column.type) {
        case Type::byte:
            return bytesOf(quint8(value.toUInt()));
        case Type::integer:
            return bytesOf(qint16(value.toInt()));
        case Type::longInteger:
            return bytesOf(value.toInt());
        case Type::single:
            return bytesOf(value.toFloat());
        case Type::currency:
            return currencyBytes(value.toString());
        case Type::real:
            return bytesOf(value.toDouble());
        case Type::date:
            return bytesOf(daysOf(value.toDateTime()));
        case Type::guid: {
            const QUuid id = value.toUuid();
            return bytesOf(id.data1) + bytesOf(id.data2) + bytesOf(id.data3) +
                   QByteArray(reinterpret_cast<const char*>(id.data4), sizeof id.data4);
        }
        default:
            return decimalBytes(value.toString(), column.scale);
    }
}

class Maker {
  public:
    explicit Maker(const Form& form) : form_(form), places_(placesOf(form.version)), pages_(3, emptyPage()) {}

    QByteArray make(const QList<Table>& tables);

  private:
    bool isJet3() const { return form_.version == Version::jet3; }
    QByteArray emptyPage() const { return QByteArray(places_.pageSize, '\0'); }
    quint32 add(const QByteArray& page);

    QByteArray nameBytes(const QString& name) const;
    QByteArray textBytes(const QVariant& value, bool mayShorten) const;
    QByteArray variableBytes(const Column& column, const QVariant& value);
    QByteArray longValue(const QByteArray& bytes);

    QByteArray row(const QList<Column>& columns, const Row& values);
    QByteArray narrowEnding(qsizetype begun, const QList<qsizetype>& places, qsizetype maskSize) const;
    QByteArray rowPage(quint32 owner, const QList<QByteArray>& rows, const QList<quint16>& marks = {}) const;
    QList<quint32> addRows(quint32 owner, const Table& table);

    QByteArray columnEntry(const Column& column, quint16 number, quint16 fixedPlace, quint16 variable) const;
    QByteArray definition(const Table& table, quint8 map) const;
    void place(quint32 page, QByteArray definition);
    void addTable(const Table& table, quint32 page, quint8 map);

    void writeHeader();
    void writeMaps();

    Form form_;
    const Places& places_;
    QList<QByteArray> pages_;
    QList<QList<quint32>> rowPages_;  ///< By usage map, which lists them.
};

quint32 Maker::add(const QByteArray& page) {
    pages_ << page;
    return quint32(pages_.size() - 1);
}

QByteArray Maker::nameBytes(const QString& name) const {
    if (!isJet3()) return bytesOf(quint16(2 * name.size())) + wide(name);
    const QByteArray bytes = narrow(name, form_.codePage);
    return bytesOf(quint8(bytes.size())) + bytes;
}

QByteArray Maker::textBytes(const QVariant& value, bool mayShorten) const {
    if (value.typeId() == QMetaType::QByteArray) return value.toByteArray();
    const QString words = value.toString();
    if (isJet3()) return narrow(words, form_.codePage);
    const bool latin = std::ranges::all_of(words, [](QChar c) { return c.unicode() > 0 && c.unicode() < 256; });
    return mayShorten && latin ? "\xFF\xFE" + words.toLatin1() : wide(words);
}

QByteArray Maker::variableBytes(const Column& column, const QVariant& value) {
    if (column.type == Type::text) return textBytes(value, true);
    if (column.type == Type::binary) return value.toByteArray();
    return longValue(column.type == Type::memo ? textBytes(value, false) : value.toByteArray());
}

/// Writes the pages of a long value; what the row holds of it is returned.
QByteArray Maker::longValue(const QByteArray& bytes) {
    constexpr quint32 inTheRow = 0x80000000;
    constexpr quint32 inOnePiece = 0x40000000;
    const auto entry = [&](quint32 kind, quint32 page) {
        return bytesOf(quint32(bytes.size()) | kind) + bytesOf(page << 8) + bytesOf(quint32{0});
    };
    if (bytes.size() <= roomInRow) return entry(inTheRow, 0) + bytes;
    const qsizetype room = roomInPage(form_.version);
    if (bytes.size() <= room) return entry(inOnePiece, add(rowPage(0, {bytes})));
    const auto first = quint32(pages_.size());
    const qsizetype roomBehindLink = room - qsizetype{sizeof first};
    for (qsizetype at = 0; at < bytes.size(); at += roomBehindLink) {
        const bool isLast = at + roomBehindLink >= bytes.size();
        const quint32 next = isLast ? 0 : quint32(pages_.size() + 1) << 8;
        add(rowPage(0, {bytesOf(next) + bytes.mid(at, roomBehindLink)}));
    }
    return entry(0, first);
}

QByteArray Maker::row(const QList<Column>& columns, const Row& values) {
    const auto count = columns.size();
    QByteArray bytes = isJet3() ? bytesOf(quint8(count)) : bytesOf(quint16(count));
    QByteArray mask((count + 7) / 8, '\0');
    for (qsizetype i = 0; i < count; ++i) {
        const bool isMarked = columns[i].type == Type::truth ? values[i].toBool() : !values[i].isNull();
        const qsizetype bit = numberOf(columns, i);
        if (isMarked) mask[bit / 8] = char(mask[bit / 8] | 1 << bit % 8);
        const qsizetype size = fixedSize(columns[i].type);
        if (size > 0) bytes += values[i].isNull() ? QByteArray(size, '\0') : fixedBytes(columns[i], values[i]);
    }
    QList<qsizetype> places;
    for (qsizetype i = 0; i < count; ++i) {
        if (!isVariable(columns[i].type)) continue;
        places << bytes.size();
        if (!values[i].isNull()) bytes += variableBytes(columns[i], values[i]);
    }
    places << bytes.size();
    if (isJet3()) return bytes + narrowEnding(bytes.size(), places, mask.size()) + mask;
    for (qsizetype i = places.size(); i-- > 0;) bytes += bytesOf(quint16(places[i]));
    return bytes + bytesOf(quint16(places.size() - 1)) + mask;
}

/// The places of a row's parts, of which Jet 3 writes one byte each. Where one goes beyond the next 256 bytes, a jump
/// names it.
QByteArray Maker::narrowEnding(qsizetype begun, const QList<qsizetype>& places, qsizetype maskSize) const {
    const qsizetype length = begun + places.size() + 1 + maskSize;
    qsizetype jumps = (length - 1) / 256;
    while ((length + jumps - 1) / 256 > jumps) ++jumps;
    QByteArray ending;
    for (qsizetype i = places.size(); i-- > 0;) ending += char(places[i] % 256);
    for (qsizetype jump = jumps; jump-- > 0;) {
        const auto beyond = std::ranges::find_if(places, [&](qsizetype place) { return place / 256 > jump; });
        ending += char(beyond == places.end() ? 255 : beyond - places.begin());
    }
    return ending + char(places.size() - 1);
}

/// A page of rows, which grow from its end towards their places at its beginning.
QByteArray Maker::rowPage(quint32 owner, const QList<QByteArray>& rows, const QList<quint16>& marks) const {
    QByteArray page = emptyPage();
    page[0] = page[1] = 1;
    put(page, 4, owner);
    put(page, places_.rowCount, quint16(rows.size()));
    qsizetype start = places_.pageSize;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        start -= rows[i].size();
        const qsizetype entry = places_.rowCount + 2 + 2 * i;
        if (start < entry + 2) qFatal("The rows are too long for a page.");
        page.replace(start, rows[i].size(), rows[i]);
        put(page, entry, quint16(start | marks.value(i)));
    }
    return page;
}

/// Returns the pages that hold the rows. They come one after the other, behind the long values; those of moved rows
/// first.
QList<quint32> Maker::addRows(quint32 owner, const Table& table) {
    QList<quint32> pages;
    QList<QByteArray> rowPages;
    QList<QByteArray> rows;
    QList<quint16> marks;
    qsizetype filled = 0;
    const auto flush = [&] {
        if (!rows.isEmpty()) rowPages << rowPage(owner, rows, marks);
        rows.clear();
        marks.clear();
        filled = 0;
    };
    const auto append = [&](const QByteArray& bytes, quint16 mark) {
        if (filled + bytes.size() + 2 > roomInPage(form_.version)) flush();
        rows << bytes;
        marks << mark;
        filled += bytes.size() + 2;
    };
    for (qsizetype i = 0; i < std::max(table.rows.size(), table.deletedRows.size()); ++i) {
        if (i < table.deletedRows.size()) append(row(table.columns, table.deletedRows[i]), deletedMark);
        if (i >= table.rows.size()) continue;
        const QByteArray bytes = row(table.columns, table.rows[i]);
        if (table.movedRows.contains(i)) {
            pages << add(rowPage(owner, {bytes}, {movedMark}));
            append(bytesOf(pages.last() << 8), leadsAwayMark);
        } else {
            append(bytes, 0);
        }
    }
    flush();
    for (const QByteArray& page : rowPages) pages << add(page);
    return pages;
}

QByteArray Maker::columnEntry(const Column& column, quint16 number, quint16 fixedPlace, quint16 variable) const {
    const bool isFixed = !isVariable(column.type);
    const int bytesOfCharacter = column.type == Type::text && !isJet3() ? 2 : 1;
    const auto size = column.type == Type::truth ? 1
                      : isFixed                  ? fixedSize(column.type)
                                                 : column.size * bytesOfCharacter;
    QByteArray entry(places_.entrySize, '\0');
    entry[0] = char(column.type);
    put(entry, places_.number, number);
    put(entry, places_.variablePlace, isFixed ? quint16{0} : variable);
    put(entry, places_.rowNumber, number);
    if (column.type == Type::decimal) put(entry, 11, quint16(28 | column.scale << 8));
    entry[places_.flags] = isFixed ? 3 : 2;
    put(entry, places_.fixedPlace, isFixed ? fixedPlace : quint16{0});
    put(entry, places_.size, quint16(size));
    return entry;
}

/// The definition of a table whose pages are in one of the usage maps; not yet cut into pages.
QByteArray Maker::definition(const Table& table, quint8 map) const {
    QByteArray bytes(places_.columns, '\0');
    QByteArray entries;
    QByteArray names;
    quint16 number = 0, fixedPlace = 0, variable = 0;
    for (const Column& column : table.columns) {
        entries += columnEntry(column, numberOf(table.columns, number++), fixedPlace, variable);
        names += nameBytes(column.name);
        fixedPlace = quint16(fixedPlace + fixedSize(column.type));
        if (isVariable(column.type)) ++variable;
    }
    bytes[0] = 2;
    bytes[1] = 1;
    put(bytes, 8, quint32(bytes.size() + entries.size() + names.size()));
    put(bytes, places_.tableRows, quint32(table.rows.size()));
    bytes[places_.tableKind] = 'N';
    put(bytes, places_.tableKind + 1, number);
    put(bytes, places_.tableKind + 3, variable);
    put(bytes, places_.tableKind + 5, number);
    put(bytes, places_.usageMap, map | usageMapPage << 8);
    put(bytes, places_.usageMap + 4, map | usageMapPage << 8);
    return bytes + entries + names;
}

/// Writes a definition into its page, and what is too long for it into pages of their own.
void Maker::place(quint32 page, QByteArray definition) {
    constexpr qsizetype link = 4;
    const QByteArray head("\2\1\0\0\0\0\0\0", 8);
    while (definition.size() > places_.pageSize) {
        const QByteArray rest = head + definition.mid(places_.pageSize);
        const quint32 next = add(emptyPage());
        put(definition, link, next);
        pages_[page] = definition.left(places_.pageSize);
        definition = rest;
        page = next;
    }
    pages_[page].replace(0, definition.size(), definition);
}

void Maker::addTable(const Table& table, quint32 page, quint8 map) {
    rowPages_[map] = addRows(page, table);
    place(page, definition(table, map));
}

/// The beginning of the file, part of which is always hidden.
void Maker::writeHeader() {
    QByteArray& page = pages_[0];
    page.replace(0, 20, QByteArray("\0\1\0\0Standard Jet DB\0", 20));
    page[0x14] = isJet3() ? 0 : 1;
    put(page, 0x3C, quint16(form_.codePage));
    put(page, 0x3E, form_.key);
    constexpr double made = 37896.5;
    constexpr qsizetype password = 0x42;
    if (isJet3()) {
        page.replace(password, form_.password.size(), form_.password.toLatin1());
    } else {
        put(page, 0x72, made);
        const QByteArray letters = wide(form_.password).leftJustified(40, '\0');
        const QByteArray mask = bytesOf(qint32(made)).repeated(10);
        for (qsizetype i = 0; i < mask.size(); ++i) page[password + i] = char(letters[i] ^ mask[i]);
    }
    encode(page, 0x18, places_.hiddenHeader, 0x6B39DAC7);
}

void Maker::writeMaps() {
    QList<QByteArray> maps;
    for (const QList<quint32>& pages : rowPages_) {
        const quint32 first = pages.isEmpty() ? 0 : pages.front();
        const quint32 last = pages.isEmpty() ? 0 : pages.back();
        QByteArray map(5 + (last - first) / 8 + 1, '\0');
        put(map, 1, first);
        for (const quint32 page : pages) {
            char& eight = map[qsizetype(5 + (page - first) / 8)];
            eight = char(eight | 1 << (page - first) % 8);
        }
        maps << map;
    }
    pages_[usageMapPage] = rowPage(usageMapPage, maps);
}

QByteArray Maker::make(const QList<Table>& tables) {
    constexpr int tableKind = 1, queryKind = 5, systemFlags = -2147483646;
    Table objects{u"MSysObjects"_s,
                  {{u"Id"_s, Type::longInteger},
                   {u"Type"_s, Type::integer},
                   {u"Flags"_s, Type::longInteger},
                   {u"Name"_s, Type::text, 64}},
                  {{objectsPage, tableKind, systemFlags, u"MSysObjects"_s}, {objectsPage, queryKind, 0, u"Query"_s}}};
    rowPages_.resize(tables.size() + 1);
    for (const Table& table : tables) objects.rows << Row{add(emptyPage()), tableKind, 0, table.name};
    addTable(objects, objectsPage, 0);
    for (qsizetype i = 0; i < tables.size(); ++i) {
        addTable(tables[i], quint32(objectsPage + 1 + i), quint8(i + 1));
    }
    writeMaps();
    writeHeader();
    for (quint32 page = 1; form_.key != 0 && page < pages_.size(); ++page) {
        encode(pages_[page], 0, places_.pageSize, form_.key ^ page);
    }
    return pages_.join();
}

}  // namespace

QByteArray database(const QList<Table>& tables, const Form& form) {
    return Maker(form).make(tables);
}

QByteArray wrapped(const QByteArray& picture) {
    return QByteArray("\x15\x1C", 2) + QByteArray(76, 'w') + picture;
}

QByteArray wrappedBitmap(const QByteArray& bmp) {
    return wrapped("DIB" + bytesOf(quint32{0}) + bmp.mid(bmpHeader)) + QByteArray(9, '\0');
}

QByteArray wrappedMetafile(const QByteArray& bmp) {
    constexpr quint16 stretchBitmap = 0x0F43;
    const QByteArray bitmap = bmp.mid(bmpHeader);
    const QByteArray record = bytesOf(quint16{stretchBitmap}) + QByteArray(22, '\1') + bitmap;
    return wrapped("METAFILEPICT" + QByteArray(8, '\2') + QByteArray(18, '\3') +
                   bytesOf(quint32(record.size() / 2 + 2)) + record + QByteArray("\3\0\0\0\0\0", 6));
}

qsizetype roomInPage(Version version) {
    const Places& places = placesOf(version);
    return places.pageSize - places.rowCount - 4;
}

}  // namespace jet
