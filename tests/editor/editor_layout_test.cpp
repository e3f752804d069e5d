#include "editor/editor_layout.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

namespace {

constexpr QSize screen(15360, 11520);
constexpr int toolBar = 330;

EditorLayoutInput input(QSize picture, int toolbarHeight = 0, int titleBarExtra = 0) {
    return {picture, screen, toolbarHeight, titleBarExtra};
}

struct Expected {
    QSize window, view;
    QRect background;
    EditorLayout::Bar horizontal, vertical;
};

constexpr EditorLayout::Bar noBar{};

}  // namespace

Q_DECLARE_METATYPE(EditorLayoutInput)
Q_DECLARE_METATYPE(Expected)

namespace {

class TestEditorLayout : public QObject {
    Q_OBJECT

    static void verifyBar(const EditorLayout::Bar& bar, const EditorLayout::Bar& expected) {
        QCOMPARE(bar.visible, expected.visible);
        QCOMPARE(bar.placed, expected.placed);
        if (!expected.placed) return;
        QCOMPARE(bar.place, expected.place);
        QCOMPARE(bar.maximum, expected.maximum);
        QCOMPARE(bar.largeStep, expected.largeStep);
        QCOMPARE(bar.smallStep, expected.smallStep);
    }

  private Q_SLOTS:
    void pictureInTheWindow_data() {
        QTest::addColumn<EditorLayoutInput>("input");
        QTest::addColumn<Expected>("expected");
        const auto row = [](const char* name, const EditorLayoutInput& layoutInput, const Expected& expected) {
            QTest::newRow(name) << layoutInput << expected;
        };
        row("small, the least window", input({6000, 4500}),
            {{9600, 7200}, {6000, 4500}, {0, 0, 9515, 6520}, noBar, noBar});
        row("small, below the tool bar", input({6000, 4500}, toolBar),
            {{9600, 7200}, {6000, 4500}, {0, 330, 9515, 6190}, noBar, noBar});
        row("largest in the least window", input({9450, 6435}),
            {{9600, 7200}, {9450, 6435}, {0, 0, 9515, 6520}, noBar, noBar});
        row("one twip more each way", input({9451, 6436}),
            {{9601, 7171}, {9451, 6436}, {0, 0, 9516, 6491}, noBar, noBar});
        row("with tool bar and a higher title bar", input({9600, 6500}, toolBar, 120),
            {{9750, 7685}, {9600, 6500}, {0, 330, 9665, 6555}, noBar, noBar});
        row("fills the screen without bars", input({15210, 10755}),
            {{15360, 11490}, {15210, 10755}, {0, 0, 15275, 10810}, noBar, noBar});
        row("too wide, small step halfway to the even", input({29980, 4500}),
            {{15360, 7200},
             {15210, 4500},
             {0, 0, 15275, 6520},
             {true, true, {30, 4530, 15210, 250}, 14770, 1477, 738},
             noBar});
        row("too wide and a window above the least", input({30010, 8000}, toolBar),
            {{15360, 9315},
             {15210, 8000},
             {0, 330, 15275, 8305},
             {true, true, {30, 8360, 15210, 250}, 14800, 1480, 740},
             noBar});
        row("too high, steps of the horizontal bar's first maximum", input({6000, 20000}),
            {{9600, 11520},
             {6000, 10755},
             {0, 0, 9515, 10840},
             noBar,
             {true, true, {6030, 30, 250, 10755}, 9245, 3277, 1638}});
        row("too high and rather wide", input({12000, 10876}, 0, 120),
            {{12400, 11520},
             {12000, 10635},
             {0, 0, 12315, 10720},
             noBar,
             {true, true, {12030, 30, 250, 10635}, 241, 3277, 1638}});
        row("both", input({30000, 20000}, toolBar),
            {{15360, 11520},
             {14960, 10175},
             {0, 330, 15275, 10510},
             {true, true, {30, 10535, 14960, 250}, 15040, 1504, 752},
             {true, true, {14990, 360, 250, 10175}, 9825, 1504, 752}});
        row("fifty megapixels", input({122880, 92160}),
            {{15360, 11520},
             {14960, 10505},
             {0, 0, 15275, 10840},
             {true, true, {30, 10535, 14960, 250}, 107920, 10792, 5396},
             {true, true, {14990, 30, 250, 10505}, 81655, 10792, 5396}});
        EditorLayoutInput after = input({6000, 20000});
        after.horizontalMaximum = 45;
        row("too high after a wide one, halves to even", after,
            {{9600, 11520},
             {6000, 10755},
             {0, 0, 9515, 10840},
             noBar,
             {true, true, {6030, 30, 250, 10755}, 9245, 4, 2}});
    }
    void pictureInTheWindow() {
        QFETCH(EditorLayoutInput, input);
        QFETCH(Expected, expected);
        const EditorLayout layout = editorLayout(input);
        QCOMPARE(layout.window, expected.window);
        QCOMPARE(layout.view, expected.view);
        QCOMPARE(layout.viewport, QRect(QPoint(30, input.toolbarHeight + 30), expected.view));
        QCOMPARE(layout.picture, input.picture);
        QCOMPARE(layout.background, expected.background);
        verifyBar(layout.horizontal, expected.horizontal);
        verifyBar(layout.vertical, expected.vertical);
    }

    void welcomePicture_data() {
        QTest::addColumn<int>("toolbarHeight");
        QTest::addColumn<int>("screenHeight");
        QTest::addColumn<QRect>("viewport");
        QTest::addColumn<QSize>("window");
        QTest::newRow("without tool bar") << 0 << 11520 << QRect(30, 30, 9450, 6470) << QSize(9600, 7200);
        QTest::newRow("with tool bar") << toolBar << 11520 << QRect(30, 360, 9450, 5810) << QSize(9600, 7200);
        QTest::newRow("low screen") << 0 << 6500 << QRect(30, 30, 9450, 6065) << QSize(9600, 6500);
    }
    void welcomePicture() {
        QFETCH(int, toolbarHeight);
        QFETCH(int, screenHeight);
        EditorLayoutInput welcome = input({9450, 6140 - toolbarHeight}, toolbarHeight);
        welcome.screen.setHeight(screenHeight);
        welcome.welcome = true;
        const EditorLayout layout = editorLayout(welcome);
        QTEST(layout.viewport, "viewport");
        QCOMPARE(layout.picture, layout.viewport.size());
        QTEST(layout.window, "window");
        QVERIFY(!layout.horizontal.visible && !layout.vertical.visible);
    }
};

const Registered<TestEditorLayout> registered;

}  // namespace

#include "editor_layout_test.moc"
