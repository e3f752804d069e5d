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

    std::optional<FilteredPage> viewer_;

  private Q_SLOTS:
    void init() { viewer_.emplace(); }

    void byNumber() {
        const std::tuple<QString, QString, QString, int> rows[] = {
            {u"序号="_s, u"7"_s, u" 序号= 7 共1张 共1页 第 4 张"_s, 7},
            {u"序号>"_s, u"5"_s, u" 序号> 5 共5张 共2页 第 4 张"_s, 6},
            {u"序号<"_s, u"1"_s, u" 序号< 1 共0张 共0页 第 0 张"_s, 0},
            {u"序号="_s, u"x"_s, u" 序号= x 共10张 共3页 第 4 张"_s, 1},  // no number keeps the selection
        };
        for (const auto& [choice, number, line, first] : rows) {
            init();
            viewer_->chooseNumbers(choice, number);
            QCOMPARE(viewer_->text(u"txtXh"_s), choice);
            QCOMPARE(widthOf(viewer_->find(u"txtXh"_s)), twipsFromPixels(pixelsFromTwips(950)));
            QVERIFY(viewer_->box(u"txtXx"_s)->hasFocus());
            QCOMPARE(viewer_->text(u"txtYh"_s), u"1"_s);
            viewer_->enter(u"txtXx"_s);
            QCOMPARE(viewer_->panel(3), line);
            QCOMPARE(viewer_->pictureIn(0), first);
            QVERIFY(viewer_->boxes.isEmpty());
        }
    }

    void anyNumberLeavesTheOldSelection() {
        viewer_->chooseNumbers(u"序号<"_s, u"4"_s);
        QCOMPARE(viewer_->panel(3), u" 序号< 4 共3张 共1页"_s);
        viewer_->chooseNumbers(u"序号任意"_s, {});
        QVERIFY(!viewer_->shows(u"txtXx"_s));
        QCOMPARE(viewer_->panel(3), u"全部（待重新选择） 共3张 共1页"_s);
        viewer_->press(u"ty"_s);
        QCOMPARE(viewer_->panel(3), u"全部（待重新选择） 共3张 共1页 第 4 张"_s);
        viewer_->chooseButton(0);
        QCOMPARE(viewer_->panel(3), u"全部 共10张 共3页 第 1 张"_s);

        // With a code the pictures are chosen anew at once.
        viewer_->chooseButton(1);
        viewer_->chooseNumbers(u"序号<"_s, u"4"_s);
        viewer_->chooseNumbers(u"序号任意"_s, {});
        QCOMPARE(viewer_->panel(3), u"全部 共5张 共2页"_s);
    }

    void byDate() {
        viewer_->press(u"rq"_s);
        QVERIFY(viewer_->shows(u"picRq"_s));
        QVERIFY(viewer_->box(u"txtR1"_s)->isLocked());
        viewer_->click(u"optRq(1)"_s);
        QVERIFY(viewer_->box(u"txtR1"_s)->hasFocus());
        QTest::keyClicks(viewer_->box(u"txtR1"_s), u"031001"_s);
        QCOMPARE(viewer_->text(u"txtR1"_s), u"2003-10-01"_s);
        viewer_->enter(u"txtR1"_s);
        QVERIFY(!viewer_->shows(u"picRq"_s));
        QCOMPARE(viewer_->panel(3), u"日期晚于2003-10-01 共4张 共1页 第 4 张"_s);
        QCOMPARE(viewer_->pictureIn(0), 7);

        // With a code as well.
        viewer_->chooseButton(1);
        QCOMPARE(viewer_->panel(3), u"日期晚于2003-10-01 共2张 共1页 第 1 张"_s);
        QCOMPARE(viewer_->pictureIn(1), 9);
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
            init();
            viewer_->chooseDate(2, keys);
            QCOMPARE(viewer_->text(u"txtR1"_s), text);
        }
    }

    void backspaceTakesTheHelpAway() {
        viewer_->chooseDate(2, u"03"_s);
        auto* date = viewer_->box(u"txtR1"_s);
        QTest::keyClick(date, Qt::Key_End);
        QTest::keyClick(date, Qt::Key_Backspace);
        QTest::keyClick(date, Qt::Key_Backspace);
        QCOMPARE(date->text(), u"2003"_s);
        viewer_->type(u"txtR1"_s, u"-10-01"_s);
        QCOMPARE(date->text(), u"2003-10-01"_s);
    }

    void pastedDates() {
        for (const auto& [text, line] : {std::pair(u"2003-10-04"_s, u"日期等于2003-10-04"_s),
                                         {u"2003/10/4"_s, u"日期等于2003/10/4"_s},
                                         {u"2003年10月04日 12:00:00"_s, u"日期等于2003-10-04"_s},
                                         {u"20031004"_s, u"日期等于2003-10-04"_s},
                                         {u"03-10-04"_s, u"日期等于2003-10-04"_s},
                                         {u"２００３．１０．４"_s, u"日期等于2003-10-04"_s}}) {
            init();
            viewer_->chooseDate(2, {});
            viewer_->paste(u"txtR1"_s, text);
            viewer_->click(u"cmdRq"_s);
            QCOMPARE(viewer_->panel(3), line + u" 共1张 共1页 第 4 张"_s);
            QCOMPARE(viewer_->pictureIn(0), 9);
        }
    }

    void whatIsNoDateIsRefused() {
        for (const QString& keys : {u"x"_s, u"2003"_s, u"20030229"_s}) {
            init();
            viewer_->chooseDate(2, keys);
            const QString typed = viewer_->text(u"txtR1"_s);
            viewer_->enter(u"txtR1"_s);
            QCOMPARE(viewer_->boxes.size(), 1);
            QVERIFY(viewer_->boxes[0].contains(u'“' + typed + u'”') && viewer_->boxes[0].contains(u"20031001"_s));
            QVERIFY(viewer_->shows(u"picRq"_s) && viewer_->box(u"txtR1"_s)->hasFocus());
            QCOMPARE(viewer_->text(u"txtR1"_s), typed);
            viewer_->click(u"cmdRx"_s);
            viewer_->chooseColumns(3);
            QCOMPARE(viewer_->panel(3), u"全部 共10张 共2页"_s);
        }
    }

    void droppingTheDate() {
        viewer_->chooseDate(0, u"030928"_s);
        viewer_->click(u"cmdRq"_s);
        QCOMPARE(viewer_->panel(3), u"日期早于2003-09-28 共2张 共1页 第 4 张"_s);
        viewer_->press(u"rq"_s);
        viewer_->click(u"cmdRy"_s);
        QVERIFY(!viewer_->shows(u"picRq"_s));
        // The selection stays until a button is clicked.
        QCOMPARE(viewer_->panel(3), u"全部（待重新选择） 共2张 共1页"_s);
        viewer_->chooseButton(0);
        QCOMPARE(viewer_->panel(2), u"旅行(tc01)[全部] 共 10 张"_s);
        QVERIFY(viewer_->boxes.isEmpty());
    }

    void cancelChangesNothing() {
        for (const QString& cancel : {u"cmdRx"_s, u"cmdS0"_s}) {
            viewer_->chooseDate(1, u"031001"_s);
            viewer_->click(cancel);
            QVERIFY(!viewer_->shows(u"picRq"_s));
        }
        viewer_->press(u"rq"_s);
        QCOMPARE(viewer_->text(u"txtR1"_s), QString());
        viewer_->click(u"cmdRq"_s);
        QVERIFY(viewer_->shows(u"picRq"_s));  // nothing typed, nothing happens
        QTest::keyClick(viewer_->window->centralWidget(), Qt::Key_Escape);
        QVERIFY(!viewer_->shows(u"picRq"_s));
        QCOMPARE(viewer_->panel(3), u"全部 共10张 共3页 第 1 张"_s);
    }

    // What the dialog shows is no condition before it is confirmed.
    void cancelLeavesNoTraceInTheLine() {
        viewer_->chooseDate(1, u"031001"_s);
        viewer_->click(u"cmdRq"_s);
        for (const QString& leave : {u"cmdRx"_s, u"cmdS0"_s, QString()}) {
            viewer_->chooseDate(0, u"030927"_s);
            if (leave.isEmpty())
                QTest::keyClick(viewer_->window->focusWidget(), Qt::Key_Escape);
            else
                viewer_->click(leave);
            viewer_->chooseColumns(3);
            QCOMPARE(viewer_->panel(3), u"日期晚于2003-10-01 共4张 共1页"_s);
            viewer_->chooseColumns(2);
        }
        viewer_->press(u"rq"_s);
        for (int i = 0; i < 3; ++i) QVERIFY(!viewer_->find<QRadioButton>(element(u"optRq"_s, i))->isChecked());
        QVERIFY(viewer_->box(u"txtR1"_s)->isLocked());
        viewer_->chooseColumns(3);
        QCOMPARE(viewer_->panel(3), u"日期晚于2003-10-01 共4张 共1页"_s);
    }

    void dialogIsDragged() {
        viewer_->press(u"rq"_s);
        auto* dialog = viewer_->find(u"picRq"_s);
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
        auto* list = viewer_->find<ListBox>(u"lstLs"_s);
        auto* box = viewer_->find(u"txtXh"_s);
        QTest::mouseClick(box, Qt::LeftButton);
        QVERIFY(list->isVisible());
        const QPoint from = box->mapTo(viewer_->window.get(), box->rect().center());
        const int to = list->mapTo(viewer_->window.get(), list->rect().center()).y();
        for (int y = from.y(); y <= to; ++y) {
            QTest::mouseMove(viewer_->window->windowHandle(), QPoint(from.x(), y));
            QVERIFY2(list->isVisible(), qPrintable(u"hidden at %1, list from %2 to %3"_s.arg(y).arg(from.y()).arg(to)));
        }
        viewer_->chooseLine(u"序号>"_s);
        QCOMPARE(viewer_->text(u"txtXh"_s), u"序号>"_s);
    }

    void listHides() {
        auto* list = viewer_->find(u"lstLs"_s);
        viewer_->click(u"txtXh"_s);
        QVERIFY(list->isVisible());
        viewer_->click(u"imgXs(0)"_s);
        QVERIFY(!list->isVisible());
        viewer_->click(u"txtXh"_s);
        QVERIFY(list->isVisible());
        viewer_->chooseButton(0);
        QVERIFY(!list->isVisible());
        viewer_->click(u"txtXh"_s);
        QTest::mouseMove(viewer_->window->centralWidget(), QPoint(4, 300));
        QTRY_VERIFY(!list->isVisible());
    }
};

const Registered<TestFilterControls> registered;

}  // namespace

#include "filter_controls_test.moc"
