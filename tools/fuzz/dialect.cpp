// The dialect of statements: the first line is opened and executed, the second is looked for in what the first has
// opened.

#include "fuzzing.h"
#include "platform/base/conversion.h"
#include "platform/database/records/database.h"

#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;

namespace {

Database album;
sqlite3* witness = nullptr;  ///< Looks at the file past the code that is tested.

void fillAlbum() {
    album = createDatabase(scratchFile(u"dialect.mdb"_s, {}) + u".new"_s);
    album.Execute(
        u"CREATE TABLE tc01 ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),[日期] DATETIME,"
        "[图片] LONGBINARY,[备注] TEXT(50))"_s);
    album.Execute(u"CREATE TABLE tcbm ([序号] LONG,[表名] TEXT(4),[标题] TEXT(20))"_s);
    Recordset rows = album.OpenRecordset(u"tc01"_s);
    for (int number = 1; number <= 4; ++number) {
        rows.AddNew();
        rows.Fields(u"序号"_s).SetValue(number);
        rows.Fields(u"编号"_s).SetValue(QString(number, u'a'));
        rows.Fields(u"日期"_s).SetValue(u"2003-10-0%1"_s.arg(number));
        rows.Fields(u"图片"_s).SetValue(QByteArray(number * 100, 'x'));
        rows.Update();
    }
}

/// What no statement of a run may have changed when it is over.
QByteArray content() {
    QByteArray text;
    for (const char* sql : {"SELECT count(*), group_concat(name || sql) FROM sqlite_schema",
                            "SELECT count(*), group_concat(序号 || 编号 || 日期 || 图片) FROM tc01",
                            "SELECT count(*), sum(length(bytes)) FROM long_binary"}) {
        sqlite3_exec(
            witness, sql,
            [](void* to, int, char** values, char**) {
                *static_cast<QByteArray*>(to) += values[0];
                *static_cast<QByteArray*>(to) += values[1];
                return 0;
            },
            &text, nullptr);
    }
    return text;
}

void readRows(Recordset& rows) {
    constexpr int enough = 8;
    for (int i = 0; i < enough && !rows.Eof(); ++i, rows.MoveNext()) {
        for (int column = 0; column < rows.FieldCount(); ++column) {
            goesThrough([&] {
                const Field field = rows.Fields(column);
                field.isNull();
                field.Value();
            });
        }
    }
}

void openAndFind(const QString& source, const QString& criteria) {
    Recordset rows = album.OpenRecordset(source);
    goesThrough([&] { readRows(rows); });
    goesThrough([&] {
        rows.FindFirst(criteria);
        expect(rows.NoMatch() || (rows.row() >= 0 && rows.row() < rows.rowCount()), "what is found is in the set");
        if (!rows.NoMatch()) readRows(rows);
    });
}

/// The engine reads dates in the stored form by a quicker way.
void compareDates(const QString& text) {
    const FieldValue day = album.OpenRecordset(u"SELECT DateValue(%1)"_s.arg(quoted(text))).Fields(0).Value();
    const auto date = dateFromText(text);
    expect(day.isNull() ? !date : date && day.toText() == dateText(*date, datePattern) + u" 00:00:00"_s,
           "a date is one date");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    boundStatements();
    fillAlbum();
    sqlite3_open_v2(album.Name().toUtf8().constData(), &witness, SQLITE_OPEN_READONLY, nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const QByteArray before = content();
    const QString text = QString::fromUtf8(bytesOf(data, size));
    const QString source = text.section(u'\n', 0, 0);
    const QString criteria = text.section(u'\n', 1);
    goesThrough([&] { openAndFind(source, criteria); });
    goesThrough([&] { compareDates(criteria); });
    expect(content() == before, "opening and finding changes nothing");
    goesThrough([&] {
        const Transaction takenBack(album);
        album.Execute(source);
    });
    expect(content() == before, "what is not committed is taken back");
    return 0;
}
