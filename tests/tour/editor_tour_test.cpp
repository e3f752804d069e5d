#include "editor/work_surface.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/text_box.h"
#include "program_tour.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize photographSize(4000, 3000);  // twelve megapixels

/// The editor as a person works with it, from the main window and back.
class TestEditorTour : public QObject {
    Q_OBJECT

    static void enterEditor(const ProgramTour& tour) {
        tour.start();
        tour.trigger(u"frmTp"_s, u"mnuCl"_s);
        QTRY_VERIFY(tour.window(u"frmCl"_s) && !tour.window(u"frmTp"_s));
    }
    static void press(const QString& key) { ProgramTour::click(u"frmCl"_s, u"tlb1:"_s + key); }
    static WorkSurface* picYu() { return ProgramTour::find<WorkSurface>(u"frmCl"_s, u"picYu"_s); }
    static QSize size() { return picYu()->picture().size(); }
    static void answer(const QString& text) {
        auto* box = ProgramTour::find<TextBox>(u"frmCl"_s, u"txtCq"_s);
        box->clear();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
    }
    static void crop(QPoint from, QPoint to) {
        press(u"cj"_s);
        QTest::mousePress(picYu(), Qt::LeftButton, {}, from);
        QTest::mouseMove(picYu(), to);
        QTest::mouseRelease(picYu(), Qt::LeftButton, {}, to);
        ProgramTour::click(u"frmCl"_s, u"cmdCq(0)"_s);
    }
    static void openPhotograph(ProgramTour& tour) {
        tour.file = tour.catalogue.file(u"照 片.jpg"_s);
        writePicture(tour.file, photographSize, Qt::darkCyan);
        enterEditor(tour);
        press(u"wk"_s);
    }
    static bool isWelcome() { return ProgramTour::find<QWidget>(u"frmCl"_s, u"img1"_s)->isVisible(); }

    std::optional<ProgramTour> tour_;

  private Q_SLOTS:
    void init() { tour_.emplace(); }

    void everyOperationAndBackToTheEmptyWindow() {
        openPhotograph(*tour_);
        QCOMPARE(size(), photographSize);
        press(u"sf"_s);
        answer(u".5"_s);
        press(u"xz"_s);
        answer(u"33"_s);
        const QSize turned = size();
        QVERIFY(turned.width() > 2000 && turned.height() > 1500);
        for (const QString& flip : {u"fs"_s, u"fc"_s}) press(flip);
        QTest::keyClick(tour_->window(u"frmCl"_s), Qt::Key_1, Qt::ControlModifier);
        crop({100, 100}, {500, 400});
        QCOMPARE(size(), QSize(400, 300));
        QVERIFY(tour_->window(u"frmCl"_s)->windowTitle().endsWith(u" [ *0.5 33度 水平翻转 垂直翻转 裁剪]"));

        const QString photograph = std::exchange(tour_->file, tour_->catalogue.file(u"副本.bmp"_s));
        press(u"lc"_s);
        QCOMPARE(LoadPicture(tour_->file).pixels(), QSize(400, 300));

        // Each way back closes the dialog that the step before has opened again, then takes the next step.
        for (int step = 0; step < 12 && !isWelcome(); ++step) press(u"cx"_s);
        QVERIFY(isWelcome());
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tccx"_s).rowCount(), 0);
        QCOMPARE(LoadPicture(photograph).pixels(), photographSize);
    }

    void aChangedAlbumPictureReachesThePage() {
        enterEditor(*tour_);
        press(u"sk"_s);
        tour_->chooseAlbum(u"frmCl"_s, u"tc01 旅行"_s);
        tour_->clickRow(u"frmCl"_s, 3);
        tour_->click(u"frmCl"_s, u"cmdQd"_s);
        QCOMPARE(size(), QSize(100, 50));
        press(u"xz"_s);
        answer(u"90"_s);
        press(u"bc"_s);
        QCOMPARE(tour_->said.last(), u"图片已保存完毕！(序号＝4)"_s);
        const QSize turned = size();
        QVERIFY(turned.height() >= 100);

        tour_->trigger(u"frmCl"_s, u"mnuFh"_s);
        QTRY_VERIFY(tour_->window(u"frmTp"_s) && !tour_->window(u"frmCl"_s));
        tour_->showAlbum(u"旅行"_s, 2);
        const auto* cell = tour_->find<ImageBox>(u"frmTp"_s, u"imgXs(3)"_s);
        QTRY_COMPARE(cell->picture().pixels(), turned);
        QVERIFY(cell->height() > cell->width());
    }

    // A session that was killed could not do it itself.
    void theStartEmptiesTheSteps() {
        for (const QString& step : {u"01"_s, u"02"_s}) addRow(u"tccx"_s, {{u"编号"_s, step}});
        tour_->start();
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tccx"_s).rowCount(), 0);
    }

    void buttonPicturesBothWays() {
        openPhotograph(*tour_);
        press(u"at"_s);
        tour_->option(u"frmCl"_s, u"optAn(0)"_s);
        tour_->option(u"frmCl"_s, u"optAn(2)"_s);
        tour_->clickRow(u"frmCl"_s, 3);
        tour_->click(u"frmCl"_s, u"cmdCk"_s);
        QCOMPARE(tour_->said.last(), u"按钮图片已保存完毕！(序号＝4)"_s);

        tour_->file = tour_->catalogue.file(u"钮.jpg"_s);
        tour_->option(u"frmCl"_s, u"optAn(3)"_s);
        QCOMPARE(LoadPicture(tour_->file).pixels(), QSize(100, 75));

        // The button without a picture has one now: the main window offers it.
        tour_->trigger(u"frmCl"_s, u"mnuFh"_s);
        QTRY_VERIFY(tour_->window(u"frmTp"_s));
        tour_->openInViewer(u"旅行"_s);
        const auto* offered = tour_->find<ImageBox>(u"frmTp"_s, u"imgAn(3)"_s);
        QVERIFY(offered->isVisible());
        QCOMPARE(offered->toolTip(), u"无图"_s);
    }
};

const Registered<TestEditorTour> registered;

}  // namespace

#include "editor_tour_test.moc"
