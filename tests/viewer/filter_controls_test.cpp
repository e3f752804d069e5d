#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct FilteredPage : OpenPage {
    FilteredPage() : OpenPage(2) {}
    void chooseNumbers(const QString& choice, const QString& number) const {
        click(u"txtXh"_s);
        chooseLine(choice);
        type(u"txtXx"_s, number);
    }
    void chooseDate(int operatorIndex, const QString& keys) const {
        press(u"rq"_s);
        click(element(u"optRq"_s, operatorIndex));
        type(u"txtR1"_s, keys);
    }
};

class TestFilterControls : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void byNumber() {
        const std::tuple<QString, QString, QString, int> rows[] = {
            {u"序号="_s, u"7"_s, u" 序号= 7 共1张 共1页 第 4 张"_s, 7},
            {u"序号>"_s, u"5"_s, u" 序号> 5 共5张 共2页 第 4 张"_s, 6},
            {u"序号<"_s, u"1"_s, u" 序号< 1 共0张 共0页 第 0 张"_s, 0},
            {u"序号="_s, u"x"_s, u" 序号= x 共10张 共3页 第 4 张"_s, 1},  // no number keeps the selection
        };
        for (const auto& [choice, number, line, first] : rows) {
            const FilteredPage viewer;
            viewer.chooseNumbers(choice, number);
            QCOMPARE(viewer.text(u"txtXh"_s), choice);
            QCOMPARE(widthOf(viewer.find(u"txtXh"_s)), twipsFromPixels(pixelsFromTwips(950)));
            QVERIFY(viewer.box(u"txtXx"_s)->hasFocus());
            QCOMPARE(viewer.text(u"txtYh"_s), u"1"_s);
            viewer.enter(u"txtXx"_s);
            QCOMPARE(viewer.panel(3), line);
            QCOMPARE(viewer.pictureIn(0), first);
            QVERIFY(viewer.boxes.isEmpty());
        }
    }

    void anyNumberLeavesTheOldSelection() {
        const FilteredPage viewer;
        viewer.chooseNumbers(u"序号<"_s, u"4"_s);
        QCOMPARE(viewer.panel(3), u" 序号< 4 共3张 共1页"_s);
        viewer.chooseNumbers(u"序号任意"_s, {});
        QVERIFY(!viewer.shows(u"txtXx"_s));
        QCOMPARE(viewer.panel(3), u"全部（待重新选择） 共3张 共1页"_s);
        viewer.press(u"ty"_s);
        QCOMPARE(viewer.panel(3), u"全部（待重新选择） 共3张 共1页 第 4 张"_s);
        viewer.chooseButton(0);
        QCOMPARE(viewer.panel(3), u"全部 共10张 共3页 第 1 张"_s);

        // With a code the pictures are chosen anew at once.
        viewer.chooseButton(1);
        viewer.chooseNumbers(u"序号<"_s, u"4"_s);
        viewer.chooseNumbers(u"序号任意"_s, {});
        QCOMPARE(viewer.panel(3), u"全部 共5张 共2页"_s);
    }

    void byDate() {
        const FilteredPage viewer;
        viewer.press(u"rq"_s);
        QVERIFY(viewer.shows(u"picRq"_s));
        QVERIFY(viewer.box(u"txtR1"_s)->isLocked());
        viewer.click(u"optRq(1)"_s);
        QVERIFY(viewer.box(u"txtR1"_s)->hasFocus());
        QTest::keyClicks(viewer.box(u"txtR1"_s), u"031001"_s);
        QCOMPARE(viewer.text(u"txtR1"_s), u"2003-10-01"_s);
        viewer.enter(u"txtR1"_s);
        QVERIFY(!viewer.shows(u"picRq"_s));
        QCOMPARE(viewer.panel(3), u"日期晚于2003-10-01 共4张 共1页 第 4 张"_s);
        QCOMPARE(viewer.pictureIn(0), 7);

        // With a code as well.
        viewer.chooseButton(1);
        QCOMPARE(viewer.panel(3), u"日期晚于2003-10-01 共2张 共1页 第 1 张"_s);
        QCOMPARE(viewer.pictureIn(1), 9);
    }

    void typingHelp() {
        for (const auto& [keys, text] : {std::pair(u"031001"_s, u"2003-10-01"_s),
                                         {u"851231"_s, u"1985-12-31"_s},
                                         {u"20150704"_s, u"2015-07-04"_s},
                                         {u"0351"_s, u"2003-5-1"_s},
                                         {u"0351231"_s, u"2003-5-1231"_s},
                                         // Separators where the help has put some already.
                                         {u"2003-10-01"_s, u"2003-10-01"_s},
                                         {u"2003-5-12"_s, u"2003-5-12"_s},
                                         {u"2003/1/5"_s, u"2003-1-5"_s},
                                         {u"03.10.01"_s, u"2003-10-01"_s},
                                         {u"12-5-6"_s, u"2012-5-6"_s},
                                         {u"12年5月6"_s, u"2012-5-6"_s},
                                         {u"2003年10月1"_s, u"2003-10-1"_s},
                                         {u"２００３－１０－０１"_s, u"2003-10-01"_s},
                                         {u"２００３。５。１"_s, u"2003-5-1"_s}}) {
            const FilteredPage viewer;
            viewer.chooseDate(2, keys);
            QCOMPARE(viewer.text(u"txtR1"_s), text);
        }
    }

    void backspaceTakesTheHelpAway() {
        const FilteredPage viewer;
        viewer.chooseDate(2, u"03"_s);
        auto* date = viewer.box(u"txtR1"_s);
        QTest::keyClick(date, Qt::Key_End);
        QTest::keyClick(date, Qt::Key_Backspace);
        QTest::keyClick(date, Qt::Key_Backspace);
        QCOMPARE(date->text(), u"2003"_s);
        viewer.type(u"txtR1"_s, u"-10-01"_s);
        QCOMPARE(date->text(), u"2003-10-01"_s);
    }

    void pastedDates() {
        for (const auto& [text, line] : {std::pair(u"2003-10-04"_s, u"日期等于2003-10-04"_s),
                                         {u"2003/10/4"_s, u"日期等于2003/10/4"_s},
                                         {u"2003年10月04日 12:00:00"_s, u"日期等于2003-10-04"_s},
                                         {u"20031004"_s, u"日期等于2003-10-04"_s},
                                         {u"03-10-04"_s, u"日期等于2003-10-04"_s},
                                         {u"２００３．１０．４"_s, u"日期等于2003-10-04"_s}}) {
            const FilteredPage viewer;
            viewer.chooseDate(2, {});
            viewer.paste(u"txtR1"_s, text);
            viewer.click(u"cmdRq"_s);
            QCOMPARE(viewer.panel(3), line + u" 共1张 共1页 第 4 张"_s);
            QCOMPARE(viewer.pictureIn(0), 9);
        }
    }

    void whatIsNoDateIsRefused() {
        for (const QString& keys : {u"x"_s, u"2003"_s, u"20030229"_s}) {
            const FilteredPage viewer;
            viewer.chooseDate(2, keys);
            const QString typed = viewer.text(u"txtR1"_s);
            viewer.enter(u"txtR1"_s);
            QCOMPARE(viewer.boxes.size(), 1);
            QVERIFY(viewer.boxes[0].contains(u'“' + typed + u'”') && viewer.boxes[0].contains(u"20031001"_s));
            QVERIFY(viewer.shows(u"picRq"_s) && viewer.box(u"txtR1"_s)->hasFocus());
            QCOMPARE(viewer.text(u"txtR1"_s), typed);
            viewer.click(u"cmdRx"_s);
            viewer.chooseColumns(3);
            QCOMPARE(viewer.panel(3), u"全部 共10张 共2页"_s);
        }
    }

    void droppingTheDate() {
        const FilteredPage viewer;
        viewer.chooseDate(0, u"030928"_s);
        viewer.click(u"cmdRq"_s);
        QCOMPARE(viewer.panel(3), u"日期早于2003-09-28 共2张 共1页 第 4 张"_s);
        viewer.press(u"rq"_s);
        viewer.click(u"cmdRy"_s);
        QVERIFY(!viewer.shows(u"picRq"_s));
        // The selection stays until a button is clicked.
        QCOMPARE(viewer.panel(3), u"全部（待重新选择） 共2张 共1页"_s);
        viewer.chooseButton(0);
        QCOMPARE(viewer.panel(2), u"旅行(tc01)[全部] 共 10 张"_s);
        QVERIFY(viewer.boxes.isEmpty());
    }

    void cancelChangesNothing() {
        const FilteredPage viewer;
        for (const QString& cancel : {u"cmdRx"_s, u"cmdS0"_s}) {
            viewer.chooseDate(1, u"031001"_s);
            viewer.click(cancel);
            QVERIFY(!viewer.shows(u"picRq"_s));
        }
        viewer.press(u"rq"_s);
        QCOMPARE(viewer.text(u"txtR1"_s), QString());
        viewer.click(u"cmdRq"_s);
        QVERIFY(viewer.shows(u"picRq"_s));  // nothing typed, nothing happens
        QTest::keyClick(viewer.window->centralWidget(), Qt::Key_Escape);
        QVERIFY(!viewer.shows(u"picRq"_s));
        QCOMPARE(viewer.panel(3), u"全部 共10张 共3页 第 1 张"_s);
    }

    // What the dialog shows is no condition before it is confirmed.
    void cancelLeavesNoTraceInTheLine() {
        const FilteredPage viewer;
        viewer.chooseDate(1, u"031001"_s);
        viewer.click(u"cmdRq"_s);
        for (const QString& leave : {u"cmdRx"_s, u"cmdS0"_s, QString()}) {
            viewer.chooseDate(0, u"030927"_s);
            if (leave.isEmpty())
                QTest::keyClick(viewer.window->focusWidget(), Qt::Key_Escape);
            else
                viewer.click(leave);
            viewer.chooseColumns(3);
            QCOMPARE(viewer.panel(3), u"日期晚于2003-10-01 共4张 共1页"_s);
            viewer.chooseColumns(2);
        }
        viewer.press(u"rq"_s);
        for (int i = 0; i < 3; ++i) QVERIFY(!viewer.find<QRadioButton>(element(u"optRq"_s, i))->isChecked());
        QVERIFY(viewer.box(u"txtR1"_s)->isLocked());
        viewer.chooseColumns(3);
        QCOMPARE(viewer.panel(3), u"日期晚于2003-10-01 共4张 共1页"_s);
    }

    void dialogIsDragged() {
        const FilteredPage viewer;
        viewer.press(u"rq"_s);
        auto* dialog = viewer.find(u"picRq"_s);
        QCOMPARE(dialog->pos(), QPoint(pixelsFromTwips(1900), pixelsFromTwips(500)));
        const QPoint before = dialog->pos();
        QTest::mousePress(dialog, Qt::LeftButton, {}, QPoint(20, 40));
        QMouseEvent move(QEvent::MouseMove, QPointF(50, 60), dialog->mapToGlobal(QPointF(50, 60)), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(dialog, &move);
        QCOMPARE(dialog->pos() - before, QPoint(30, 20));
    }

    // On its way from the box into the list the mouse crosses the rim of the list.
    void listStaysOpenUnderTheMouse() {
        const FilteredPage viewer;
        auto* list = viewer.find<ListBox>(u"lstLs"_s);
        auto* box = viewer.find(u"txtXh"_s);
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(list->isVisible());
        const QPoint from = box->mapTo(viewer.window.get(), box->rect().center());
        const int to = list->mapTo(viewer.window.get(), list->rect().center()).y();
        for (int y = from.y(); y <= to; ++y) {
            QTest::mouseMove(viewer.window->windowHandle(), QPoint(from.x(), y));
            QVERIFY2(list->isVisible(), qPrintable(u"hidden at %1, list from %2 to %3"_s.arg(y).arg(from.y()).arg(to)));
        }
        viewer.chooseLine(u"序号>"_s);
        QCOMPARE(viewer.text(u"txtXh"_s), u"序号>"_s);
    }

    void listHides() {
        const FilteredPage viewer;
        auto* list = viewer.find(u"lstLs"_s);
        viewer.click(u"txtXh"_s);
        QVERIFY(list->isVisible());
        viewer.click(u"imgXs(0)"_s);
        QVERIFY(!list->isVisible());
        viewer.click(u"txtXh"_s);
        QVERIFY(list->isVisible());
        viewer.chooseButton(0);
        QVERIFY(!list->isVisible());
        viewer.click(u"txtXh"_s);
        QTest::mouseMove(viewer.window->centralWidget(), QPoint(4, 300));
        QTRY_VERIFY(!list->isVisible());
    }
};

const Registered<TestFilterControls> registered;

}  // namespace

#include "filter_controls_test.moc"
