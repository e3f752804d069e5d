#include "../platform/picture/picture_samples.h"
#include "viewer/cell_box.h"
#include "viewer_window.h"

#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Decoding a photograph of this size takes far longer than a page waits for it.
constexpr QSize large(6000, 4500);

/// A blue photograph whose decoding takes far longer than a page waits: its colours have scans of their own.
QByteArray slowFile(const QByteArray& preview) {
    static const QByteArray photograph = [] {
        QImage grainy({3600, 2700}, QImage::Format_RGB32);
        for (int y = 0; y < grainy.height(); ++y)
            for (int x = 0; x < grainy.width(); ++x) grainy.setPixel(x, y, qRgb(0, 0, 240 + x * 7 % 16));
        return jpegBytes(grainy, {JpegOptions::Kind::coloursApart});
    }();
    return withPreview(photograph, preview);
}

bool looks(const ImageBox* box, const QColor& colour) {
    const QImage image = box->picture().image();
    if (image.isNull()) return false;
    const QColor shown = image.pixelColor(image.width() / 2, image.height() / 2);
    return qAbs(shown.red() - colour.red()) + qAbs(shown.green() - colour.green()) +
               qAbs(shown.blue() - colour.blue()) <
           30;
}

void setPictures(const QByteArray& bytes, int from, int to) {
    for (int number = from; number <= to; ++number)
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number),
                  {{u"图片"_s, bytes}, {u"规格"_s, u"6000 * 4500"_s}});
}

class TestCellPictures : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void photographsShowTheirPreviewUntilTheyAreSharp() {
        const QByteArray bytes = slowFile(pictureBytes({160, 120}, Qt::red));
        OpenPage viewer(3, [&] { setPictures(bytes, 1, 9); });
        int previews = 0;
        for (int i = 0; i < 9; ++i) {
            const ImageBox* box = viewer.image(element(u"imgXs"_s, i));
            previews += looks(box, Qt::red) ? 1 : 0;
            QVERIFY(looks(box, Qt::red) || looks(box, Qt::blue));
        }
        QVERIFY(previews > 0);
        for (int i = 0; i < 9; ++i) QTRY_VERIFY(looks(viewer.image(element(u"imgXs"_s, i)), Qt::blue));
    }

    /// A preview that has not the shape of its photograph is of another one: an older state, a cut, a turned one.
    void previewsOfAnotherShapeAreNotShown() {
        for (const QSize shape : {QSize(120, 160), QSize(160, 60)}) {
            const QByteArray bytes = slowFile(pictureBytes(shape, Qt::red));
            OpenPage viewer(3, [&] { setPictures(bytes, 1, 9); });
            for (int i = 0; i < 9; ++i) {
                const ImageBox* box = viewer.image(element(u"imgXs"_s, i));
                QVERIFY(box->picture().isNull() || looks(box, Qt::blue));
            }
        }
    }

    void aPageThatIsResizedIsNeverEmptyAndSharpInTheEnd() {
        OpenPage viewer(3, [&] { setPictures(jpegBytes(QImage(large, QImage::Format_RGB32)), 1, 9); });
        const auto cell = [&](int i) { return viewer.image(element(u"imgXs"_s, i)); };
        const auto isSharp = [&](int i) { return cell(i)->picture().image().size() == cell(i)->targetSize(); };
        for (int i = 0; i < 9; ++i) QTRY_VERIFY(isSharp(i));
        const QSize before = cell(0)->targetSize();
        for (int step = 1; step <= 10; ++step) {
            viewer.window->resize(viewer.window->size() + QSize(12, 9));
            for (int i = 0; i < 9; ++i) QVERIFY(!cell(i)->picture().isNull());
        }
        QVERIFY(cell(0)->targetSize() != before);
        for (int i = 0; i < 9; ++i) QTRY_VERIFY(isSharp(i));
    }

    void whatIsDecodedAheadIsNeverOlderThanTheRecord() {
        OpenPage viewer(2);
        QTest::qWait(0);
        const ImageBox* first = viewer.image(u"imgXs(0)"_s);
        // The next page is decoded already when its first record gets another picture.
        QTRY_VERIFY(viewer.pictureIn(0) == 1 && !first->picture().isNull());
        viewer.press(u"xy"_s);
        viewer.press(u"sy"_s);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, {{u"图片"_s, pictureBytes({40, 30}, Qt::magenta)}});
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(0), 5);
        QVERIFY(looks(first, Qt::magenta));
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 = 6"_s);
        viewer.chooseButton(0);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(1), 7);
    }

    void aPageThatWasLeftBringsNoPictureIntoTheNext() {
        OpenPage viewer(2, [] {
            setPictures(pictureBytes(large, Qt::blue), 1, 4);
            setPictures(pictureBytes({40, 30}, Qt::green), 5, 8);
        });
        viewer.press(u"xy"_s);
        viewer.press(u"sy"_s);
        viewer.press(u"xy"_s);
        for (int i = 0; i < 4; ++i) {
            const ImageBox* box = viewer.image(element(u"imgXs"_s, i));
            QVERIFY(looks(box, Qt::green));
            QTest::qWait(0);
            QVERIFY(looks(box, Qt::green));
        }
    }

    // Where large bytes turn out to be no picture, that of no other record is shown: not the one before, and not one
    // that was still on its way.
    void aLargeBrokenPictureLeavesItsCellEmpty() {
        OpenPage viewer(2, [] {
            setPictures(pictureBytes(large, Qt::green), 1, 4);
            setPictures("\xFF\xD8\xFF" + QByteArray(400'000, 'x'), 5, 6);
        });
        viewer.press(u"xy"_s);
        viewer.press(u"xs"_s);
        for (const int cell : {0, 1}) {
            const auto* box = viewer.find<CellBox>(element(u"imgXs"_s, cell));
            QTRY_VERIFY(box->hasSign());
            QVERIFY(box->picture().isNull());
        }
        viewer.press(u"ty"_s);
        QTRY_VERIFY(looks(viewer.image(u"imgXs(0)"_s), Qt::green));
        QCOMPARE(viewer.boxes, QStringList());
    }

    // A record without a picture keeps the one before in the first cell, also when that is still on its way.
    void theFirstCellKeepsAPictureThatIsStillToCome() {
        OpenPage viewer(2, [] {
            setPictures(pictureBytes(large, Qt::green), 1, 4);
            for (const int number : {5, 6})
                changeRow(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number), {{u"图片"_s, FieldValue()}});
        });
        viewer.press(u"xy"_s);
        viewer.press(u"xs"_s);
        QCOMPARE(viewer.pictureIn(0), 5);
        QTRY_VERIFY(looks(viewer.image(u"imgXs(0)"_s), Qt::green));
        QVERIFY(viewer.image(u"imgXs(1)"_s)->picture().isNull());
    }

    void aSlideShowWithoutAPauseShowsSharpPictures() {
        // Many bytes, and quickly decoded also where the machine has other work.
        QImage grainy({800, 600}, QImage::Format_RGB32);
        std::mt19937 random(1);
        for (int y = 0; y < grainy.height(); ++y)
            for (int x = 0; x < grainy.width(); ++x) grainy.setPixel(x, y, qRgb(0, 0, 240 + int(random() % 16)));
        const QByteArray bytes = withPreview(jpegBytes(grainy, {.quality = 100}), pictureBytes({160, 120}, Qt::red));
        QVERIFY(bytes.size() > 200'000);  // of smaller ones no preview is shown
        OpenPage viewer(1, [&] {
            setPictures(bytes, 1, 10);
            ViewerWindow::setSetting(u"幻灯延时"_s, 1);
        });
        const ImageBox* box = viewer.image(u"imgXs(0)"_s);
        QSet<int> sharp;
        const auto look = [&] {
            if (looks(box, Qt::blue)) sharp << viewer.pictureIn(0);
        };
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, look);
        watch.start(0);
        viewer.press(u"hd"_s);
        QTRY_VERIFY_WITH_TIMEOUT(viewer.keyImage(u"hd"_s) == u"hd" && viewer.pictureIn(0) == 10, 20'000);
        QVERIFY2(sharp.size() >= 9, qPrintable(QString::number(sharp.size())));
    }

    void aClosedAlbumIsLeftAlone() {
        OpenPage viewer(3, [] { setPictures(pictureBytes(large, Qt::blue), 1, 10); });
        viewer.menu(u"mnuTg"_s)->trigger();
        viewer.openAlbum(0);
        viewer.chooseButton(0);
        QTRY_VERIFY(!viewer.image(u"imgXs(0)"_s)->picture().isNull());
        QCOMPARE(viewer.pictureIn(0), 1);
        QVERIFY(!looks(viewer.image(u"imgXs(0)"_s), Qt::blue));
    }
};

const Registered<TestCellPictures> registered;

}  // namespace

#include "cell_pictures_test.moc"
