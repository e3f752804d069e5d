// Whatever bytes as the album's file: opened, read through with its pictures, changed. A text is taken for statements
// that make the file: a sound one, in which tables and values may be of any kind.

#include "catalogue/picture_field.h"
#include "catalogue/runs/renumbering.h"
#include "fuzzing.h"
#include "platform/database/file/file_check.h"

#include <sqlite3.h>

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int enoughRows = 12;
constexpr int enoughTables = 16;
constexpr size_t pageSize = 512;

void readRecord(Recordset& rows) {
    for (int column = 0; column < rows.FieldCount(); ++column) {
        goesThrough([&] {
            const Field field = rows.Fields(column);
            field.Value();
            if (field.Type() != FieldType::longBinary) return;
            expect(field.GetChunk(0, field.FieldSize()).size() == field.FieldSize(), "a value has its length");
            pictureFromField(rows, field.Name(), {64, 48});
            const StoredValue value = rows.storedAt(rows.row(), field.Name());
            expect(value.read(0, value.size()).size() == value.size(), "a value has its length later, too");
        });
    }
}

void readTable(const Database& catalogue, const QString& name) {
    Recordset rows = catalogue.OpenRecordset(name);
    for (int i = 0; i < enoughRows && !rows.Eof(); ++i, rows.MoveNext()) readRecord(rows);
    goesThrough([&] { rows.FindFirst(u"序号 = 3"_s); });
    goesThrough([&] { rows.MoveLast(); });
}

void changeTable(const Database& catalogue, const QString& name) {
    Recordset rows = catalogue.OpenRecordset(name);
    const auto change = [&](const QString& column, const FieldValue& value) {
        goesThrough([&] {
            rows.Edit();
            rows.Fields(column).SetValue(value);
            rows.Update();
        });
    };
    change(u"备注"_s, u"改"_s);
    change(u"图片"_s, QByteArray(3000, 'x'));
    goesThrough([&] {
        rows.AddNew();
        rows.Update();
        rows.MoveLast();
        rows.Delete();
    });
    RunWatch unwatched;
    renumberAlbum(catalogue, name, u"日期"_s, unwatched);
}

void useCatalogue(const QString& path) {
    const Database catalogue = OpenDatabase(path);
    const QStringList tables = catalogue.TableDefs().mid(0, enoughTables) + QStringList{u"tcsz"_s, u"tc00"_s};
    for (const QString& table : tables) goesThrough([&] { readTable(catalogue, table); });
    goesThrough([&] {
        catalogue.OpenRecordset(
            u"SELECT * FROM tc01 WHERE InStr(编号,'1') > 0 And DateValue(日期) > #2003-10-01# ORDER BY [序号]"_s);
    });
    for (const QString& table : {u"tc01"_s, u"tcbm"_s}) goesThrough([&] { changeTable(catalogue, table); });
    goesThrough([&] { catalogue.Execute(u"DROP TABLE tc00"_s); });
}

QString fileMadeBy(const QByteArray& statements) {
    const QString path = scratchFile(u"lunq.mdb"_s, {});
    sqlite3* file = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &file);
    sqlite3_exec(file, statements.constData(), nullptr, nullptr, nullptr);
    sqlite3_close(file);
    return path;
}

}  // namespace

extern "C" {

int LLVMFuzzerInitialize(int*, char***) {
    boundStatements();
    return 0;
}

size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t largest, unsigned seed) {
    return mutatePages(data, size, largest, seed, pageSize);
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = bytesOf(data, size);
    const bool isFile = bytes.startsWith("SQLite") || bytes.contains('\0');
    const QString path = isFile ? scratchFile(u"lunq.mdb"_s, bytes) : fileMadeBy(bytes);
    goesThrough([&] { FileCheck(path).run(); });
    goesThrough([&] { useCatalogue(path); });
    return 0;
}

}  // extern "C"
