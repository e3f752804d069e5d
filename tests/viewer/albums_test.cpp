#include "../support/run_all.h"
#include "platform/desktop/placing.h"
#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void addAlbum(const QString& table, const QString& title, int number) {
    mekTp::catalogue.Execute(u"CREATE TABLE "_s + table +
                             u" ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),[日期] DATETIME,[图片] "
                             u"LONGBINARY,[备注] TEXT(50))"_s);
    Recordset albums = mekTp::catalogue.OpenRecordset(u"tcbm"_s);
    albums.AddNew();
    albums.Fields(u"序号"_s).SetValue(number);
    albums.Fields(u"表名"_s).SetValue(table);
    albums.Fields(u"标题"_s).SetValue(title);
    albums.Update();
}

void addButtons(int count) {
    Recordset buttons = mekTp::catalogue.OpenRecordset(u"tcan"_s);
    for (int i = 0; i < count; ++i) {
        buttons.AddNew();
        buttons.Fields(u"序号"_s).SetValue(10 + i);
        buttons.Fields(u"编号"_s).SetValue(QString(QChar(u'A' + i)));
        buttons.Fields(u"名称"_s).SetValue(u"按钮%1"_s.arg(i));
        buttons.Fields(u"图册"_s).SetValue(u"tc01"_s);
        buttons.Fields(u"图片"_s).SetValue(pictureBytes({100, 75}, Qt::blue));
        buttons.Update();
    }
}

class TestAlbums : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void openFromMenu() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        QCOMPARE(mekTp::currentTable, u"tc01"_s);
        QCOMPARE(viewer.panel(2), u"旅行(tc01) 共 10 张"_s);
        QCOMPARE(viewer.panel(3), u"全部"_s);
        QCOMPARE(viewer.keyImage(u"dk"_s), u"hs"_s);
        QCOMPARE(viewer.key(u"dk"_s)->toolTip(), u"关闭像册"_s);
        QCOMPARE(ViewerWindow::setting(u"当前像册"_s), Variant(u"01"_s));
        QVERIFY(viewer.find<QAction>(u"mnuCd(1)"_s)->isChecked());
        QVERIFY(!viewer.find<QAction>(u"mnuCd(0)"_s)->isChecked());
        QVERIFY(viewer.shows(u"pic0"_s));
        QVERIFY(viewer.shows(u"shpAn"_s));
        QCOMPARE(viewer.image(u"imgAn(1)"_s)->toolTip(), u"风景"_s);
        QVERIFY(!viewer.shows(u"imgAn(3)"_s));  // a button without a picture has no place
    }

    void closeAndOpenFromList() {
        const ViewerWindow viewer;
        viewer.openAlbum(1);
        viewer.press(u"dk"_s);
        QCOMPARE(mekTp::currentTable, u"tc00"_s);
        QCOMPARE(viewer.panel(2), u"未打开图册"_s);
        QCOMPARE(viewer.panel(3), QString());
        QCOMPARE(viewer.key(u"dk"_s)->toolTip(), u"打开像册"_s);
        QCOMPARE(ViewerWindow::setting(u"当前像册"_s).textOr(), QString());
        QVERIFY(!viewer.find<QAction>(u"mnuXs"_s)->isEnabled());
        QVERIFY(!viewer.find<QAction>(u"mnuTg"_s)->isEnabled());

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
    }

    void lastLineOfTheListOpensThePreset() {
        const ViewerWindow viewer;
        viewer.press(u"dk"_s);
        viewer.press(u"dk"_s);
        viewer.chooseLine(u" 演 示"_s);
        QCOMPARE(mekTp::currentTable, u"tc00"_s);
        QCOMPARE(viewer.panel(2), u"演示(tc00) 共 3 张"_s);
        QVERIFY(viewer.boxes.isEmpty());
    }

    void equalTitlesOpenTheirOwnTables() {
        const ViewerWindow viewer([] { addAlbum(u"tc03"_s, u"旅行"_s, 4); });
        viewer.openAlbum(3);
        QCOMPARE(mekTp::currentTable, u"tc03"_s);
        viewer.openAlbum(1);
        QCOMPARE(mekTp::currentTable, u"tc01"_s);
    }

    void lastAlbumIsFoundByItsPlace() {
        const ViewerWindow viewer([] {
            addAlbum(u"tc09"_s, u"重号"_s, 3);  // bears the number of the album before it
            ViewerWindow::setSetting(u"当前像册"_s, u"09"_s);
        });
        QCOMPARE(mekTp::currentTable, u"tc09"_s);
        QVERIFY(viewer.find<QAction>(u"mnuCd(3)"_s)->isChecked());
    }

    void moreAlbumsThanAMenuUsedToHold() {
        const ViewerWindow viewer([] {
            for (int i = 3; i < 30; ++i) addAlbum(u"tc%1"_s.arg(i, 2, 10, QChar(u'0')), u"第%1册"_s.arg(i), i + 1);
        });
        viewer.openAlbum(29);
        QCOMPARE(mekTp::currentTable, u"tc29"_s);
        QCOMPARE(viewer.panel(2), u"第29册(tc29) 共 0 张"_s);
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

    void damagedAlbumTellsWhatFailed() {
        const ViewerWindow viewer;
        mekTp::catalogue.Execute(u"DROP TABLE [tc01]"_s);
        viewer.openAlbum(1);
        QCOMPARE(viewer.boxes.size(), 1);
        QVERIFY(viewer.boxes[0].startsWith(u"错误提示|"_s));
        QVERIFY(viewer.boxes[0].contains(u"tc01"_s));
    }

    // Nothing of the album before shows under the name of one that does not open.
    void damagedAlbumAfterAGoodOne() {
        const OpenPage viewer(2);
        mekTp::catalogue.Execute(u"DROP TABLE [tc02]"_s);
        viewer.openAlbum(2);
        QCOMPARE(viewer.boxes.size(), 1);
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
        QCOMPARE(mekTp::currentTable, u"tc00"_s);
        QCOMPARE(viewer.keyImage(u"dk"_s), u"dk"_s);
        QCOMPARE(viewer.key(u"dk"_s)->toolTip(), u"打开像册"_s);
        QCOMPARE(viewer.panel(2), u"未打开图册"_s);
        QCOMPARE(viewer.panel(3), QString());
        QVERIFY(viewer.shows(u"pic0"_s));
        QVERIFY(!viewer.find<QAction>(u"mnuTg"_s)->isEnabled());
        QVERIFY(!viewer.find<QAction>(u"mnuXs"_s)->isEnabled());
        QVERIFY(!viewer.find<QAction>(u"mnuCd(1)"_s)->isChecked());
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
        const ViewerWindow viewer([] { addButtons(12); });
        viewer.openAlbum(1);
        viewer.window->resize(960, 720);  // six buttons to a column
        QCOMPARE(viewer.image(u"imgAn(0)"_s)->toolTip(), u"全部"_s);
        QVERIFY(viewer.shows(u"imgXy"_s));
        QCOMPARE(viewer.image(u"imgSy"_s)->toolTip(), QString());
        viewer.click(u"imgXy"_s);
        QCOMPARE(viewer.image(u"imgAn(0)"_s)->toolTip(), u"按钮3"_s);
        QCOMPARE(viewer.image(u"imgSy"_s)->toolTip(), u" 上一页"_s);
        viewer.click(u"imgXy"_s);
        QCOMPARE(viewer.image(u"imgAn(0)"_s)->toolTip(), u"按钮9"_s);
        QVERIFY(!viewer.shows(u"imgXy"_s));
        QVERIFY(!viewer.shows(u"imgAn(3)"_s));
        viewer.click(u"imgSy"_s);
        viewer.click(u"imgSy"_s);
        QCOMPARE(viewer.image(u"imgAn(0)"_s)->toolTip(), u"全部"_s);
        QCOMPARE(viewer.image(u"imgSy"_s)->toolTip(), QString());
        QVERIFY(viewer.shows(u"imgXy"_s));
    }

    void lostButtonsLeadBackToTheFirst() {
        const ViewerWindow viewer([] { addButtons(12); });
        viewer.openAlbum(1);
        viewer.window->resize(960, 720);
        mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE 序号 >= 10"_s);
        viewer.click(u"imgXy"_s);
        QCOMPARE(viewer.image(u"imgAn(0)"_s)->toolTip(), u"全部"_s);
        QCOMPARE(viewer.image(u"imgSy"_s)->toolTip(), QString());
    }

    void columnGrowsBeyondElevenButtons() {
        const ViewerWindow viewer([] { addButtons(12); });
        viewer.openAlbum(1);
        viewer.window->resize(960, 1200);
        QVERIFY(viewer.shows(u"imgAn(11)"_s));
        QVERIFY(viewer.boxes.isEmpty());
    }

    void rollOver() {
        const ViewerWindow viewer([] { addButtons(12); });
        viewer.openAlbum(1);
        viewer.window->resize(960, 720);
        const auto* upper = viewer.find<LineBox>(u"linS"_s);
        const auto* lower = viewer.find<LineBox>(u"linX"_s);
        auto* second = viewer.image(u"imgAn(1)"_s);
        Q_EMIT second->mouseMoved();
        QVERIFY(upper->isVisible());
        QCOMPARE(upper->y1(), topOf(second) - 30);
        QCOMPARE(lower->y1(), topOf(second) + 1245);
        Q_EMIT second->mousePressed();
        QCOMPARE(upper->color(), QColor(0x80, 0x80, 0x80));
        Q_EMIT second->mouseReleased();
        QCOMPARE(upper->color(), QColor(Qt::white));

        // The sixth button answers as the upper corner does, which has nothing before it.
        Q_EMIT viewer.image(u"imgAn(5)"_s)->mouseMoved();
        QCOMPARE(upper->y1(), topOf(viewer.image(u"imgSy"_s)) - 30);
        QVERIFY(!upper->isVisible());
        Q_EMIT viewer.image(u"imgXy"_s)->mouseMoved();
        QCOMPARE(lower->y1(), topOf(viewer.image(u"imgXy"_s)) + 255);
        QTest::mouseMove(viewer.window->centralWidget(), QPoint(4, 200));
        QTRY_VERIFY(!upper->isVisible());
    }
};

const Registered<TestAlbums> registered;

}  // namespace

#include "albums_test.moc"
