#include "editor/painting.h"

#include "../support/run_all.h"
#include "platform/base/error.h"

#include <QRandomGenerator>
#include <QtTest/QtTest>
#include <array>
#include <cmath>

namespace {

constexpr QRgb background = qRgb(1, 2, 3);

QImage speckled(QSize pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    QRandomGenerator colours(quint32(pixels.width()));
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x) image.setPixel(x, y, colours.generate() | 0xFF000000u);
    return image;
}

QImage pixelByPixel(const QImage& picture, const QRect& part, Mirror mirror) {
    QImage result(part.size(), QImage::Format_RGB32);
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            const int fromX = part.left() + (mirror == Mirror::horizontal ? part.width() - 1 - x : x);
            const int fromY = part.top() + (mirror == Mirror::vertical ? part.height() - 1 - y : y);
            result.setPixel(x, y, picture.valid(fromX, fromY) ? picture.pixel(fromX, fromY) : background);
        }
    }
    return result;
}

/// The mean colour of the area of each target pixel, computed without hurry.
QImage areaMeans(const QImage& picture, QSize target) {
    QImage result(target, QImage::Format_RGB32);
    const double across = double(picture.width()) / target.width();
    const double down = double(picture.height()) / target.height();
    for (int j = 0; j < target.height(); ++j) {
        for (int i = 0; i < target.width(); ++i) {
            std::array<double, 3> sums{};
            for (int y = int(j * down); y < picture.height() && y < (j + 1) * down; ++y) {
                for (int x = int(i * across); x < picture.width() && x < (i + 1) * across; ++x) {
                    const double share = (std::min(x + 1.0, (i + 1) * across) - std::max(double(x), i * across)) *
                                         (std::min(y + 1.0, (j + 1) * down) - std::max(double(y), j * down));
                    const QRgb pixel = picture.pixel(x, y);
                    sums[0] += share * qRed(pixel);
                    sums[1] += share * qGreen(pixel);
                    sums[2] += share * qBlue(pixel);
                }
            }
            for (double& sum : sums) sum /= across * down;
            result.setPixel(i, j,
                            qRgb(int(std::lround(sums[0])), int(std::lround(sums[1])), int(std::lround(sums[2]))));
        }
    }
    return result;
}

int largestDifference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return 255;
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - 255)});
        }
    }
    return largest;
}

QImage greys(std::initializer_list<std::initializer_list<int>> rows) {
    QImage image(int(rows.begin()->size()), int(rows.size()), QImage::Format_RGB32);
    int y = 0;
    for (const auto& row : rows) {
        int x = 0;
        for (const int grey : row) image.setPixel(x++, y, qRgb(grey, grey, grey));
        ++y;
    }
    return image;
}

class TestPainting : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void equalSizesCopyEveryPixel_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QRect>("part");
        const QSize size(37, 23);
        QTest::newRow("one pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
        QTest::newRow("whole") << size << QRect(QPoint(), size);
        QTest::newRow("inside") << size << QRect(5, 4, 20, 11);
        QTest::newRow("moved, as a flip after a crop reads it") << size << QRect(QPoint(10, 8), size);
        QTest::newRow("over the upper left corner") << size << QRect(-6, -3, 20, 20);
        QTest::newRow("larger on all sides") << size << QRect(-2, -3, 50, 40);
        QTest::newRow("touching the edge outside") << size << QRect(37, 0, 4, 4);
        QTest::newRow("far away") << size << QRect(-500, 900, 10, 12);
        QTest::newRow("several blocks") << QSize(1100, 700) << QRect(30, 20, 1090, 695);
    }
    void equalSizesCopyEveryPixel() {
        QFETCH(QSize, size);
        QFETCH(QRect, part);
        const QImage picture = speckled(size);
        for (const Mirror mirror : {Mirror::none, Mirror::horizontal, Mirror::vertical})
            QCOMPARE(painted(picture, part, part.size(), mirror, background), pixelByPixel(picture, part, mirror));
    }

    void flippingTwiceGivesThePictureBack() {
        for (const QSize size : {QSize(64, 48), QSize(33, 21)}) {
            const QImage picture = speckled(size);
            for (const Mirror mirror : {Mirror::horizontal, Mirror::vertical}) {
                const QImage once = painted(picture, picture.rect(), size, mirror, background);
                QVERIFY(once != picture);
                QCOMPARE(painted(once, once.rect(), size, mirror, background), picture);
            }
        }
    }

    void shrinkingTakesTheMeanOfTheArea_data() {
        QTest::addColumn<QSize>("from");
        QTest::addColumn<QSize>("to");
        QTest::newRow("half") << QSize(64, 48) << QSize(32, 24);
        QTest::newRow("half of odd sides") << QSize(65, 49) << QSize(32, 24);
        QTest::newRow("two thirds") << QSize(60, 45) << QSize(40, 30);
        QTest::newRow("almost the same") << QSize(61, 47) << QSize(60, 46);
        QTest::newRow("a ninth") << QSize(90, 81) << QSize(10, 9);
        QTest::newRow("to one pixel") << QSize(300, 200) << QSize(1, 1);
        QTest::newRow("only across") << QSize(100, 10) << QSize(13, 10);
        QTest::newRow("only down") << QSize(10, 100) << QSize(10, 13);
        QTest::newRow("a button picture") << QSize(1203, 901) << QSize(100, 75);
        QTest::newRow("several blocks") << QSize(900, 700) << QSize(801, 607);
    }
    void shrinkingTakesTheMeanOfTheArea() {
        QFETCH(QSize, from);
        QFETCH(QSize, to);
        const QImage picture = speckled(from);
        const QImage result = painted(picture, picture.rect(), to, Mirror::none, background);
        const int difference = largestDifference(result, areaMeans(picture, to));
        QVERIFY2(difference <= 1, qPrintable(QString::number(difference)));
    }

    void stretchedPixels_data() {
        QTest::addColumn<QImage>("picture");
        QTest::addColumn<QImage>("expected");
        QTest::newRow("halves are rounded up") << greys({{0, 1}, {1, 0}}) << greys({{1}});
        QTest::newRow("parts of pixels count for their part") << greys({{30, 60, 90}}) << greys({{40, 80}});
        QTest::newRow("growing is smooth, the edges stay") << greys({{0, 100}}) << greys({{0, 25, 75, 100}});
        QTest::newRow("one pixel grows to an area") << greys({{77}}) << greys({{77, 77, 77}, {77, 77, 77}});
        QTest::newRow("one side grows, one shrinks")
            << greys({{0}, {100}, {200}, {40}}) << greys({{50, 50}, {120, 120}});
    }
    void stretchedPixels() {
        QFETCH(QImage, picture);
        QFETCH(QImage, expected);
        QCOMPARE(painted(picture, picture.rect(), expected.size(), Mirror::none, background), expected);
    }

    // Also at sizes whose weights do not divide evenly: a plain wall must not get stripes.
    void onePlainColourStaysIt() {
        for (const QRgb colour : {qRgb(255, 255, 255), qRgb(0, 0, 0), qRgb(1, 128, 254)}) {
            QImage picture(97, 61, QImage::Format_RGB32);
            picture.fill(colour);
            for (const QSize size :
                 {QSize(1, 1), QSize(7, 3), QSize(96, 60), QSize(98, 62), QSize(333, 20), QSize(30, 999)}) {
                QImage expected(size, QImage::Format_RGB32);
                expected.fill(colour);
                QCOMPARE(painted(picture, picture.rect(), size, Mirror::none, background), expected);
            }
        }
    }

    void stretchesAndMirrorsTogether() {
        const QImage picture = speckled({40, 30});
        const QRect part(3, 5, 30, 20);
        const QImage plain = painted(picture, part, {15, 45}, Mirror::none, background);
        QCOMPARE(painted(picture, part, {15, 45}, Mirror::horizontal, background), plain.mirrored(true, false));
        QCOMPARE(painted(picture, part, {15, 45}, Mirror::vertical, background), plain.mirrored(false, true));
        QCOMPARE(painted(picture.copy(part), QRect(0, 0, 30, 20), {15, 45}, Mirror::none, background), plain);
    }

    void whatLiesOutsideIsBackgroundWhenStretched() {
        QImage picture(20, 20, QImage::Format_RGB32);
        picture.fill(qRgb(200, 100, 50));
        const QImage result = painted(picture, {10, 10, 20, 20}, {10, 10}, Mirror::none, background);
        QCOMPARE(result.pixel(0, 0), qRgb(200, 100, 50));
        QCOMPARE(result.pixel(4, 4), qRgb(200, 100, 50));
        QCOMPARE(result.pixel(5, 0), background);
        QCOMPARE(result.pixel(0, 9), background);
    }

    void readsPicturesOfOtherFormats() {
        const QImage picture = speckled({21, 12});
        const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
        for (const QSize size : {QSize(21, 12), QSize(10, 6)}) {
            const QImage result = painted(grey, grey.rect(), size, Mirror::none, background);
            QCOMPARE(result.format(), QImage::Format_RGB32);
            QCOMPARE(result,
                     painted(grey.convertToFormat(QImage::Format_RGB32), grey.rect(), size, Mirror::none, background));
        }
    }

    void refusesWhatCannotBePainted_data() {
        QTest::addColumn<QRect>("part");
        QTest::addColumn<QSize>("target");
        QTest::newRow("selection of size 0") << QRect(3, 3, 0, 0) << QSize(10, 10);
        QTest::newRow("selection dragged backwards") << QRect(9, 9, -5, -4) << QSize(10, 10);
        QTest::newRow("cropped backwards") << QRect(9, 9, -5, -4) << QSize(-5, -4);
        QTest::newRow("target of size 0") << QRect(0, 0, 9, 9) << QSize(0, 9);
        QTest::newRow("negative target") << QRect(0, 0, 9, 9) << QSize(9, -9);
        QTest::newRow("too wide") << QRect(0, 0, 9, 9) << QSize(32768, 9);
        QTest::newRow("too high") << QRect(0, 0, 9, 9) << QSize(9, 40000);
    }
    void refusesWhatCannotBePainted() {
        QFETCH(QRect, part);
        QFETCH(QSize, target);
        QVERIFY_THROWS_EXCEPTION(Error, painted(speckled({20, 20}), part, target, Mirror::none, background));
    }
};

const Registered<TestPainting> registered;

}  // namespace

#include "painting_test.moc"
