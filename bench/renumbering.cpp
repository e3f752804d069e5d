// Times the renumbering of an album of large pictures against one of the same records without pictures. The pictures
// are zeros: what they hold makes no difference. Run by hand: bench_renumbering [records] [kilobytes of each picture]

#include "catalogue/runs/renumbering.h"

#include "catalogue/album_rules.h"
#include "filling.h"
#include "table.h"
#include "timing.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Every round turns the order round, so that all numbers change.
double renumbered(const Database& database, const QString& table) {
    bool byDate = false;
    RunWatch unwatched;
    return medianMilliseconds(5, [&] {
        byDate = !byDate;
        renumberAlbum(database, table, byDate ? u"日期"_s : u"备注"_s, unwatched);
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
    fillAlbum(database, u"tc01"_s, count);
    fillAlbum(database, u"tc02"_s, count, [bytes = QByteArray(kilobytes * 1000, '\0')](int) { return bytes; });
    row("renumbering",
        {.what = "renumber " + std::to_string(count) + " records, pictures of " + std::to_string(kilobytes) + " KB",
         .measured = renumbered(database, u"tc02"_s),
         .peer = "without pictures",
         .peerMeasured = renumbered(database, u"tc01"_s),
         .timesPeer = 1.5});
}
