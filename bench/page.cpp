// Times the drawing of album pages in the main window: an album of 2,000 rows with 36 different photographs of 12
// megapixels. Run by hand: bench_page [rounds]

#include "../tests/support/recording_windows.h"
#include "../tests/support/sample_catalogue.h"
#include "catalogue/mektp.h"
#include "platform/desktop/look.h"
#include "platform/desktop/text_box.h"
#include "scene.h"
#include "timing.h"
#include "viewer/frm_tp.h"

#include <QApplication>
#include <QBuffer>
#include <QImageWriter>
#include <QToolButton>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rows = 2000;
constexpr int photographs = 36;

QByteArray coded(const QImage& image) {
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(85);
    writer.write(image);
    return buffer.data();
}

// The rows behind the pages that are timed only make the album long: one small picture serves them all.
void fillAlbum() {
    const QByteArray small = pictureBytes({400, 300}, Qt::darkGreen);
    Transaction together(mekTp::catalogue);
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    for (int i = 0; i < rows; ++i) {
        const bool isPhotograph = i < photographs;
        const QByteArray bytes = isPhotograph ? coded(photograph(i)) : small;
        album.AddNew();
        album.Fields(u"序号"_s).SetValue(i + 1);
        album.Fields(u"编号"_s).SetValue(u"1"_s);
        album.Fields(u"大小"_s).SetValue(float(double(bytes.size()) / 1000.0));
        album.Fields(u"规格"_s).SetValue(isPhotograph ? u"4000 * 3000"_s : u"400 * 300"_s);
        album.Fields(u"日期"_s).SetValue(QDateTime(QDate(2003, 10, 1), QTime(12, 0)));
        album.Fields(u"图片"_s).SetValue(bytes);
        album.Update();
    }
    together.commit();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const SampleCatalogue catalogue;
    fillAlbum();

    RecordingWindows windows;
    frmTp window(windows);
    window.resize(1280, 900);
    window.show();
    window.findChild<QAction*>(u"mnuCd(1)"_s)->trigger();
    auto* columns = window.findChild<TextBox*>(u"txtLs"_s);
    auto* first = window.findChild<QToolButton*>(u"tlb1:ty"_s);
    std::printf("album of %d pictures\n", rows);
    for (const int count : {6, 3, 1}) {
        columns->setText(QString::number(count) + u'列');
        const double page = medianMilliseconds(rounds, [&] {
            first->click();
            window.grab();
        });
        std::printf("  page of %-2d %9.1f ms (%.1f each)\n", count * count, page, page / (count * count));
    }
}
