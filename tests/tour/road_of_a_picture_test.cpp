#include "platform/desktop/file_lists.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "program_tour.h"

using namespace Qt::Literals::StringLiterals;

/// One window after another, by the clicks of a person: what one window does has to reach the next.
class TestRoadOfAPicture : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void fromAFolderToAPage() {
        ProgramTour tour;
        const QTemporaryDir photographs;
        for (int i = 1; i <= 5; ++i)
            writePicture(photographs.filePath(u"%1.jpg"_s.arg(i)), QSize(64, 48), QColor::fromHsv(60 * i, 255, 200));

        tour.start();
        tour.leave(u"frmTp"_s, u"tlb1:bj"_s, u"frmSz"_s);
        tour.click(u"frmSz"_s, u"cmdJl"_s);
        tour.find<TextBox>(u"frmSz"_s, u"txtBa"_s)->setText(u"tc07"_s);
        tour.find<TextBox>(u"frmSz"_s, u"txtBb"_s)->setText(u"海边"_s);
        tour.click(u"frmSz"_s, u"cmdJl"_s);
        QCOMPARE(tour.said, QStringList{u"新的像册数据表建立完成！"_s});

        tour.find<TabControl>(u"frmSz"_s, u"sstFz"_s)->setCurrentIndex(1);
        tour.chooseAlbum(u"frmSz"_s, u"tc07 海边"_s);
        tour.click(u"frmSz"_s, u"optYl(0)"_s);
        tour.click(u"frmSz"_s, u"optCz(1)"_s);
        tour.find<DirList>(u"frmSz"_s, u"dir1"_s)->setPath(photographs.path());
        tour.click(u"frmSz"_s, u"cmdQx"_s);
        tour.click(u"frmSz"_s, u"cmdLr"_s);
        QCOMPARE(tour.said.last(), u"图片录入完成！  共录入：5张"_s);
        QCOMPARE(tour.find<QLabel>(u"frmSz"_s, u"lblJl"_s)->text(), u"表 [tc07 海边] 共有记录：5 条"_s);

        tour.leave(u"frmSz"_s, u"cmdFh"_s, u"frmTp"_s);
        tour.openInViewer(u"海边"_s);
        QVERIFY(tour.anyLabelSays(u"frmTp"_s, u"海边(tc07) 共 5 张"_s));

        tour.showAlbum(u"海边"_s, 2);
        QVERIFY(tour.anyLabelSays(u"frmTp"_s, u"共5张 共2页"_s));
        for (int i = 0; i < 4; ++i) {
            auto* cell = tour.find<ImageBox>(u"frmTp"_s, u"imgXs(%1)"_s.arg(i));
            QCOMPARE(cell->picture().pixels(), QSize(64, 48));
            const QColor seen = cell->grab().toImage().pixelColor(cell->width() / 2, cell->height() / 2);
            QVERIFY(qAbs(seen.hsvHue() - 60 * (i + 1) % 360) < 8);
        }
    }

    /// What the viewer remembers survives the other window.
    void returningOpensTheSameAlbum() {
        const ProgramTour tour;
        tour.start();
        tour.openInViewer(u"旅行"_s);
        tour.leave(u"frmTp"_s, u"tlb1:bj"_s, u"frmSz"_s);
        tour.leave(u"frmSz"_s, u"cmdFh"_s, u"frmTp"_s);
        QCOMPARE(mekTp::currentTable, u"tc01"_s);
        QVERIFY(tour.anyLabelSays(u"frmTp"_s, u"旅行(tc01) 共 10 张"_s));
    }
};

const Registered<TestRoadOfAPicture> registered;

#include "road_of_a_picture_test.moc"
