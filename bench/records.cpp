// Times the page 图片录入 with 10,000 records of another catalogue and of a Jet database, from the click to the closing
// message, beside the engine alone that copies the same rows. Run by hand: bench_records [rounds] [records]

#include "../tests/intake/database_window.h"
#include "bare_store.h"
#include "filling.h"
#include "jet_maker/jet_maker.h"
#include "photo_files.h"
#include "platform/desktop/look.h"
#include "run_meter.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "records";
const QString table = u"tc05"_s;

/// A photograph of 20 KB; no two are the same.
QByteArray picture(int number) {
    static const PhotoFiles photographs(350, 85);
    return photographs.bytes(number);
}

void makeCatalogue(const QString& path, int count) {
    const Database database = createDatabase(path);
    database.Execute(createAlbumSql(table));
    fillAlbum(database, table, count, picture);
}

void makeJet(const QString& path, int count) {
    const QList<jet::Column> columns{{u"序号"_s, jet::Type::longInteger}, {u"编号"_s, jet::Type::text, 20},
                                     {u"大小"_s, jet::Type::text, 20},    {u"规格"_s, jet::Type::text, 20},
                                     {u"日期"_s, jet::Type::date},        {u"图片"_s, jet::Type::ole},
                                     {u"备注"_s, jet::Type::memo}};
    QList<jet::Row> rows;
    for (int number = 1; number <= count; ++number)
        rows << jet::Row{number, u"1"_s, QVariant(), QVariant(), QVariant(), picture(number), QVariant()};
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) throw Error(file.errorString());
    file.write(jet::database({{table, columns, rows}}));
}

/// All records of the file 源库.mdb into an empty album.
RunCost copy(const QString& made, bool isJet, int count) {
    DatabaseWindow window;
    window.source = {};
    const QString file = window.path(u"源库.mdb"_s);
    QFile::remove(file);
    QFile::copy(made, file);
    mekTp::catalogue.Execute(createAlbumSql(table));
    window.chooseTable(u"tc02"_s, 1, table);
    if (isJet) {
        window.mapField(0, u"序号"_s);
        window.mapField(5, u"图片"_s);
        window.click(u"cmdLr"_s);
    } else {
        window.click(u"cmdQx"_s);
    }
    window.click(u"cmdQx"_s);
    const RunCost cost = measureRun(window, u"cmdLr"_s, u"图片录入完成！"_s);
    if (mekTp::catalogue.OpenRecordset(u"tc02"_s).rowCount() != count) throw Error(u"记录没有全部录入"_s);
    return cost;
}

void compare(int rounds, int count) {
    const QTemporaryDir folder;
    const QString catalogue = folder.filePath(u"catalogue.mdb"_s), jet = folder.filePath(u"jet.mdb"_s);
    makeCatalogue(catalogue, count);
    makeJet(jet, count);
    const HelperMemory helpers;
    RunCosts fromCatalogue, fromJet;
    std::vector<double> engine;
    for (int i = 0; i < rounds; ++i) {
        requireRun(u"sync"_s, {});
        fromCatalogue.add(copy(catalogue, false, count));
        requireRun(u"sync"_s, {});
        fromJet.add(copy(jet, true, count));
        const QTemporaryDir bare;
        requireRun(u"sync"_s, {});
        const BareStore store(bare.filePath(u"bare.db"_s));
        engine.push_back(milliseconds([&] { store.copyRows(catalogue, table.toUtf8(), count, 100); }));
    }
    const auto tell = [&](const char* from, const RunCosts& costs, double atMost) {
        const std::string what = "copy " + std::to_string(count) + " records of 20 KB from " + from;
        row(topic, {.what = what,
                    .measured = costs.time(),
                    .peer = "bare SQLite, 100 rows a change",
                    .peerMeasured = median(engine),
                    .timesPeer = atMost});
        costs.tellRest(topic, std::string("records from ") + from);
    };
    tell("a catalogue", fromCatalogue, 2);
    tell("a Jet database", fromJet, 3);
    row(topic, {.what = "records from a Jet database: its reader's memory",
                .measured = helpers.most(),
                .unit = "MB",
                .atMost = 120});
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    try {
        compare(argc > 1 ? std::max(1, std::atoi(argv[1])) : 5, argc > 2 ? std::max(100, std::atoi(argv[2])) : 10000);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
