#include "button_page.h"

using namespace Qt::Literals::StringLiterals;

/// The parts around the boxes of a button: its picture and the preview panel, the list of albums, the keys.
class TestButtonParts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    // Pictures --------------------------------------------------------------------------------------------------------

    void pictureOfANewButton() {
        for (const bool textsFirst : {true, false}) {
            ButtonPage page;
            page.click(u"cmdQu"_s);
            if (textsFirst) page.fill({u"5"_s, u"p"_s, u"有图"_s, u"tc01"_s});
            page.load(u"button.jpg"_s);
            page.click(u"cmdAq"_s);
            QCOMPARE(
                page.said().join(u'|'),
                textsFirst ? storeQuestion : storeQuestion + u"|数据没填全，请重新进行！\n\n没填写的项目：(编号)"_s);
            QVERIFY(!page.panelIsOpen());
            if (!textsFirst) {  // the picture waits for them, and for a look in between
                page.click(u"cmdCk(4)"_s, u"cmdCg"_s);
                page.fill({u"5"_s, u"p"_s, u"有图"_s, u"tc01"_s});
                page.click(u"cmdQu"_s);
                QVERIFY(page.boxes.isEmpty());
            }
            QCOMPARE(pictureLength(u"p"_s), QFileInfo(page.picked).size() + 1);
            QCOMPARE(page.state(), justStored);
        }
    }

    void pictureOfAnOldButton() {
        ButtonPage page;
        page.beginChange(u"a"_s);
        page.load(u"wide.jpg"_s, {106, 75});
        page.click(u"cmdAq"_s);
        QVERIFY2(page.boxes.value(0).text.contains(u"规格106*75 宽高比1.41"_s), qPrintable(page.boxes.value(0).text));
        QVERIFY(page.panelIsOpen() && !page.isEnabled(u"cmdAq"_s));
        page.click(u"cmdCg"_s);

        // Loaded but not agreed to.
        page.said();
        page.load(u"button.jpg"_s);
        page.click(u"cmdCg"_s, u"cmdBj"_s);
        QCOMPARE(page.said(), QStringList{pictureQuestion});
        QCOMPARE(pictureLength(u"a"_s), 0);
    }

    // Stored as JPEG in any case; the file itself only becomes one when its owner says so.
    void bitmapsAsButtonPictures() {
        const QStringList both{storeQuestion, u"“button.bmp”是 BMP 文件。\n\n存入的图片转成 JPG。"_s};
        for (const auto& [answer, turned, isStored] :
             {std::tuple{u"转成 JPG"_s, true, true}, {u"保留原文件"_s, false, true}, {u"取消"_s, false, false}}) {
            ButtonPage page;
            page.beginChange(u"a"_s);
            page.load(u"button.bmp"_s);
            chooseInBoxesWith([&page, answer = answer](const BoxText& box) {
                page.boxes << box;
                return box.answers.size() == 3 ? static_cast<int>(box.answers.indexOf(answer)) : 0;
            });
            page.click(u"cmdAq"_s);
            for (int i = 0; i < both.size(); ++i) QVERIFY(page.boxes.value(i).text.startsWith(both[i]));
            QCOMPARE(page.boxes.size(), 2);
            QCOMPARE(contentOf(page.picked).first(2), turned ? QByteArray("\xff\xd8") : QByteArray("BM"));
            const Recordset row = mekTp::catalogue.OpenRecordset(rowOf(u"a"_s));
            QCOMPARE(row.Fields(u"图片"_s).isNull(), !isStored);
            if (isStored) QCOMPARE(row.Fields(u"图片"_s).GetChunk(0, 2), QByteArray("\xff\xd8"));
            QCOMPARE(page.state(), isStored ? justStored : changing);
        }
    }

    void picturesOfButtonsAtRestAreNotTaken() {
        ButtonPage page;
        page.choose(u"a"_s);
        page.load(u"button.jpg"_s);
        QVERIFY(!page.button(u"cmdAq"_s).isEnabled());
        page.click(u"cmdBj"_s);
        QVERIFY(page.isEnabled(u"cmdAq"_s) && !page.isEnabled(u"cmdCk(4)"_s));
        page.click(u"cmdSn"_s);
        QVERIFY(!page.isEnabled(u"cmdAq"_s));
        page.click(u"cmdQu"_s);
        QVERIFY(!page.panelIsOpen());
    }

    // The panel covers the place of the buttons; they are needed while it is open.
    void buttonsStandBesideThePanel() {
        ButtonPage page;
        page.choose(u"a"_s);
        const QRect row = page.button(u"cmdBj"_s).geometry();
        page.button(u"cmdCk(4)"_s).setFocus();
        page.click(u"cmdCk(4)"_s);
        QVERIFY(page.panelIsOpen());
        QCOMPARE(page.form->focusWidget()->objectName(), u"cmdAz"_s);
        const QRect group = page.get<QGroupBox>(u"fraAs"_s).geometry();
        QVERIFY(!group.intersects(page.get<QGroupBox>(u"Frame2"_s).geometry()));
        for (const QString& name : {u"cmdQu"_s, u"cmdBj"_s, u"cmdSn"_s, u"cmdCk(4)"_s}) {
            const QPushButton& button = page.button(name);
            QVERIFY2(page.isOnTop(name), qPrintable(name));
            QVERIFY(button.fontMetrics().horizontalAdvance(button.text()) <= button.width() - 4);
            QVERIFY(button.parentWidget()->rect().contains(button.geometry()));
        }
        // Dragged aside, the panel gives their row free.
        auto& panel = page.get<QGroupBox>(u"fraCk"_s);
        QTest::mousePress(&panel, Qt::LeftButton, {}, QPoint(60, 8));
        QTest::mouseMove(&panel, QPoint(400, 8));
        QTest::mouseRelease(&panel, Qt::LeftButton, {}, QPoint(60, 8));
        QCOMPARE(page.button(u"cmdBj"_s).geometry(), row);
        QVERIFY(page.isOnTop(u"cmdBj"_s) && page.isOnTop(u"txtM1"_s));
        page.click(u"cmdCg"_s, u"cmdCk(4)"_s, u"cmdCg"_s);
        QCOMPARE(page.button(u"cmdBj"_s).geometry(), row);
        QCOMPARE(page.form->focusWidget()->objectName(), u"cmdCk(4)"_s);
    }

    void newButtonShowsNoOthersPicture() {
        ButtonPage page;
        page.choose(u"v"_s);
        page.click(u"cmdQu"_s, u"cmdCk(4)"_s);
        QCOMPARE(page.label(u"lblWj"_s), u"新按钮\n还没有图片"_s);
        QVERIFY(page.get<ImageBox>(u"imgWj"_s).picture().isNull());
        page.click(u"cmdSn"_s);  // back to the one that was chosen
        QVERIFY(page.label(u"lblWj"_s).endsWith(u"规格：100*75"_s));
    }

    // Albums and keys -------------------------------------------------------------------------------------------------

    void albumsAreOfferedOverTheirBox() {
        ButtonPage page;
        auto& lstBh = page.get<ListBox>(u"lstBh"_s);
        auto& txtC1 = page.box(u"txtC1"_s);
        QWidget* home = lstBh.parentWidget();
        page.choose(u"a"_s);
        txtC1.setFocus();
        QVERIFY(!lstBh.isVisible());

        page.click(u"cmdBj"_s);
        QTest::mouseClick(&txtC1, Qt::LeftButton);
        QVERIFY(lstBh.isVisible());
        QCOMPARE(lstBh.parentWidget()->objectName(), u"fraAs"_s);
        QCOMPARE(lstBh.geometry().bottom() + 1, txtC1.y());
        QCOMPARE(lstBh.geometry().size(), QSize(40, (3 * 180 + 60) / 15));
        QCOMPARE(lstBh.palette().color(QPalette::Base), QColor(0, 255, 0));
        QVERIFY(!lstBh.verticalScrollBar()->isVisible() && !lstBh.horizontalScrollBar()->isVisible());

        const QString before = txtC1.text();
        for (const QString& table : {u"tc02"_s, u"tc02"_s}) {
            const QRect line = lstBh.visualItemRect(lstBh.findItems(table, Qt::MatchExactly).first());
            QTest::mouseClick(lstBh.viewport(), Qt::LeftButton, {}, line.center());
            QVERIFY(!lstBh.isVisible() && txtC1.hasFocus());
            QTest::mouseClick(&txtC1, Qt::LeftButton);
            QVERIFY(lstBh.isVisible());
        }
        QCOMPARE(txtC1.text(), before + u"tc02tc02"_s);

        // The mouse beside it closes it, the mouse over it does not.
        QTest::mouseMove(lstBh.viewport(), QPoint(5, 5));
        QVERIFY(lstBh.isVisible());
        QTest::mouseMove(page.form->findChild<QGroupBox*>(u"fraAs"_s), QPoint(5, 350));
        QTRY_VERIFY(!lstBh.isVisible());
        QCOMPARE(lstBh.parentWidget(), home);

        QTest::mouseClick(&txtC1, Qt::LeftButton);
        page.tabs().setCurrentIndex(2);
        QVERIFY(lstBh.isVisible() && lstBh.count() == 4);
        QVERIFY(lstBh.palette().color(QPalette::Base) != QColor(0, 255, 0) && lstBh.width() > 100);
    }

    void manyAlbumsScroll() {
        ButtonPage page;
        for (int i = 10; i < 60; ++i) addAlbum(i, u"tc%1"_s.arg(i), u"册"_s);
        page.beginChange(u"a"_s);
        page.box(u"txtC1"_s).setFocus();
        const auto& lstBh = page.get<ListBox>(u"lstBh"_s);
        QVERIFY(lstBh.isVisible() && lstBh.y() >= 16 && lstBh.verticalScrollBar()->maximum() > 0);
        // The names have the room that they have in a list without a bar.
        QVERIFY(lstBh.viewport()->width() >= 38 && lstBh.horizontalScrollBar()->maximum() == 0);
        QCOMPARE(lstBh.item(3)->toolTip(), u"册"_s);
    }

    void keysWalkThroughTheBoxes() {
        const std::tuple<QString, Qt::Key, QString> cases[] = {
            {u"txtX1"_s, Qt::Key_Return, u"txtB1"_s}, {u"txtX1"_s, Qt::Key_Up, u"txtM1"_s},
            {u"txtB1"_s, Qt::Key_Down, u"txtM1"_s},   {u"txtB1"_s, Qt::Key_Up, u"txtX1"_s},
            {u"txtM1"_s, Qt::Key_Enter, u"txtX1"_s},  {u"txtM1"_s, Qt::Key_Up, u"txtB1"_s},
            {u"txtM1"_s, Qt::Key_A, u"txtM1"_s}};
        const ButtonPage page;
        for (const auto& [from, key, to] : cases) {
            page.box(from).setFocus();
            QTest::keyClick(&page.box(from), key);
            QCOMPARE(page.form->focusWidget()->objectName(), to);
        }
    }
};

const Registered<TestButtonParts> registered;

#include "button_parts_test.moc"
