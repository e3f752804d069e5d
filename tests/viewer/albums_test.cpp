#include "catalogue/album_rules.h"
#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void addAlbum(const QString& table, const QString& title, int number) {
    mekTp::catalogue.Execute(createAlbumSql(table));
    addRow(u"tcbm"_s, {{u"序号"_s, number}, {u"表名"_s, table}, {u"标题"_s, title}});
}

/// Album 旅行 with twelve buttons more, in a window that has room for six to a column.
struct ManyButtons : ViewerWindow {
    ManyButtons() : ViewerWindow(addButtons) {
        openAlbum(1);
        window->resize(960, 720);
    }
    QString firstButton() const { return image(u"imgAn(0)"_s)->toolTip(); }
    QString upperCorner() const { return image(u"imgSy"_s)->toolTip(); }

  private:
    static void addButtons() {
        for (int i = 0; i < 12; ++i)
            addRow(u"tcan"_s, {{u"序号"_s, 10 + i},
                               {u"编号"_s, QString(QChar(u'A' + i))},
                               {u"名称"_s, u"按钮%1"_s.arg(i)},
                               {u"图册"_s, u"tc01"_s},
                               {u"图片"_s, pictureBytes({100, 75}, Qt::blue)}});
    }
};

class TestAlbums : public QObject {
    Q_OBJECT

    static void verifyClosed(const ViewerWindow& viewer) {
        QCOMPARE(mekTp::currentTable, u"tc00"_s);
        QCOMPARE(viewer.panel(2), u"未打开图册"_s);
        QCOMPARE(viewer.panel(3), QString());
        QCOMPARE(viewer.keyImage(u"dk"_s), u"dk"_s);
        QCOMPARE(viewer.key(u"dk"_s)->toolTip(), u"打开像册"_s);
        QVERIFY(viewer.shows(u"pic0"_s) && !viewer.menu(u"mnuCd(1)"_s)->isChecked());
        for (const QString& item : {u"mnuXs"_s, u"mnuTg"_s}) QVERIFY(!viewer.menu(item)->isEnabled());
    }

  private Q_SLOTS:
    void openFromMenu() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        QCOMPARE(mekTp::currentTable, u"tc01"_s);
        QCOMPARE(viewer.panel(2), u"旅行(tc01) 共 10 张"_s);
        QCOMPARE(viewer.panel(3), u"全部"_s);
        QCOMPARE(viewer.keyImage(u"dk"_s), u"hs"_s);
        QCOMPARE(viewer.key(u"dk"_s)->toolTip(), u"关闭像册"_s);
        QCOMPARE(ViewerWindow::setting(u"当前像册"_s), FieldValue(u"01"_s));
        QVERIFY(viewer.menu(u"mnuCd(1)"_s)->isChecked());
        QVERIFY(!viewer.menu(u"mnuCd(0)"_s)->isChecked());
        QVERIFY(viewer.shows(u"pic0"_s) && viewer.shows(u"shpAn"_s));
        QCOMPARE(viewer.image(u"imgAn(1)"_s)->toolTip(), u"风景"_s);
        QVERIFY(!viewer.shows(u"imgAn(3)"_s));  // a button without a picture has no place
    }

    void closeAndOpenFromList() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        viewer.press(u"dk"_s);
        verifyClosed(viewer);
        QCOMPARE(ViewerWindow::setting(u"当前像册"_s).textOr(), QString());

        viewer.press(u"dk"_s);
        auto* list = viewer.find<ListBox>(u"lstLs"_s);
        QVERIFY(list->isVisible());
        QCOMPARE(list->ListCount(), 4);
        QCOMPARE(list->List(1), u" 旅行"_s);
        QCOMPARE(list->List(3), u" 演 示"_s);
        viewer.chooseLine(u" 旅行"_s);
        QVERIFY(!list->isVisible());
        QCOMPARE(mekTp::currentTable, u"tc01"_s);
        QCOMPARE(viewer.key(u"dk"_s)->toolTip(), u"合上像册"_s);
        viewer.press(u"dk"_s);
        viewer.press(u"dk"_s);
        viewer.chooseLine(u" 演 示"_s);
        QCOMPARE(mekTp::currentTable, u"tc00"_s);
        QCOMPARE(viewer.panel(2), u"演示(tc00) 共 3 张"_s);
        QVERIFY(viewer.boxes.isEmpty());
    }

    void ofEqualTitlesTheFirstOpens() {
        const ViewerWindow viewer([] {
            addAlbum(u"tc09"_s, u"旅行"_s, 3);  // bears the title of an album before it
            ViewerWindow::setSetting(u"当前像册"_s, u"09"_s);
        });
        const auto verifyFirst = [&] {
            QCOMPARE(mekTp::currentTable, u"tc01"_s);
            QVERIFY(viewer.menu(u"mnuCd(1)"_s)->isChecked() && !viewer.menu(u"mnuCd(3)"_s)->isChecked());
        };
        verifyFirst();
        viewer.openAlbum(2);
        viewer.openAlbum(3);
        verifyFirst();
        QCOMPARE(viewer.panel(2), u"旅行(tc01) 共 10 张"_s);
        QVERIFY(viewer.find<QMenu>(u"mnuDk"_s)->toolTipsVisible());
        QCOMPARE(viewer.menu(u"mnuCd(1)"_s)->toolTip(), u"tc01"_s);
        QVERIFY(viewer.menu(u"mnuCd(3)"_s)->toolTip().startsWith(u"tc09"_s));
    }

    // The page of the album before is out of sight, in the full view as well.
    void openingDrawsTheCurtain() {
        for (const bool isViewing : {false, true}) {
            const OpenPage viewer(2);
            if (isViewing) viewer.openPicture(3);
            viewer.openAlbum(0);
            QVERIFY(viewer.shows(u"pic0"_s) && !viewer.shows(u"txtB0"_s));
            QCOMPARE(viewer.image(u"img0"_s)->size(), viewer.find(u"pic0"_s)->size());
            QCOMPARE(viewer.image(u"img0"_s)->picture().pixels(), QSize(64, 48));  // one of the curtains
            for (const QString& key : {u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s}) QVERIFY(viewer.key(key)->isEnabled());
            viewer.click(u"img0"_s);
            QVERIFY(!viewer.shows(u"pic0"_s));
            QCOMPARE(viewer.pictureIn(2), 3);
            QVERIFY(viewer.isEmptyCell(3));
        }
    }

    // Whatever the shape of the window, a square in a cover or curtain is a square, and the panel is full.
    void coversAreNotDistorted() {
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::white);
        for (int x = 150; x < 250; ++x)
            for (int y = 100; y < 200; ++y) image.setPixel(x, y, qRgb(0, 0, 0));
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QVERIFY(image.save(&buffer, "BMP"));
        const ViewerWindow viewer([&] {
            changeRow(u"tcsz"_s, {{u"封面"_s, bytes}});
            for (int number = 7; number <= 12; ++number)
                changeRow(u"SELECT * FROM pmtp WHERE 序号 = %1"_s.arg(number), {{u"图片"_s, bytes}});
        });
        viewer.window->setMinimumSize(0, 0);
        const auto verifySquare = [&] {
            for (const QSize size : {QSize(1920, 1080), {600, 900}, {960, 720}}) {
                viewer.window->resize(size);
                QVERIFY(viewer.shows(u"img0"_s));
                const QImage seen = viewer.find(u"img0"_s)->grab().toImage();
                QCOMPARE(seen.size(), viewer.find(u"pic0"_s)->size());
                const auto isBlack = [&](int x, int y) { return qGray(seen.pixel(x, y)) < 128; };
                int width = 0, height = 0;
                for (int x = 0; x < seen.width(); ++x) width += isBlack(x, seen.height() / 2) ? 1 : 0;
                for (int y = 0; y < seen.height(); ++y) height += isBlack(seen.width() / 2, y) ? 1 : 0;
                QVERIFY2(width > 100 && qAbs(width - height) < 8, qPrintable(u"%1 x %2"_s.arg(width).arg(height)));
                for (const QPoint corner : {seen.rect().topLeft(), seen.rect().bottomRight()})
                    QCOMPARE(seen.pixelColor(corner), QColor(Qt::white));
            }
        };
        viewer.openAlbum(1);
        viewer.press(u"dk"_s);  // the cover
        verifySquare();
        viewer.openAlbum(1);
        viewer.click(u"img0"_s);
        viewer.openAlbum(0);  // a curtain
        verifySquare();
    }

    void aClickOnTheCoverDrawsThePage() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        viewer.click(u"img0"_s);
        QVERIFY(!viewer.shows(u"pic0"_s));
        QCOMPARE(viewer.pictureIn(0), 1);
        QCOMPARE(viewer.text(u"txtYh"_s), u"1"_s);
        QCOMPARE(viewer.panel(3), u"全部 第 1 张"_s);
        viewer.press(u"dk"_s);  // no album any more
        viewer.click(u"img0"_s);
        QVERIFY(viewer.shows(u"pic0"_s));
        viewer.openAlbum(1);
        QTest::keyClick(viewer.window->centralWidget(), Qt::Key_Return);
        QVERIFY(!viewer.shows(u"pic0"_s));
        QVERIFY(viewer.boxes.isEmpty());
    }

    void moreAlbumsThanAMenuUsedToHold() {
        const ViewerWindow viewer([] {
            for (int i = 3; i < 30; ++i) addAlbum(u"tc%1"_s.arg(i, 2, 10, QChar(u'0')), u"第%1册"_s.arg(i), i + 1);
        });
        viewer.openAlbum(29);
        QCOMPARE(viewer.panel(2), u"第29册(tc29) 共 0 张"_s);
    }

    void emptiedMenuOpensThePresetAlbum() {
        const ViewerWindow viewer([] { mekTp::catalogue.Execute(u"DELETE FROM [tcbm]"_s); });
        QCOMPARE(viewer.panel(2), u"演示(tc00) 共 3 张"_s);
        QCOMPARE(viewer.menu(u"mnuCd(0)"_s)->text(), u"演示"_s);
        QVERIFY(viewer.menu(u"mnuCd(0)"_s)->isChecked() && viewer.boxes.isEmpty());
    }

    void emptyAlbumStaysInert() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        viewer.chooseButton(0);
        viewer.openAlbum(2);
        QCOMPARE(viewer.panel(2), u"空册(tc02) 共 0 张"_s);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.panel(3), u"翻页已到文件尾！"_s);
        viewer.press(u"ty"_s);
        QCOMPARE(viewer.panel(3), u"全部 第 0 张"_s);
        QVERIFY(viewer.boxes.isEmpty());
    }

    // Nothing of the album before shows under the name of one that does not open.
    void damagedAlbumTellsWhatFailed() {
        const OpenPage viewer(2);
        mekTp::catalogue.Execute(u"DROP TABLE [tc02]"_s);
        viewer.openAlbum(2);
        QCOMPARE(viewer.boxes.size(), 1);
        QVERIFY(viewer.boxes[0].startsWith(u"错误提示|"_s) && viewer.boxes[0].contains(u"tc02"_s));
        verifyClosed(viewer);
        viewer.press(u"ty"_s);
        for (int cell = 0; cell < 4; ++cell) QVERIFY(viewer.isEmptyCell(cell));
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.panel(3), u"翻页已到文件尾！"_s);
    }

    void closedAlbumLeavesNothing() {
        const OpenPage viewer(2);
        viewer.press(u"dk"_s);
        QVERIFY(viewer.shows(u"pic0"_s));
        QCOMPARE(viewer.image(u"img0"_s)->picture().pixels(), QSize(80, 60));  // the cover
        for (const QString& key : {u"ty"_s, u"xs"_s, u"hy"_s}) {
            viewer.press(key);
            for (int cell = 0; cell < 4; ++cell) QVERIFY(viewer.isEmptyCell(cell));
        }
        QVERIFY(viewer.boxes.isEmpty());
    }

    void closingWhereNothingCanBeStored() {
        const OpenPage viewer(2);
        mekTp::catalogue.Execute(u"DROP TABLE [tcsz]"_s);
        viewer.press(u"dk"_s);
        QCOMPARE(viewer.boxes.size(), 1);
        QVERIFY(viewer.boxes[0].startsWith(u"错误提示|"_s));
        verifyClosed(viewer);
        viewer.openAlbum(1);  // it can still be looked at
        QCOMPARE(viewer.boxes.size(), 2);
        viewer.press(u"ty"_s);
        QCOMPARE(viewer.pictureIn(0), 1);
    }

    void buttonShowsItsPictures() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        viewer.chooseColumns(2);
        viewer.chooseButton(1);
        QCOMPARE(viewer.panel(2), u"旅行(tc01)[风景] 共 5 张"_s);
        QCOMPARE(viewer.panel(3), u"全部 共5张 共2页 第 1 张"_s);
        QVERIFY(!viewer.shows(u"pic0"_s));
        QCOMPARE(viewer.pictureIn(0), 1);
        QCOMPARE(viewer.pictureIn(3), 7);
        viewer.chooseButton(0);
        QCOMPARE(viewer.panel(2), u"旅行(tc01)[全部] 共 10 张"_s);
        QCOMPARE(viewer.pictureIn(3), 4);
        QCOMPARE(topOf(viewer.find(u"shpAn"_s)),
                 twipsFromPixels(pixelsFromTwips(topOf(viewer.find(u"imgAn(0)"_s)) - 10)));
    }

    void brokenButtonLeavesNoHourglass() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        mekTp::catalogue.Execute(u"DELETE FROM [tcan]"_s);
        viewer.chooseButton(1);
        QCOMPARE(viewer.boxes.size(), 1);
        QCOMPARE(viewer.image(u"imgAn(1)"_s)->cursor().shape(), Qt::ArrowCursor);
    }

    void cornersPageThroughTheButtons() {
        const ManyButtons viewer;
        const auto verifyFirstPage = [&] {
            QCOMPARE(viewer.firstButton(), u"全部"_s);
            QCOMPARE(viewer.upperCorner(), QString());
            QVERIFY(viewer.shows(u"imgXy"_s));
        };
        verifyFirstPage();
        viewer.click(u"imgXy"_s);
        QCOMPARE(viewer.firstButton(), u"按钮3"_s);
        QCOMPARE(viewer.upperCorner(), u" 上一页"_s);
        viewer.click(u"imgXy"_s);
        QCOMPARE(viewer.firstButton(), u"按钮9"_s);
        QVERIFY(!viewer.shows(u"imgXy"_s) && !viewer.shows(u"imgAn(3)"_s));
        viewer.click(u"imgSy"_s);
        viewer.click(u"imgSy"_s);
        verifyFirstPage();
        mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE 序号 >= 10"_s);
        viewer.click(u"imgXy"_s);  // what is gone leads back to the first
        QCOMPARE(viewer.firstButton(), u"全部"_s);
        QCOMPARE(viewer.upperCorner(), QString());
    }

    void columnGrowsBeyondElevenButtons() {
        const ManyButtons viewer;
        viewer.window->resize(960, 1200);
        QVERIFY(viewer.shows(u"imgAn(11)"_s));
        QVERIFY(viewer.boxes.isEmpty());
    }

    void rollOver() {
        const ManyButtons viewer;
        const auto* upper = viewer.find<LineBox>(u"linS"_s);
        const auto* lower = viewer.find<LineBox>(u"linX"_s);
        auto* second = viewer.image(u"imgAn(1)"_s);
        const auto moveTo = [](QWidget* control) {
            QTest::mouseMove(control, QPoint(3, 3));
            QTest::mouseMove(control);
        };
        moveTo(second);
        QTRY_VERIFY(upper->isVisible());
        QCOMPARE(upper->y1(), topOf(second) - 30);
        QCOMPARE(lower->y1(), topOf(second) + 1245);
        QTest::mousePress(second, Qt::LeftButton);
        QCOMPARE(upper->color(), QColor(0x80, 0x80, 0x80));
        QTest::mouseRelease(second, Qt::LeftButton);
        QCOMPARE(upper->color(), QColor(Qt::white));

        // The sixth button answers as the upper corner does, which has nothing before it.
        moveTo(viewer.image(u"imgAn(5)"_s));
        QTRY_COMPARE(upper->y1(), topOf(viewer.image(u"imgSy"_s)) - 30);
        QVERIFY(!upper->isVisible());
        moveTo(viewer.image(u"imgXy"_s));
        QTRY_COMPARE(lower->y1(), topOf(viewer.image(u"imgXy"_s)) + 255);
        QTest::mouseMove(viewer.window->centralWidget(), QPoint(4, 200));
        QTRY_VERIFY(!upper->isVisible());
    }

    /// They are for the open album, on the page that takes pictures in.
    void offeredPicturesGoToTheIntake() {
        const ViewerWindow viewer;
        QMimeData file;
        file.setUrls({QUrl::fromLocalFile(u"/a/b.jpg"_s)});
        const auto drop = [&] {
            QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &file, Qt::LeftButton, {});
            QApplication::sendEvent(viewer.window.get(), &enter);
            QDropEvent dropped(QPointF(300, 300), Qt::CopyAction, &file, Qt::LeftButton, {});
            QApplication::sendEvent(viewer.window.get(), &dropped);
        };
        drop();
        QTRY_COMPARE(viewer.windows.offers.size(), 1);
        viewer.openAlbum(1);
        QGuiApplication::clipboard()->setMimeData(new QMimeData);
        QTest::keyClick(viewer.window.get(), Qt::Key_V, Qt::ControlModifier);
        drop();
        QTRY_COMPARE(viewer.windows.offers.size(), 2);
        QCOMPARE(viewer.windows.offers[0].first, u"tc00"_s);
        QCOMPARE(viewer.windows.offers[1].first, u"tc01"_s);
        QCOMPARE(viewer.windows.offers[1].second.paths, QStringList{u"/a/b.jpg"_s});
    }
};

const Registered<TestAlbums> registered;

}  // namespace

#include "albums_test.moc"
