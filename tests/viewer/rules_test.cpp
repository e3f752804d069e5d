#include "../support/run_all.h"
#include "platform/base/twips.h"
#include "viewer/album_menu.h"
#include "viewer/clock.h"
#include "viewer/filters.h"
#include "viewer/page_layout.h"
#include "viewer/status_line.h"
#include "viewer/window_layout.h"

using namespace Qt::Literals::StringLiterals;

namespace {

CellGrid gridOf(QSize window, int pictures) {
    const Box page = windowLayout(window.width(), window.height(), 0).page;
    return cellGrid({page.width, page.height}, isLowWindow(window.width(), window.height()), pictures);
}

QRect rect(const Box& box) {
    return {box.left, box.top, box.width, box.height};
}

/// What the main window computes without widgets: places, conditions, texts.
class TestViewerRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cells() {
        const std::tuple<int, int, int, QSize> rows[] = {
            {12240, 1, 1, {12110, 9082}},   // half to even
            {12240, 4, 2, {6015, 4511}},    //
            {12240, 9, 3, {3983, 2987}},    // rounded down
            {12240, 25, 5, {2358, 1768}},   //
            {12240, 36, 6, {1952, 1464}},   // rounded up
            {52840, 1, 1, {52710, 39532}},  // wider than 16 bits
        };
        for (const auto& [area, pictures, columns, cell] : rows) {
            const CellGrid grid = cellGrid({area, 0}, false, pictures);
            QCOMPARE(grid.columns, columns);
            QCOMPARE(QSize(grid.cellWidth, grid.cellHeight), cell);
        }
    }

    void fit() {
        const std::tuple<QSize, bool, QSize> rows[] = {
            {{300, 200}, false, {9870, 6580}},   // wide fills the width
            {{300, 200}, true, {4500, 3000}},    //
            {{3000, 2000}, true, {9870, 6580}},  // larger than the room in original size
            {{133, 100}, false, {9870, 7421}},   // exactly 1.33 is wide
            {{132, 100}, false, {9768, 7400}},   // below it is tall
            {{100, 100}, false, {7400, 7400}},   //
            {{100, 100}, true, {1500, 1500}},    //
            {{32767, 100}, false, {9870, 30}},   // longest side
            {{3000, 1}, false, {9870, 15}},      // a pixel of the thinnest ones is left
            {{1, 3000}, true, {15, 7400}},       //
        };
        for (const auto& [pixels, original, fitted] : rows)
            QCOMPARE(fittedSize(pixels, {9870, 7400}, original), fitted);
    }

    void pagesOfLowWindows() {
        // 1920 x 1080, a little lower than 4 by 3, the smallest window.
        const std::tuple<QSize, int, QSize, Box> rows[] = {
            {{28800, 16200}, 1, {26510, 14500}, {3648, 80, 19333, 14500}},
            {{28800, 16200}, 36, {4352, 2366}, {658, 80, 3155, 2366}},
            {{14400, 10799}, 1, {12110, 9082}, {60, 80, 12109, 9082}},
            {{12000, 7800}, 36, {1552, 966}, {192, 80, 1288, 966}},
        };
        for (const auto& [window, pictures, cell, place] : rows) {
            const CellGrid grid = gridOf(window, pictures);
            QVERIFY(grid.isLow);
            QCOMPARE(QSize(grid.cellWidth, grid.cellHeight), cell);
            const QSize fitted = fittedSize({4000, 3000}, grid.room(), false);
            QCOMPARE(pictureBox(grid, 0, fitted), place);
            QCOMPARE(frameBox(grid, 0, fitted), (Box{place.left - 20, 50, place.width + 60, place.height + 60}));
        }
        // In its own size, too, a picture is in the middle.
        const CellGrid grid = gridOf({28800, 16200}, 1);
        QCOMPARE(pictureBox(grid, 0, fittedSize({100, 100}, grid.room(), true)), (Box{12565, 6580, 1500, 1500}));
    }

    void pagesOfHighWindowsFollowTheirWidth() {
        for (const QSize window : {QSize(14400, 10800), {12000, 9000}, {38400, 28800}, {9000, 13500}})
            for (const int columns : {1, 2, 3, 6}) {
                const CellGrid grid = gridOf(window, columns * columns);
                QCOMPARE(grid.cellHeight, roundHalfEven(grid.cellWidth * 0.75));
                const QSize square = fittedSize({9, 9}, grid.room(), false);
                QCOMPARE(square, QSize(grid.cellHeight, grid.cellHeight));
                QCOMPARE(pictureBox(grid, 0, square), (Box{60, 80, square.width(), square.height()}));
            }
    }

    void everyPictureIsInsideThePage() {
        for (const QSize pixels : {QSize(1920, 1080), {1366, 768}, {2560, 1080}, {1024, 600}, {600, 900}, {960, 720}})
            for (const int columns : {1, 2, 3, 6})
                for (const QSize picture : {QSize(4, 3), {3, 2}, {16, 9}, {3, 4}, {1, 1}, {4000, 1}, {1, 4000}}) {
                    const QSize window = pixels * twipsPerPixel;
                    const WindowLayout layout = windowLayout(window.width(), window.height(), 0);
                    const CellGrid grid = gridOf(window, columns * columns);
                    const QSize fitted = fittedSize(picture, grid.room(), false);
                    const QRect page(0, 0, layout.page.width, layout.page.height);
                    const int last = columns * columns - 1;
                    QVERIFY(page.contains(rect(frameBox(grid, 0, fitted))));
                    QVERIFY(page.contains(rect(frameBox(grid, last, fitted))));
                    QRect cell = rect(pictureBox(grid, last, {grid.cellWidth, grid.cellHeight}));
                    QVERIFY(cell.contains(rect(pictureBox(grid, last, fitted))));
                    // Captions of the second column are 20 twips further right.
                    QVERIFY(columns > 2 || cell.adjusted(0, 0, 20, 0).contains(rect(captionBox(grid, last))));
                }
    }

    void viewsFitTheWindow() {
        const std::tuple<QSize, QSize, QSize> rows[] = {
            {{12000, 9000}, {300, 200}, {9870, 6580}},       // 4 by 3: wide
            {{12000, 9000}, {132, 100}, {9768, 7400}},       // tall
            {{28800, 16200}, {4000, 3000}, {19467, 14600}},  // low
            {{28800, 16200}, {6000, 1000}, {26670, 4445}},   // low and wide
            {{38400, 16200}, {1600, 900}, {25956, 14600}},   //
            {{9000, 13500}, {4000, 3000}, {6870, 5152}},     // high
            {{9000, 13500}, {100, 100}, {6870, 6870}},       //
            {{9000, 13500}, {100, 200}, {5950, 11900}},      //
        };
        for (const auto& [window, pixels, fitted] : rows)
            QCOMPARE(fittedSize(pixels, viewRoom(window.width(), window.height()), false), fitted);
    }

    void boxesOfACell() {
        const CellGrid grid{2, 6015, 4511};
        const QSize fitted(6015, 4010);
        QCOMPARE(pictureBox(grid, 3, fitted), (Box{6155, 4651, 6015, 4010}));
        QCOMPARE(frameBox(grid, 3, fitted), (Box{6135, 4621, 6075, 4070}));
        // The right column's caption is 20 twips further right than its picture.
        QCOMPARE(captionBox(grid, 3), (Box{6185, 8882, 6005, 270}));
        QCOMPARE(captionBox({2, 5999, 4499}, 0), (Box{70, 4119, 5989, 450}));
    }

    void numbersOfPagesAndColumns() {
        for (const auto [pictures, perPage, pages] : {std::array{10, 4, 3}, {8, 4, 2}, {0, 4, 0}, {1, 36, 1}})
            QCOMPARE(pagesFor(pictures, perPage), pages);
        const std::pair<QString, int> typed[] = {{u"1列"_s, 1}, {u"３列"_s, 3}, {u"6列"_s, 6}, {u"7列"_s, 6},
                                                 {u""_s, 0},    {u"列"_s, 0},   {u"0列"_s, 0}, {u"-2"_s, 0}};
        for (const auto& [text, columns] : typed) QCOMPARE(columnsFromText(text), columns);
        for (const auto& [page, text] : {std::pair(2.5, u"3"_s), {3.0, u"3"_s}, {10 / 9.0, u"2"_s}, {-0.5, u"0"_s}})
            QCOMPARE(pageText(page), text);
        QCOMPARE(firstIndexOfPage(3, 4), 8);
        QCOMPARE(firstIndexOfPage(2.5, 4), 6);
        QCOMPARE(firstIndexOfPage(1e15, 36), 1'000'000'000);
    }

    void windowAt960By720() {
        const WindowLayout layout = windowLayout(14400, 10800, 0);
        QCOMPARE(layout.page, (Box{1950, 510, 12240, 9210}));
        QCOMPARE(layout.right, (LineEnds{14210, 510, 14210, 9730}));
        const std::pair<int, int> lengths[] = {{layout.buttonStripHeight, 8415},
                                               {layout.outerFrame.height, 9210},
                                               {layout.innerFrame.top, 570},
                                               {layout.innerFrame.height, 9095},
                                               {layout.top.x2, 14210},
                                               {layout.top.y1, 480},
                                               {layout.left.y1, 490},
                                               {layout.bottom.x2, 14200},
                                               {layout.bottom.y1, 9730},
                                               {layout.messagePanelWidth, 7450}};
        for (const auto& [length, expected] : lengths) QCOMPARE(length, expected);
    }

    void highTitleBarRaisesEverything() {
        const auto heights = [](int raise) {
            const WindowLayout layout = windowLayout(14400, 10800, raise);
            return QList{layout.page.top, layout.outerFrame.top, layout.innerFrame.top, layout.top.y1,
                         layout.left.y2,  layout.bottom.y1,      layout.right.y1};
        };
        const QList<int> usual = heights(0), raised = heights(60);
        for (int i = 0; i < usual.size(); ++i) QCOMPARE(raised[i], usual[i] - 60);
        QCOMPARE(windowLayout(14400, 10800, 60).page.height, windowLayout(14400, 10800, 0).page.height);
    }

    void stripDoesNotOverlap() {
        constexpr int button = 390;
        constexpr int endOfDateButton = 4780 + button;
        for (const int pixels : {800, 960, 1366, 1920}) {
            const StripLayout strip = stripLayout(pixels * 15);
            const std::pair<int, int> endsAndBegins[] = {
                {endOfDateButton, strip.titleLeft},       {strip.titleLeft + strip.titleWidth, strip.draw},
                {strip.draw + button, strip.columns},     {strip.columns + 405, strip.show},
                {strip.show + button, strip.interval},    {strip.interval + button, strip.captions},
                {strip.original + button, strip.help},    {strip.help + button, strip.leave},
                {strip.leave + button, pixels * 15 - 200}};
            for (const auto& [end, begin] : endsAndBegins)
                QVERIFY2(end <= begin, qPrintable(u"%1: %2, %3"_s.arg(pixels).arg(end).arg(begin)));
            QVERIFY(strip.titleWidth > 0);
        }
        const StripLayout narrow = stripLayout(480 * 15);
        QVERIFY(narrow.draw >= endOfDateButton && narrow.draw + button <= narrow.columns);
        QCOMPARE(narrow.titleWidth, 0);
    }

    void buttonSlots() {
        // Four, one short of four, the usual window, more than eleven, none.
        for (const auto [height, slotCount, gap] :
             {std::array{5000, 4, 20}, {4990, 3, 22}, {8415, 6, 152}, {15015, 12, 24}, {940, 0, 940}}) {
            const ButtonColumn column = buttonColumn(height);
            QCOMPARE(column.slots, slotCount);
            QCOMPARE(column.gap, gap);
            QCOMPARE(column.topOf(2), 405 + column.gap + 2 * (column.gap + 1225));
        }
    }

    void selections() {
        const auto day = dayCondition(DateRelation::after, u"2003-10-01"_s);
        const QString after = u" DateValue(日期) > #2003-10-01#"_s;
        const std::tuple<Conditions, QString> rows[] = {
            {{u"x"_s, {}, u"序号 = 7"_s}, u"InStr(编号,'x') > 0 And 序号 = 7"_s},
            {{u"x"_s, {}, {}}, u"InStr(编号,'x') > 0"_s},
            {{u"x"_s, day, u"序号 < 7"_s}, u"InStr(编号,'x') > 0 And "_s + after + u" And 序号 < 7"_s},
            {{u"'"_s, {}, {}}, u"InStr(编号,'''') > 0"_s},
            {{u"v"_s, day, u"序号 > 5"_s}, after + u" And 序号 > 5"_s},
            {{u"v"_s, day, {}}, after},
            {{u"v"_s, {}, u"序号 > 5"_s}, u"序号 > 5"_s},
            {{u"v"_s, dayCondition(DateRelation::before, u"20031001"_s), {}}, u" DateValue(日期) < #2003-10-01#"_s},
            {{u"v"_s, dayCondition(DateRelation::on, u"2003-5-1"_s), {}}, u" DateValue(日期) = #2003-05-01#"_s},
        };
        for (const auto& [conditions, condition] : rows)
            QCOMPARE(selectionSql(u"tc05"_s, conditions),
                     u"SELECT * FROM tc05 WHERE "_s + condition + u" ORDER BY [序号]"_s);
        QVERIFY(!selectionSql(u"tc05"_s, {}));
        QCOMPARE(buttonSql(u"tc05"_s, u"v"_s), u"SELECT * FROM tc05 ORDER BY [序号]"_s);
        QCOMPARE(buttonSql(u"tc05"_s, u"x"_s), u"SELECT * FROM tc05 WHERE  InStr(编号,'x') > 0 ORDER BY [序号]"_s);
        QCOMPARE(numberCondition(u"序号>"_s, u"5"_s), u"序号 > 5"_s);
        for (const QString& any : {u"序号任意"_s, u"序号"_s}) QCOMPARE(numberCondition(any, u"5"_s), QString());
    }

    void pageLine() {
        const auto day = [](DateRelation relation) { return dayCondition(relation, u"2003-10-01"_s); };
        const std::tuple<Conditions, bool, int, int, QString> rows[] = {
            {{u"x"_s, day(DateRelation::after), u"序号 > 5"_s},
             true,
             3,
             1,
             u"日期晚于2003-10-01 序号> 5 共3张 共1页"_s},
            {{u"v"_s, day(DateRelation::before), {}}, true, 0, 0, u"日期早于2003-10-01 共0张 共0页"_s},
            {{u"v"_s, {}, u"序号 = 7"_s}, true, 1, 1, u" 序号= 7 共1张 共1页"_s},
            {{}, false, 10, 3, u"全部 共10张 共3页"_s},
            {{}, true, 3, 1, u"全部（待重新选择） 共3张 共1页"_s},
        };
        for (const auto& [conditions, isLeftOver, pictures, pages, line] : rows)
            QCOMPARE(pageStatus(conditions, isLeftOver, pictures, pages), line);
    }

    void typedDates() {
        const std::tuple<TypedDate, int, TypedDate> rows[] = {
            {{u"03"_s, 2}, 1, {u"2003--"_s, 5}},
            {{u"85"_s, 2}, 1, {u"1985--"_s, 5}},
            {{u"10"_s, 2}, 1, {u"10"_s, 2}},  // may be the beginning of a year
            {{u"20"_s, 2}, 1, {u"20"_s, 2}},  // may be, too
            {{u"21"_s, 2}, 1, {u"1921--"_s, 5}},
            {{u"10-"_s, 3}, 1, {u"2010--"_s, 5}},  // is none
            {{u"2015"_s, 4}, 1, {u"2015--"_s, 5}},
            {{u"x3"_s, 2}, 1, {u"x3"_s, 2}},
            {{u"10-5"_s, 4}, 4, {u"10-5"_s, 4}},
            {{u"2003---"_s, 6}, 1, {u"2003--"_s, 5}},
            {{u"2003-1-"_s, 6}, 1, {u"2003-1-"_s, 6}},
            {{u"2003-1--"_s, 7}, 1, {u"2003-1-"_s, 7}},
            {{u"2003-5-"_s, 6}, 1, {u"2003-5-"_s, 7}},
            {{u"2003-5--"_s, 8}, 1, {u"2003-5-"_s, 7}},
            {{u"2003-5-12"_s, 9}, 1, {u"2003-5-12"_s, 9}},  // what was typed last stays in front of the caret
            {{u"2003-10-"_s, 7}, 1, {u"2003-10-"_s, 8}},
            {{u"2003-10--"_s, 9}, 1, {u"2003-10-"_s, 8}},
            {{u"2003-10-01"_s, 10}, 1, {u"2003-10-01"_s, 10}},
            {{u"2003年10月1日"_s, 10}, 10, {u"2003年10月1日"_s, 10}},
        };
        for (const auto& [typed, grown, expected] : rows) {
            const TypedDate helped = helpTypedDate(typed, grown);
            QCOMPARE(helped.text, expected.text);
            QVERIFY2(helped.caret == expected.caret, qPrintable(typed.text + u' ' + QString::number(helped.caret)));
        }
    }

    void daysOfConditions() {
        for (const auto& [typed, words] : {std::pair(u"2003-5-1"_s, u"2003-5-1"_s),
                                           {u" 2003年5月1日 "_s, u"2003年5月1日"_s},
                                           {u"030501"_s, u"2003-05-01"_s},
                                           {u"2003.5.1"_s, u"2003-05-01"_s},
                                           {u"2003-05-01 12:30"_s, u"2003-05-01"_s}}) {
            const auto condition = dayCondition(DateRelation::on, typed);
            QVERIFY(condition && condition->day == QDate(2003, 5, 1));
            QCOMPARE(condition->words, words);
        }
        QVERIFY(!dayCondition(DateRelation::on, u"2003-13-01"_s));
    }

    void linesAreCutBeforeTheirCounts() {
        const QFontMetrics metrics{QFont()};
        const QString title = u"很长很长很长很长的标题"_s, rest = u"(tc01)[风景] 共 182 张"_s;
        const int whole = metrics.horizontalAdvance(title + rest);
        QCOMPARE(cutLine(title + rest, title.size(), whole, metrics), title + rest);
        for (int width = whole - 1; width > metrics.horizontalAdvance(u"… 共 182 张"_s); width -= 7) {
            const QString cut = cutLine(title + rest, title.size(), width, metrics);
            QVERIFY2(cut.contains(u'…') && cut.endsWith(u" 共 182 张"), qPrintable(cut));
            QVERIFY(metrics.horizontalAdvance(cut) <= width);
        }
    }

    void panelsShareTheirRoom() {
        // Enough for all, a long album line, a long title too, no room to spare.
        const std::tuple<PanelWidths, int, PanelWidths> rows[] = {
            {{1200, 2000, 3000}, 7450, {1200, 2600, 7450}}, {{1200, 4000, 3000}, 7450, {1200, 4000, 6050}},
            {{2100, 9000, 3000}, 7450, {1800, 6450, 3000}}, {{2100, 3000, 3000}, 7450, {2100, 3000, 6150}},
            {{2100, 9000, 8000}, 7450, {1800, 2000, 7450}},
        };
        for (const auto& [asked, message, shared] : rows) {
            const PanelWidths widths = sharedWidths(asked, message);
            QVERIFY2(widths == shared,
                     qPrintable(u"%1 %2 %3"_s.arg(widths.title).arg(widths.album).arg(widths.message)));
        }
    }

    void equalTitlesAreToldApart() {
        const QStringList tips = tipsOfEqualTitles({u"演示"_s, u"Trip"_s, u"旅行"_s, u"trip"_s},
                                                   {u"tc00"_s, u"tc01"_s, u"tc02"_s, u"tc09"_s});
        QCOMPARE(tips, (QStringList{{}, u"tc01"_s, {}, u"tc09（标题与 tc01 相同，打开的是 tc01）"_s}));
    }

    void clock() {
        QCOMPARE(clockText(QDateTime(QDate(2003, 10, 1), QTime(9, 5, 7))), u"2003年10月01日 09:05:07 周三"_s);
        QCOMPARE(clockText(QDateTime(QDate(2003, 10, 5), QTime(23, 59, 59))), u"2003年10月05日 23:59:59 周日"_s);
        QCOMPARE(titleColours(QTime(1, 1, 30)), (TitleColours{QColor(0, 0, 170), QColor(0, 255, 192)}));
        QCOMPARE(titleColours(QTime(1, 1, 38)), (TitleColours{QColor(255, 0, 0), QColor(255, 192, 192)}));
        QCOMPARE(titleColours(QTime(1, 1, 6)), (TitleColours{QColor(255, 0, 255), QColor(255, 210, 255)}));
    }
};

const Registered<TestViewerRules> registered;

}  // namespace

#include "rules_test.moc"
