// Times the renumbering of an album of large pictures against one of the same records without pictures. The pictures
// are zeros: what they hold makes no difference. Run by hand: bench_renumbering [records] [kilobytes of each picture]

#include "catalogue/renumbering.h"

#include "catalogue/album_rules.h"
#include "timing.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

void fill(const Database& database, const QString& table, int count, const QByteArray& picture) {
    Transaction transaction(database);
    Recordset set = database.OpenRecordset(table);
    for (int i = 1; i <= count; ++i) {
        set.AddNew();
        set.Fields(u"序号"_s).SetValue(2 * i);
        set.Fields(u"编号"_s).SetValue(i % 7 == 0 ? u"a1"_s : u"b"_s);
        set.Fields(u"大小"_s).SetValue(u"3,000.000"_s);
        set.Fields(u"规格"_s).SetValue(u"4000 * 3000"_s);
        set.Fields(u"日期"_s).SetValue(QDateTime(QDate(2003, 10, 1), QTime(12, 0)).addSecs(count - i));
        set.Fields(u"备注"_s).SetValue(u"图片%1"_s.arg(i));
        if (!picture.isEmpty()) set.Fields(u"图片"_s).AppendChunk(picture);
        set.Update();
    }
    transaction.commit();
}

/// Every round turns the order round, so that all numbers change.
double renumbered(const Database& database, const QString& table) {
    bool byDate = false;
    return medianMilliseconds(5, [&] {
        byDate = !byDate;
        renumberAlbum(database, table, byDate ? u"日期"_s : u"备注"_s);
    });
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 2000;
    const int kilobytes = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 3000;
    const QTemporaryDir folder;
    const Database database = createDatabase(folder.filePath(u"lunq.mdb"_s));
    for (const QString& table : {u"tc01"_s, u"tc02"_s}) database.Execute(createAlbumSql(table));
    fill(database, u"tc01"_s, count, {});
    fill(database, u"tc02"_s, count, QByteArray(kilobytes * 1000, '\0'));
    const double without = renumbered(database, u"tc01"_s);
    const double with = renumbered(database, u"tc02"_s);
    std::printf("%d records without pictures %24.1f ms\n", count, without);
    std::printf("%d records with pictures of %5d KB %14.1f ms  %.2f x\n", count, kilobytes, with, with / without);
}
