#include "../support/sample_catalogue.h"
#include "editor/document/document.h"
#include "editor/document/hints.h"
#include "editor/document/picture_files.h"
#include "editor/document/selection.h"
#include "editor/editor_layout.h"
#include "editor/operations/operation.h"
#include "editor/operations/trail.h"
#include "editor/operations/typed_numbers.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using enum SelectionShape;

constexpr QSize screen(15360, 11520);
constexpr int toolBar = 330;

EditorLayoutInput input(QSize picture, int toolbarHeight = 0, int titleBarExtra = 0, int horizontalMaximum = 32767) {
    return {.picture = picture,
            .screen = screen,
            .toolbarHeight = toolbarHeight,
            .titleBarExtra = titleBarExtra,
            .welcome = false,
            .form = {},
            .horizontalMaximum = horizontalMaximum};
}

/// A bar is told by its maximum, its large and its small step; one that does not show by nothing.
void verifyBar(const EditorLayout::Bar& bar, const QList<int>& expected, const QRect& place) {
    QCOMPARE(bar.visible, !expected.isEmpty());
    QCOMPARE(bar.placed, !expected.isEmpty());
    if (expected.isEmpty()) return;
    QCOMPARE(bar.place, place);
    QCOMPARE((QList{bar.maximum, bar.largeStep, bar.smallStep}), expected);
}

/// What the editor computes without widgets: places, sizes, texts, the trail of steps.
class TestEditorRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void turnsOfATrail() {
        const std::pair<QString, int> cases[] = {
            {{}, 1},           {u" 水平翻转"_s, 2}, {u" 垂直翻转"_s, 4},          {u" 90度"_s, 8},
            {u" -90度"_s, 6},  {u" 270.0度"_s, 6},  {u" 水平翻转 垂直翻转"_s, 3}, {u" 水平翻转 -90度"_s, 7},
            {u" 45度"_s, 0},   {u" 90度 *2"_s, 0},  {u" 裁剪 水平翻转"_s, 0},     {u" 720度"_s, 1},
            {u" ９０度"_s, 8},
        };
        for (const auto& [trail, turn] : cases) {
            const auto found = turnOfTrail(trail);
            QVERIFY2(found.value_or(0) == turn, qPrintable(trail));
        }
    }

    void pictureInTheWindow() {
        const struct {
            EditorLayoutInput in;
            QSize window, view;
            QList<int> horizontal, vertical;
        } cases[] = {
            {input({6000, 4500}), {9600, 7200}, {6000, 4500}, {}, {}},
            {input({6000, 4500}, toolBar), {9600, 7200}, {6000, 4500}, {}, {}},
            // The largest in the least window, one twip more each way, a higher title bar, all of the screen.
            {input({9450, 6435}), {9600, 7200}, {9450, 6435}, {}, {}},
            {input({9451, 6436}), {9601, 7171}, {9451, 6436}, {}, {}},
            {input({9600, 6500}, toolBar, 120), {9750, 7685}, {9600, 6500}, {}, {}},
            {input({15210, 10755}), {15360, 11490}, {15210, 10755}, {}, {}},
            // Too wide: the small step goes to the even.
            {input({29980, 4500}), {15360, 7200}, {15210, 4500}, {14770, 1477, 738}, {}},
            {input({30010, 8000}, toolBar), {15360, 9315}, {15210, 8000}, {14800, 1480, 740}, {}},
            // Too high: the steps are those of the horizontal bar's maximum.
            {input({6000, 20000}), {9600, 11520}, {6000, 10755}, {}, {9245, 3277, 1638}},
            {input({12000, 10876}, 0, 120), {12400, 11520}, {12000, 10635}, {}, {241, 3277, 1638}},
            {input({6000, 20000}, 0, 0, 45), {9600, 11520}, {6000, 10755}, {}, {9245, 4, 2}},
            // Both, the second of fifty megapixels.
            {input({30000, 20000}, toolBar), {15360, 11520}, {14960, 10175}, {15040, 1504, 752}, {9825, 1504, 752}},
            {input({122880, 92160}), {15360, 11520}, {14960, 10505}, {107920, 10792, 5396}, {81655, 10792, 5396}},
        };
        for (const auto& [in, window, view, horizontal, vertical] : cases) {
            const EditorLayout layout = editorLayout(in);
            const int top = in.toolbarHeight;
            QCOMPARE(layout.window, window);
            QCOMPARE(layout.view, view);
            QCOMPARE(layout.viewport, QRect(QPoint(30, top + 30), view));
            QCOMPARE(layout.picture, in.picture);
            QCOMPARE(layout.background,
                     QRect(0, top, window.width() - 85, window.height() - 680 - top - in.titleBarExtra));
            verifyBar(layout.horizontal, horizontal, {30, top + 30 + view.height(), view.width(), 250});
            verifyBar(layout.vertical, vertical, {30 + view.width(), top + 30, 250, view.height()});
        }
    }

    // A window that somebody has made smaller, or that a screen keeps at its size.
    void pictureInAWindowOfAnotherSize() {
        const struct {
            QSize picture, form, view;
            bool horizontal, vertical;
        } cases[] = {
            {{6000, 4500}, {9600, 6750}, {6000, 4500}, false, false},
            {{6000, 4500}, {6060, 4890}, {6000, 4500}, false, false},
            {{6000, 4500}, {6059, 6750}, {5999, 4500}, true, false},
            {{6000, 4500}, {6060, 4889}, {5750, 4249}, true, true},  // each bar takes room from the other side
            {{6000, 4500}, {9600, 4889}, {6000, 4499}, false, true},
            {{30000, 20000}, {15360, 11070}, {15050, 10430}, true, true},
            {{6000, 4500}, {100, 100}, {0, 0}, true, true},
        };
        for (const auto& [picture, form, view, horizontal, vertical] : cases) {
            EditorLayoutInput in = input(picture, toolBar);
            in.form = form;
            const EditorLayout layout = editorLayout(in);
            QCOMPARE(layout.view, view);
            QCOMPARE(layout.horizontal.visible, horizontal);
            QCOMPARE(layout.vertical.visible, vertical);
            if (horizontal) QCOMPARE(layout.horizontal.maximum, picture.width() - view.width());
            if (vertical) QCOMPARE(layout.vertical.place.topLeft(), QPoint(30 + view.width(), toolBar + 30));
        }
    }

    void welcomePicture() {
        const std::tuple<int, int, QRect, QSize> rows[] = {
            {0, 11520, {30, 30, 9450, 6470}, {9600, 7200}},
            {toolBar, 11520, {30, 360, 9450, 5810}, {9600, 7200}},
            {0, 6500, {30, 30, 9450, 6065}, {9600, 6500}},
        };
        for (const auto& [toolbarHeight, screenHeight, viewport, window] : rows) {
            EditorLayoutInput welcome = input({9450, 6140 - toolbarHeight}, toolbarHeight);
            welcome.screen.setHeight(screenHeight);
            welcome.welcome = true;
            const EditorLayout layout = editorLayout(welcome);
            QCOMPARE(layout.viewport, viewport);
            QCOMPARE(layout.picture, viewport.size());
            QCOMPARE(layout.window, window);
            QVERIFY(!layout.horizontal.visible && !layout.vertical.visible);
        }
    }

    void selectionFollowsThePointer() {
        const std::tuple<SelectionShape, QPoint, QSize> rows[] = {
            {free, {1500, 900}, {1200, 300}},
            {free, {0, 0}, {-300, -600}},
            {free, {300, 600}, {0, 0}},
            {ratio, {1500, 9000}, {1200, 900}},  // takes no notice of the height
            {ratio, {315, 0}, {15, 11}},         // 11.25
            {ratio, {330, 0}, {30, 22}},         // 22.5 goes to the even
            {ratio, {0, 900}, {-300, -225}},
            {fixed, {-9, 7}, {1500, 1125}},
            // Beyond the picture's edges.
            {free, {9000, 9000}, {5700, 3900}},
            {free, {9000, 900}, {5700, 300}},
            {ratio, {9000, 700}, {5200, 3900}},
            {fixed, {9000, 9000}, {1500, 1125}},
        };
        for (const auto& [shape, pointer, size] : rows)
            QCOMPARE(selectionSize(shape, {300, 600}, pointer, {6000, 4500}), size);
        QCOMPARE(selectionSize(ratio, {3000, 600}, {9000, 700}, {6000, 4500}), QSize(3000, 2250));
    }

    void partsMoveIntoThePicture() {
        const std::pair<QRect, QRect> rows[] = {{{10, 20, 100, 75}, {10, 20, 100, 75}},
                                                {{250, 180, 100, 75}, {200, 125, 100, 75}},
                                                {{200, 125, 100, 75}, {200, 125, 100, 75}},
                                                {{-5, 199, 100, 75}, {0, 125, 100, 75}},
                                                {{10, 20, 400, 75}, {0, 20, 400, 75}}};
        for (const auto& [part, inside] : rows) QCOMPARE(shiftedIn(part, {300, 200}), inside);
    }

    void draggingScrollsBeyondTheEdgesAlone() {
        const struct {
            int inView, inPicture, step;
        } rows[] = {{3000, 3000, 0}, {3000, 8000, 0},  {3015, 3015, 200}, {3015, 9785, 200}, {3015, 9800, 0},
                    {0, 500, 0},     {-15, 485, -200}, {-15, 201, -200},  {-15, 200, 0},     {-15, -15, 0}};
        for (const auto& [inView, inPicture, step] : rows) QCOMPARE(scrollOfDrag(inView, 3000, inPicture, 10000), step);
    }

    void selectionReadouts() {
        const std::pair<QSize, QString> texts[] = {{{1800, 1350}, u"W：120 H：90 W/H：1.333"_s},
                                                   {{300, 300}, u"W：20 H：20 W/H：1.000"_s},
                                                   {{600, 360}, u"W：40 H：24 W/H：1.667"_s},
                                                   {{150000, 75}, u"W：10000 H：5 W/H：2000.000"_s},
                                                   {{150, 0}, u"W：10 H：0 W/H："_s}};
        for (const auto& [size, text] : texts) QCOMPARE(selectionReadout({150, 300}, size), u"L：10 T：20 "_s + text);

        const std::pair<QPoint, QPoint> places[] = {{{100, 200}, {100, 200}},     {{4000, 4229}, {4000, 4229}},
                                                    {{4001, 4230}, {2001, 4230}}, {{5900, 9000}, {3900, 4230}},
                                                    {{9000, -100}, {4000, 0}},    {{-300, 100}, {0, 100}}};
        for (const auto& [wanted, place] : places) QCOMPARE(readoutPlace(wanted, 2000, {6000, 4500}), place);
        QCOMPARE(readoutPlace({800, 50}, 2000, {1500, 200}), QPoint(0, 0));

        QVERIFY(readoutShows({21, 21}));
        for (const QSize small : {QSize(20, 300), QSize(300, 20), QSize(-300, -300)}) QVERIFY(!readoutShows(small));
    }

    void buttonPictureTexts() {
        const std::tuple<SelectionShape, QSize, QString, QString> rows[] = {
            {ratio, {1500, 1125}, u"100 * 75"_s, u"1：1"_s},
            {ratio, {1800, 1350}, u"120 * 90"_s, u"1.2：1"_s},
            {ratio, {75, 56}, u"5 * 3"_s, u"0.05：1"_s},  // part of a row is cut off
            {fixed, {1, 1}, u"100 * 75"_s, u"1：1"_s},
        };
        for (const auto& [shape, size, selected, zoom] : rows) {
            QCOMPARE(selectedSizeText(shape, size), u"选中尺寸："_s + selected);
            QCOMPARE(zoomRatioText(shape, size), u"缩放比例："_s + zoom);
        }
    }

    void selectionIsWhiteOnDarkRedOnLight() {
        for (const QRgb dark : {qRgb(43, 43, 42), qRgb(0, 0, 128)}) QCOMPARE(selectionColour(dark), QColor(Qt::white));
        for (const QRgb light : {qRgb(43, 43, 43), qRgb(0, 129, 0)}) QCOMPARE(selectionColour(light), QColor(Qt::red));
    }

    void hints() {
        QVERIFY(hintFor(u"k0"_s).startsWith(u"先选择图册，再在右边筛选"_s));
        QCOMPARE(hintFor(u"k1"_s), hintFor(u"w1"_s));
        for (const QString& code : {u"c2"_s, u"x2"_s, u"p1"_s, u"z1"_s}) QCOMPARE(hintFor(code), hintFor(u"s2"_s));
        QVERIFY(hintFor(u"a1"_s).contains(u"100＊75像素"_s));
        for (const QString& code : {u"00"_s, u"v1"_s, u"a4"_s, u"b"_s, u"c"_s, QString()})
            QCOMPARE(hintFor(code), QString());
        QCOMPARE(hintWidth({}), 60);
        QCOMPARE(hintWidth(u"a图1"_s), 4 * 90 + 60);
    }

    void typedNumbers() {
        const std::pair<QString, double> factors[] = {{u".5"_s, 0.5},     {u"50%"_s, 0.5},  {u"１５０％"_s, 1.5},
                                                      {u"２．５"_s, 2.5}, {u"1。5"_s, 1.5}, {u" 200 % "_s, 2},
                                                      {u"abc"_s, 0},      {u"－２"_s, -2}};
        for (const auto& [text, factor] : factors) QCOMPARE(factorFromText(text), factor);
        const std::pair<QString, double> angles[] = {
            {u"90"_s, 90}, {u"－４５"_s, -45}, {u"３．５"_s, 3.5}, {u"９０度"_s, 90}, {u""_s, 0}};
        for (const auto& [text, angle] : angles) QCOMPARE(numberFromText(text), angle);
    }

    void sourceLineOfAFile() {
        const std::tuple<qint64, QSize, QString> rows[] = {
            {1536, {100, 75}, u"大小：1.500KB  规格：100 * 75"_s},
            {512, {1, 1}, u"大小：0.500KB  规格：1 * 1"_s},
            {4'567'890, {4000, 3000}, u"大小：4,460.830KB  规格：4000 * 3000"_s},
            {0, {32767, 8001}, u"大小：0.000KB  规格：32767 * 8001"_s},
        };
        for (const auto& [bytes, pixels, tail] : rows) {
            const QSize hiMetric(hiMetricFromPixels(pixels.width()), hiMetricFromPixels(pixels.height()));
            QCOMPARE(sourceLine(PictureFile{u"/相片/a b.jpg"_s, bytes, hiMetric}),
                     u"[从文件读出] /相片/a b.jpg  "_s + tail);
        }
    }

    void sourceLineOfARecordLeavesOutNulls() {
        const SampleCatalogue sample;
        const QString first = u"SELECT * FROM tc01 WHERE 序号 = 1"_s;
        const auto line = [&first] {
            return sourceLine(albumRecord(u"tc01"_s, mekTp::catalogue.OpenRecordset(first)));
        };
        changeRow(first, {{u"大小"_s, u"1.234"_s}});
        QCOMPARE(line(), u"[从图册读出] 图册名：tc01 序号：1 编号：12 大小：1.234 规格：40 * 30"_s);
        changeRow(first, {{u"编号"_s, {}}, {u"大小"_s, {}}});
        QCOMPARE(line(), u"[从图册读出] 图册名：tc01 序号：1 规格：40 * 30"_s);
    }

    // The window and the surface take their sizes from the twips: they must come to the picture's pixels again.
    void twipsOfAPicture() {
        QCOMPARE(pictureTwips(hiMetricFromPixels(100), 100), 1500);
        QCOMPARE(pictureTwips(hiMetricFromPixels(2184), 2184), 32762);
        for (int pixels = 1; pixels <= longestPictureSide; ++pixels) {
            const int twips = pictureTwips(hiMetricFromPixels(pixels), pixels);
            if ((twips + 7) / 15 != pixels) QFAIL(qPrintable(u"%1 pixels, %2 twips"_s.arg(pixels).arg(twips)));
        }
    }

    void namesOfSavedFiles() {
        for (const auto& [chosen, name] : {std::pair(u"a.jpg"_s, u"a.jpg"_s),
                                           {u"a.bmp"_s, u"a.bmp"_s},
                                           {u"a.png"_s, u"a.bmp"_s},
                                           {u"a.JPG"_s, u"a.bmp"_s},
                                           {u"a.jpeg"_s, u"a.bmp"_s},
                                           {u"/x.y/照片"_s, u"/x.y/照片.bmp"_s}})
            QCOMPARE(savingName(chosen), name);
    }

    // Commands, hints and states are found by them.
    void operationsAreToldApart() {
        QSet<QString> keys, items, codes;
        for (const Operation* operation : operations()) {
            QVERIFY(operation->plan && !operation->caption.isEmpty() && !operation->doneHint.text.isEmpty());
            QCOMPARE(operation->question.isEmpty(), operation->asksNothing());
            keys << operation->key;
            items << operation->item;
            codes << operation->doneCode << operation->doneHint.code;
            QCOMPARE(hintFor(operation->doneHint.code), operation->doneHint.text);
            QCOMPARE(hintFor(operation->askingHint.code), operation->askingHint.text);
        }
        const auto count = operations().size();
        QVERIFY(size_t(keys.size()) == count && size_t(items.size()) == count && size_t(codes.size()) == 2 * count);
    }

    void aDocumentTellsWhatItIs() {
        const SampleCatalogue sample;
        QImage image(80, 60, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.setPixelColor(0, 0, Qt::blue);
        Document document;
        QStringList heard;
        connect(&document, &Document::opened, this, [&] { heard << u"opened"_s; });
        connect(&document, &Document::pictureChanged, this, [&] { heard << document.code(); });
        connect(&document, &Document::closed, this, [&] { heard << u"closed"_s; });
        document.open(PictureFile{u"/a.bmp"_s, 1, {2117, 1588}}, Picture(image), u"hint"_s);
        QVERIFY(document.isOpen() && !document.isUnsaved() && !document.isFromAlbum());
        QCOMPARE(document.size(), QSize(1200, 900));
        const Operation& flip = *operations().back();
        document.carryOut(flip);
        document.record(u"flipped"_s, 0);
        QVERIFY(document.isUnsaved() && document.shown() == image.mirrored());
        QCOMPARE(document.caption(), sourceLine(document.source()) + u"[ 垂直翻转]"_s);
        QCOMPARE(document.takeBack(), u"hint"_s);
        QVERIFY(!document.isUnsaved() && document.isTakenBack() && document.lastPaint() == image.mirrored());
        QVERIFY_THROWS_EXCEPTION(TooLarge, document.carryOut(*operations().front(), u"1000"_s));
        QVERIFY(!document.isTakenBack() && document.shown().size() == image.size());
        document.takeBack();
        QVERIFY(!document.isOpen() && !document.isUnsaved() && document.caption().isEmpty());
        QCOMPARE(heard, (QStringList{u"w1"_s, u"opened"_s, u"z"_s, u"z"_s, u"closed"_s}));
        for (const auto& [state, code] : {std::pair(EditState::nothing, u"00"_s), {EditState::fromAlbum, u"k1"_s}})
            QCOMPARE(codeOf(state), code);
    }

    // Two digits a step would read 100 back as "00" and never find a row again.
    void numbersOfStepsGoOnPastAHundred() {
        for (const auto& [step, text] : {std::pair(1, u"01"_s), {99, u"99"_s}, {100, u"100"_s}, {1200, u"1200"_s}})
            QCOMPARE(stepText(step), text);
    }
};

const Registered<TestEditorRules> registered;

}  // namespace

#include "rules_test.moc"
