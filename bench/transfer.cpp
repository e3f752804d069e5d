// Times the page 图片转存, from the click to the closing message: pictures on their way out of an album, each of them
// read back, beside a plain copy of files of the same length. Run by hand: bench_transfer [rounds] [pictures]

#include "../tests/intake/transfer_window.h"
#include "bare_store.h"
#include "filling.h"
#include "photo_files.h"
#include "platform/desktop/look.h"
#include "run_meter.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "transfer";

void makeAlbum(const QString& table, const PhotoFiles& photographs, int count) {
    mekTp::catalogue.Execute(u"DELETE FROM [%1]"_s.arg(table));
    Transaction together(mekTp::catalogue);
    Recordset album = mekTp::catalogue.OpenRecordset(table);
    for (int number = 1; number <= count; ++number) {
        album.AddNew();
        album.Fields(u"序号"_s).SetValue(number);
        album.Fields(u"图片"_s).SetValue(photographs.bytes(number));
        album.Update();
    }
    together.commit();
}

/// All pictures of an album of the page, with the pictures of the test in it.
class Album {
  public:
    Album(const PhotoFiles& photographs, int count) : window_(QString()) {
        makeAlbum(u"tc01"_s, photographs, count);
        window_.choose(u"cboBm"_s, u"tc01"_s);
        window_.click(u"cmdQb"_s);
    }

    RunCost toFolder() {
        window_.chooseFolder();
        const RunCost cost = measureRun(window_, u"cmdWj"_s, u"选定的图片已全部转换成文件"_s);
        if (window_.exported().size() != window_.chosen().size()) throw Error(u"图片没有全部写成文件"_s);
        return cost;
    }
    RunCost toCatalogue(int count) {
        window_.source.Execute(createAlbumSql(u"tc02"_s));
        window_.chooseTable(u"tc02"_s);
        const RunCost cost = measureRun(window_, u"cmdFz"_s, u"图册《"_s);
        if (window_.source.OpenRecordset(u"tc02"_s).rowCount() != count) throw Error(u"图片没有全部复制"_s);
        return cost;
    }

  private:
    TransferWindow window_;
};

void compare(int rounds, int count) {
    const PhotoFiles photographs(4000, 91);
    const QTemporaryDir files;
    photographs.write(files.path(), count);
    RunCosts folder, catalogue;
    std::vector<double> copies;
    for (int i = 0; i < rounds; ++i) {
        {
            Album album(photographs, count);
            requireRun(u"sync"_s, {});
            folder.add(album.toFolder());
        }
        {
            Album album(photographs, count);
            requireRun(u"sync"_s, {});
            catalogue.add(album.toCatalogue(count));
        }
        const QTemporaryDir copy;
        requireRun(u"sync"_s, {});
        copies.push_back(milliseconds([&] { copyAndSync(files.path(), copy.filePath(u"copy"_s)); }));
    }
    const std::string these = std::to_string(count) + " pictures of 4 MB ";
    const auto tell = [&](const std::string& where, const RunCosts& costs, double atMost) {
        row(topic, {.what = these + where,
                    .measured = costs.time(),
                    .peer = "cp -r and sync of such files",
                    .peerMeasured = median(copies),
                    .timesPeer = atMost});
        costs.tellRest(topic, where);
    };
    tell("to a folder", folder, 1.5);
    tell("to a catalogue", catalogue, 2.5);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    try {
        compare(argc > 1 ? std::max(1, std::atoi(argv[1])) : 5, argc > 2 ? std::max(1, std::atoi(argv[2])) : 200);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
