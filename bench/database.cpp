// Times the operations of the catalogue that grow with the collection. Run by hand: bench_database [pictures]

#include "platform/database/records/database.h"

#include "filling.h"
#include "jet_maker/jet_maker.h"
#include "table.h"
#include "timing.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "database";

void timed(const std::string& what, const std::function<void()>& work) {
    row(topic, {.what = what, .measured = milliseconds(work)});
}

void storePictures(const Database& database, int count, const QByteArray& picture) {
    Recordset set = database.OpenRecordset(u"tc02"_s);
    for (int i = 1; i <= count; ++i) {
        set.AddNew();
        set.Fields(u"序号"_s).SetValue(i);
        for (qsizetype at = 0; at < picture.size(); at += 16385) {
            set.Fields(u"图片"_s).AppendChunk(picture.mid(at, 16385));
        }
        set.Update();
    }
}

void readPictures(const Database& database) {
    for (Recordset set = database.OpenRecordset(u"tc02"_s); !set.Eof(); set.MoveNext()) {
        const Field picture = set.Fields(u"图片"_s);
        for (qint64 offset = 0; offset < picture.FieldSize(); offset += 16384) picture.GetChunk(offset, 16384);
    }
}

void renumber(const Database& database) {
    Transaction transaction(database);
    Recordset set = database.OpenRecordset(u"SELECT * FROM tc02 ORDER BY [序号] DESC"_s);
    for (int i = 1; !set.Eof(); set.MoveNext(), ++i) {
        set.Edit();
        set.Fields(u"序号"_s).SetValue(i);
        set.Update();
    }
    transaction.commit();
}

/// Its long values are of all sizes up to 931 KB.
void makeForeignDatabase(const QString& path) {
    jet::Table table{u"T"_s, {{u"Nr"_s, jet::Type::longInteger}, {u"Bild"_s, jet::Type::ole}}, {}};
    for (const int size : {1, 64, 65, 4076, 4077, 10'533, 22'554, 341'284, 560'000, 931'184})
        table.rows << jet::Row{size, QByteArray(size, 'p')};
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(jet::database({table})) < 0) qFatal("No place for a database.");
}

/// The helper that reads it is beside this program.
void readForeignDatabase(const QString& path) {
    const Database database = OpenDatabase(path);
    for (const QString& table : database.TableDefs()) {
        for (Recordset set = database.OpenRecordset(table); !set.Eof(); set.MoveNext()) {
            for (int i = 0; i < set.FieldCount(); ++i) set.Fields(i).Value();
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int pictures = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100;
    const QTemporaryDir folder;
    const Database database = createDatabase(folder.filePath(u"lunq.mdb"_s));
    for (const QString& table : {u"tc01"_s, u"tc02"_s}) {
        database.Execute(
            u"CREATE TABLE %1 ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),[日期] DATETIME,"
            "[图片] LONGBINARY,[备注] TEXT(50))"_s.arg(table));
    }
    timed("store 100,000 records without pictures", [&] { fillAlbum(database, u"tc01"_s, 100000); });
    Recordset set;
    timed("open 100,000 records", [&] { set = database.OpenRecordset(u"tc01"_s); });
    timed("open 100,000 records in order",
          [&] { set = database.OpenRecordset(u"SELECT * FROM tc01 ORDER BY [序号]"_s); });
    timed("filter 100,000 records by code and day", [&] {
        database.OpenRecordset(u"SELECT * FROM tc01 WHERE InStr(编号,'2') > 0 And DateValue(日期) = #2003-10-01#"_s);
    });
    timed("find the last of 100,000 records", [&] { set.FindFirst(u"序号 = 100000"_s); });
    timed("read the values of 1,000 records", [&] {
        for (int i = 0; i < 1000; ++i) set.valuesAt(i * 97);
    });

    const QByteArray picture(3000000, 'p');
    const std::string these = std::to_string(pictures) + " pictures of 3 MB";
    timed("store " + these + ", each durable", [&] { storePictures(database, pictures, picture); });
    timed("read " + these + " in chunks", [&] { readPictures(database); });
    timed("renumber " + these, [&] { renumber(database); });
    timed("drop an album of " + these, [&] { database.Execute(u"DROP TABLE tc02"_s); });
    timed("a change after it", [&] { database.Execute(u"DELETE FROM tc01 WHERE 序号 = 7"_s); });

    const QString foreign = folder.filePath(u"foreign.mdb"_s);
    makeForeignDatabase(foreign);
    timed("read a Jet database of 1.9 MB", [&] { readForeignDatabase(foreign); });
}
