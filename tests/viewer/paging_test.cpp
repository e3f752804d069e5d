#include "platform/desktop/accessibility.h"
#include "viewer/caption.h"
#include "viewer/cell_box.h"
#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

class TestPaging : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void throughTheAlbum() {
        const OpenPage viewer(2);
        QCOMPARE(viewer.pictureIn(0), 1);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(0), 5);
        QCOMPARE(viewer.text(u"txtYh"_s), u"2"_s);
        QCOMPARE(viewer.panel(3), u"全部 共10张 共3页 第 8 张"_s);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(1), 10);
        QCOMPARE(viewer.pictureIn(2), 0);
        QVERIFY(viewer.shows(u"shpXs(3)"_s));  // the frames of missing pictures stay
        QVERIFY(viewer.isEmptyCell(3));
        QCOMPARE(viewer.image(u"imgXs(3)"_s)->toolTip(), QString());
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.panel(3), u"翻页已到文件尾！"_s);
        QVERIFY(!viewer.key(u"xy"_s)->isEnabled());
        QCOMPARE(viewer.text(u"txtYh"_s), u"3"_s);
        viewer.press(u"sy"_s);
        QVERIFY(viewer.key(u"xy"_s)->isEnabled());
        viewer.press(u"sy"_s);
        viewer.press(u"sy"_s);
        QCOMPARE(viewer.panel(3), u"翻页已到文件头！"_s);
        QVERIFY(!viewer.key(u"sy"_s)->isEnabled());
        QCOMPARE(viewer.text(u"txtYh"_s), u"1"_s);
    }

    void lastPageIsFull() {
        const OpenPage viewer(2);
        viewer.press(u"hy"_s);
        QCOMPARE(viewer.pictureIn(0), 7);
        QCOMPARE(viewer.pictureIn(3), 10);
        QCOMPARE(viewer.text(u"txtYh"_s), u"3"_s);
        viewer.press(u"xs"_s);
        QCOMPARE(viewer.text(u"txtYh"_s), u"3"_s);
        // Only a number that a person has typed leads anywhere else.
        viewer.click(u"txtYh"_s);
        viewer.enter(u"txtYh"_s);
        QCOMPARE(viewer.pictureIn(0), 7);
        QCOMPARE(viewer.text(u"txtYh"_s), u"3"_s);
        QTest::keyClick(viewer.box(u"txtYh"_s), Qt::Key_A, Qt::ControlModifier);
        viewer.type(u"txtYh"_s, u"3"_s);
        viewer.enter(u"txtYh"_s);
        QCOMPARE(viewer.pictureIn(0), 9);
        viewer.press(u"hy"_s);
        viewer.press(u"ty"_s);
        QCOMPARE(viewer.pictureIn(0), 1);
        viewer.menu(u"mnuXs"_s)->trigger();
        QCOMPARE(viewer.pictureIn(0), 1);
        QCOMPARE(viewer.text(u"txtYh"_s), u"1"_s);

        const OpenPage large(4);  // fewer pictures than cells
        large.press(u"hy"_s);
        QCOMPARE(large.pictureIn(0), 1);
        QCOMPARE(large.pictureIn(9), 10);
        QCOMPARE(large.text(u"txtYh"_s), u"1"_s);
    }

    void noEmptyPageFollowsAFullOne() {
        for (const int pictures : {4, 8, 9}) {
            const OpenPage viewer(
                2, [&] { mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 > %1"_s.arg(pictures)); });
            const int pages = (pictures + 3) / 4;
            QVERIFY2(viewer.panel(3).contains(u"共%1页"_s.arg(pages)), qPrintable(viewer.panel(3)));
            for (int page = 1; page < pages; ++page) viewer.press(u"xy"_s);
            const int first = viewer.pictureIn(0);
            QCOMPARE(first, 4 * pages - 3);
            viewer.press(u"xy"_s);
            QCOMPARE(viewer.pictureIn(0), first);
            QCOMPARE(viewer.panel(3), u"翻页已到文件尾！"_s);
            QCOMPARE(viewer.text(u"txtYh"_s), QString::number(pages));
        }
    }

    void typedPageNumber() {
        const OpenPage viewer(2);
        auto* number = viewer.box(u"txtYh"_s);
        const std::tuple<QString, QString, int> rows[] = {{u"2"_s, u"2"_s, 5},
                                                          {u"0"_s, u"1"_s, 1},
                                                          {u"x"_s, u"1"_s, 1},
                                                          {u"9"_s, u"9"_s, 0},
                                                          {u"99999999999"_s, u"99999999999"_s, 0}};
        for (const auto& [typed, text, first] : rows) {
            viewer.press(u"ty"_s);
            viewer.window->centralWidget()->setFocus();
            number->setFocus();
            QCOMPARE(number->selectedText(), u"1"_s);
            QTest::keyClicks(number, typed);
            QCOMPARE(number->text(), text);
            viewer.enter(u"txtYh"_s);
            QCOMPARE(viewer.pictureIn(0), first);
        }
    }

    void anyKeyFirstOnAFreshlyOpenedAlbum() {
        const std::tuple<QString, int, QString> rows[] = {
            {u"ty"_s, 1, u"1"_s}, {u"xy"_s, 2, u"1"_s}, {u"hy"_s, 10, u"10"_s}};
        for (const auto& [key, first, page] : rows) {
            const ViewerWindow viewer;
            viewer.openAlbum(1);
            viewer.press(key);
            QVERIFY(!viewer.shows(u"pic0"_s));
            QCOMPARE(viewer.pictureIn(0), first);
            QCOMPARE(viewer.text(u"txtYh"_s), page);
        }
    }

    void columnsWaitForEnter() {
        const OpenPage viewer(1);
        viewer.click(u"txtLs"_s);
        auto* list = viewer.find<ListBox>(u"lstLs"_s);
        QCOMPARE(list->ListCount(), 6);
        QVERIFY(list->verticalScrollBar()->maximum() == 0);
        viewer.chooseLine(u"3列"_s);
        QCOMPARE(viewer.text(u"txtLs"_s), u"3列"_s);
        QVERIFY(viewer.box(u"txtLs"_s)->hasFocus());
        QVERIFY(!viewer.has(u"imgXs(1)"_s));
        QVERIFY(!viewer.key(u"hd"_s)->isEnabled() && !viewer.key(u"yd"_s)->isEnabled());
        viewer.enter(u"txtLs"_s);
        QCOMPARE(viewer.pictureIn(8), 9);
        viewer.chooseColumns(1);
        QVERIFY(viewer.key(u"hd"_s)->isEnabled());
        viewer.enter(u"txtLs"_s);
        QVERIFY(!viewer.has(u"imgXs(1)"_s));
    }

    void cellsStandWhereTheyShould() {
        const OpenPage viewer(2);
        const int before = viewer.find(u"imgXs(0)"_s)->width();
        viewer.window->resize(1100, 825);
        QVERIFY(viewer.find(u"imgXs(0)"_s)->width() > before);
        QVERIFY(!viewer.shows(u"pic0"_s));
        QCOMPARE(viewer.find(u"imgXs(1)"_s)->geometry(), rectFromTwips(7205, 80, 7065, 5299));
        QCOMPARE(viewer.find(u"imgXs(2)"_s)->geometry(), rectFromTwips(60, 5439, 3974, 5299));  // 30 x 40
        QCOMPARE(viewer.find(u"shpXs(0)"_s)->geometry().topLeft(), QPoint(3, 3));
    }

    // However a page was drawn, a window of another size draws it again.
    void aDrawnPageFollowsTheWindow() {
        for (const QString& key : {u"ty"_s, u"xs"_s, u"hy"_s, u"Enter"_s}) {
            const ViewerWindow viewer;
            viewer.openAlbum(1);
            viewer.chooseColumns(2);
            if (key == u"Enter")
                viewer.enter(u"txtLs"_s);
            else
                viewer.press(key);
            const int first = viewer.pictureIn(0);
            const int before = viewer.find(u"imgXs(0)"_s)->width();
            viewer.window->resize(1100, 800);
            QVERIFY(viewer.find(u"imgXs(0)"_s)->width() > before);
            QVERIFY(!viewer.shows(u"pic0"_s));
            QCOMPARE(viewer.pictureIn(0), first);
        }
        const ViewerWindow fresh;
        fresh.openAlbum(1);
        fresh.window->resize(1100, 800);
        QVERIFY(fresh.shows(u"pic0"_s));
    }

    void longCaptionsAreCutAndToldByTheirToolTip() {
        const OpenPage viewer(2);
        const QString note = QString(50, u'长');
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"备注"_s, note}});
        viewer.click(u"chkBq(0)"_s);
        viewer.press(u"ty"_s);
        auto* cut = viewer.find<CaptionBox>(u"txtBq(1)"_s);
        QVERIFY(cut->text().endsWith(note));
        QCOMPARE(cut->toolTip(), cut->text());
        QCOMPARE(cut->height(), pixelsFromTwips(450));
        QCOMPARE(viewer.find<CaptionBox>(u"txtBq(0)"_s)->toolTip(), QString());

        // The beginning is what is seen, whatever follows it.
        const auto beginning = [&] { return cut->grab().toImage().copy(0, 0, cut->width(), cut->height() / 2 - 2); };
        const QImage shown = beginning();
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"备注"_s, QString(30, u'长')}});
        viewer.press(u"ty"_s);
        QCOMPARE(beginning(), shown);
    }

    /// Where its lines would break, a caption that is cut keeps the blank.
    void cutCaptionsKeepTheirBlanks() {
        const QString text = u"an unbreakablycontinuousword"_s;
        Caption cut, whole;
        const int width = cut.fontMetrics().horizontalAdvance(u"unbreakablycontinuousword"_s) + 12;
        for (Caption* caption : {&cut, &whole}) caption->resize(width, caption->heightOfLines(1));
        cut.setText(text);
        QCOMPARE(cut.lineCountFor(width), 2);
        whole.setText(cut.fontMetrics().elidedText(text, Qt::ElideRight, width - 8));
        QCOMPARE(cut.grab().toImage(), whole.grab().toImage());
    }

    void thumbnailsAreCalledByTheirData() {
        Accessibility access;
        qApp->installEventFilter(&access);
        const OpenPage viewer(2);
        for (int i = 0; i < 3; ++i) {
            for (int cell = 0; cell < 4; ++cell) {
                const ImageBox* picture = viewer.image(element(u"imgXs"_s, cell));
                QCOMPARE(picture->accessibleName(), picture->tag());
            }
            viewer.click(u"chkBq(0)"_s);
            viewer.press(i == 0 ? u"xs"_s : u"ty"_s);
        }
    }

    void captions() {
        const OpenPage viewer(2);
        viewer.click(u"chkBq(0)"_s);
        QCOMPARE(ViewerWindow::setting(u"显示标签"_s), FieldValue(true));
        QVERIFY(!viewer.shows(u"txtBq(0)"_s));  // they follow at the next draw
        viewer.press(u"xs"_s);
        const auto* caption = viewer.find<CaptionBox>(u"txtBq(1)"_s);
        QVERIFY(caption->isVisible() && caption->text().startsWith(u"序号：2 "_s));
        QVERIFY(caption->text().endsWith(u"40 * 30 2003年09月27日 12:00:00 图片2"_s));
        QCOMPARE(viewer.image(u"imgXs(1)"_s)->toolTip(), u"鼠标单击可重新显示标签"_s);
        QTest::mouseClick(caption->viewport(), Qt::LeftButton);
        QVERIFY(!caption->isVisible());
        viewer.click(u"imgXs(1)"_s);
        QVERIFY(caption->isVisible());
        viewer.chooseColumns(3);
        viewer.press(u"xs"_s);
        QVERIFY(!viewer.shows(u"txtBq(1)"_s));
        QVERIFY(viewer.image(u"imgXs(1)"_s)->toolTip().startsWith(u"序号：2 "_s));
    }

    // Bytes that are no picture never show another record's; only a record without any keeps what its cell shows.
    void damagedRecordsLeaveEmptyCellsWithASign() {
        const OpenPage viewer(2);
        for (const int number : {5, 6})
            changeRow(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number),
                      {{u"规格"_s, u""_s}, {u"图片"_s, QByteArray("no picture")}});
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 7"_s, {{u"图片"_s, {}}});
        viewer.press(u"xy"_s);
        for (const int cell : {0, 1}) {
            const auto* box = viewer.find<CellBox>(element(u"imgXs"_s, cell));
            QVERIFY(box->picture().isNull() && box->hasSign());
            QCOMPARE(viewer.pictureIn(cell), 5 + cell);
            QVERIFY(!box->accessibleDescription().isEmpty());
        }
        QCOMPARE(viewer.find(u"imgXs(1)"_s)->size(), viewer.find(u"imgXs(0)"_s)->size());
        auto* without = viewer.find<CellBox>(u"imgXs(2)"_s);
        QVERIFY(without->picture().isNull() && !without->hasSign());
        const QImage empty = without->grab().toImage();
        QVERIFY(viewer.find(u"imgXs(1)"_s)->grab(QRect(QPoint(), empty.size())).toImage() != empty);
        viewer.press(u"sy"_s);
        for (const int cell : {0, 1}) {
            const auto* box = viewer.find<CellBox>(element(u"imgXs"_s, cell));
            QVERIFY(!box->picture().isNull() && !box->hasSign());
        }
        QVERIFY(viewer.boxes.isEmpty());
    }

    // The one cell is never made anew, and keeps what it shows.
    void recordWithoutPictureKeepsTheOneBefore() {
        const OpenPage viewer(1);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"图片"_s, {}}});
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, {{u"图片"_s, QByteArray("no picture")}});
        const auto* cell = viewer.find<CellBox>(u"imgXs(0)"_s);
        const QColor before = cell->picture().image().pixelColor(5, 5);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(0), 2);
        QCOMPARE(cell->picture().image().pixelColor(5, 5), before);
        viewer.press(u"xy"_s);
        QVERIFY(cell->picture().isNull() && cell->hasSign());
        viewer.press(u"sy"_s);
        QVERIFY(cell->picture().isNull() && !cell->hasSign());
        viewer.press(u"ty"_s);
        QCOMPARE(cell->picture().image().pixelColor(5, 5), before);
    }

    // A record that is there no longer says nothing about what its cell may keep.
    void recordThatIsGoneKeepsNoPicture() {
        const OpenPage viewer(1);
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 = 2"_s);
        viewer.press(u"xy"_s);
        QVERIFY(viewer.isEmptyCell(0));
        QVERIFY(viewer.boxes.isEmpty());
    }

    void theThinnestPicturesAreSeen() {
        const OpenPage viewer(6);
        changeRow(u"tc01"_s, {{u"规格"_s, u"3000 * 1"_s}, {u"图片"_s, pictureBytes({3000, 1}, Qt::red)}});
        viewer.press(u"ty"_s);
        const ImageBox* cell = viewer.image(u"imgXs(0)"_s);
        QCOMPARE(cell->height(), 1);
        QTRY_VERIFY(!cell->picture().isNull());
    }

    // Whatever the window, no part of a picture is beyond the edge of the page or of the full view.
    void picturesAreWhole() {
        for (const QSize size : {QSize(1920, 1080), {1366, 768}, {2560, 1080}, {600, 900}})
            for (const int columns : {1, 2, 3, 6}) {
                const OpenPage viewer(columns);
                viewer.window->setMinimumSize(0, 0);
                viewer.find<QCheckBox>(u"chkBq(0)"_s)->setChecked(true);
                viewer.window->resize(size);
                const QRect page = viewer.find(u"pic1"_s)->rect();
                for (int cell = 0; cell < columns * columns; ++cell)
                    for (const QString& name : {u"imgXs"_s, u"shpXs"_s, u"txtBq"_s}) {
                        const QWidget* control = viewer.find(element(name, cell));
                        QVERIFY(control->isHidden() || page.contains(control->geometry()));
                    }
                if (columns == 1 || size.height() > size.width()) continue;
                const QRect view = page.adjusted(0, 0, 2, 0);  // its widest picture is 30 twips wider than the page
                for (const int cell : {0, 2, 3}) {             // 40 x 30, 30 x 40, 100 x 50
                    viewer.openPicture(cell);
                    QVERIFY(viewer.shows(u"img0"_s));
                    QVERIFY(view.contains(viewer.find(u"img0"_s)->geometry()));
                    viewer.click(u"img0"_s);
                }
            }
    }
};

const Registered<TestPaging> registered;

#include "paging_test.moc"
