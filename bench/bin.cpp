// Times the bin: an album of 1,000 pictures of 3 MB goes into it and comes back, and a bin of 100,000 items is opened
// and scrolled. Run by hand: bench_bin [pictures [items]]

#include "../tests/support/found.h"
#include "../tests/support/sample_catalogue.h"
#include "bin/frm_hs.h"
#include "catalogue/album_directory.h"
#include "catalogue/bin_restoring.h"
#include "catalogue/mektp.h"
#include "filling.h"
#include "platform/desktop/look.h"
#include "table.h"

#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "bin";
constexpr qint64 pictureLength = 3000000;
constexpr int mostForAlbum = 50;
constexpr int mostToOpen = 400;
constexpr int mostToScroll = 16;  ///< A frame of the screen.
constexpr int steps = 200;

QByteArray photograph() {
    QByteArray bytes = pictureBytes({400, 300}, Qt::darkGreen);
    return bytes.append(QByteArray(pictureLength - bytes.size(), 'x'));
}

void timeAlbum(int pictures) {
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, pictures, [bytes = photograph()](int) { return bytes; });
    const std::string these = std::to_string(pictures) + " pictures of 3 MB";
    std::vector<double> away, back;
    for (int i = 0; i < 5; ++i) {
        away.push_back(milliseconds([] { deleteAlbum(mekTp::catalogue, u"tc01"_s); }));
        back.push_back(milliseconds([] { restoreFromBin(mekTp::catalogue, {binItems(mekTp::catalogue).front()}); }));
    }
    row(topic,
        {.what = "delete an album of " + these + " into the bin", .measured = median(away), .atMost = mostForAlbum});
    row(topic, {.what = "put it back", .measured = median(back), .atMost = mostForAlbum});
}

void fillBin(int items) {
    const OwnRows rows(mekTp::catalogue);
    rows.run(
        u"INSERT INTO long_binary (bytes) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
        "WHERE i < ?) SELECT ? FROM n"_s,
        {items, pictureBytes({160, 120}, Qt::darkGreen)});
    rows.run(
        u"INSERT INTO lunq_bin (removal, kind, removed, album, title, 序号, 编号, 备注, 图片, bytes) "
        "SELECT id, 'deleted', '2026-11-22 12:00:00', 'tc01', '旅行', id, '12', '图片', id, length(bytes) "
        "FROM long_binary ORDER BY id DESC LIMIT ?"_s,
        {items});
}

void timeWindow(int items) {
    fillBin(items);
    const std::string these = std::to_string(items) + " items";
    QWidget parent;
    QPointer<frmHs> bin;
    const double opening = milliseconds([&] {
        bin = new frmHs(mekTp::catalogue, &parent);
        bin->show();
        QCoreApplication::processEvents();
    });
    row(topic, {.what = "open a bin of " + these, .measured = opening, .atMost = mostToOpen});
    QScrollBar* scroll = found<QTableView>(bin, u"lstHs"_s)->verticalScrollBar();
    std::vector<double> times;
    for (int i = 1; i <= steps; ++i)
        times.push_back(milliseconds([&] {
            scroll->setValue(int(qint64(scroll->maximum()) * i / steps));
            bin->repaint();
            QCoreApplication::processEvents();
        }));
    std::ranges::sort(times);
    row(topic, {.what = "scroll it by a page, the slowest but two of 100",
                .measured = times[times.size() * 98 / 100],
                .atMost = mostToScroll});
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    {
        const SampleCatalogue sample;
        mekTp::openCatalogue();
        timeAlbum(argc > 1 ? std::max(1, std::atoi(argv[1])) : 1000);
    }
    const SampleCatalogue sample;
    mekTp::openCatalogue();
    timeWindow(argc > 2 ? std::max(100, std::atoi(argv[2])) : 100000);
}
