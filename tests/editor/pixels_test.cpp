#include "../support/run_all.h"
#include "editor/pixels/painting.h"
#include "editor/pixels/resampling.h"
#include "editor/pixels/rotation.h"
#include "editor/pixels/scaled_picture.h"
#include "platform/base/error.h"
#include "platform/base/twips.h"

#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QRgb background = qRgb(240, 241, 230);

/// Every pixel of another colour, so that no exchange of neighbours goes unseen.
QImage speckled(QSize pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    QRandomGenerator colours(quint32(pixels.width() * 40000 + pixels.height()));
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

/// The rotation in its plainest form: every pixel of the target looks where it comes from.
QImage plainLoop(const QImage& source, QSize target, double degrees) {
    QImage result(target, QImage::Format_RGB32);
    result.fill(background);
    const double a = -(degrees * 3.14 / 180);
    const double cosine = std::cos(a);
    const double sine = std::sin(a);
    for (int i = 0; i < target.width(); ++i) {
        for (int j = 0; j < target.height(); ++j) {
            const double dx = i - target.width() / 2;
            const double dy = j - target.height() / 2;
            double u = dx * cosine + dy * sine;
            double v = dy * cosine - dx * sine;
            u = u + source.width() / 2;
            v = v + source.height() / 2;
            if (u > 0 && u < source.width() - 1 && v > 0 && v < source.height() - 1) {
                const auto x = static_cast<int>(std::nearbyint(static_cast<float>(u)));
                const auto y = static_cast<int>(std::nearbyint(static_cast<float>(v)));
                result.setPixel(i, j, source.pixel(x, y));
            }
        }
    }
    return result;
}

QSize boxInPixels(QSize pixels, double degrees) {
    const QSize twips = rotatedSize(pixels * twipsPerPixel, degrees);
    return {pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height())};
}

/// Pictures are painted, mirrored, stretched and turned pixel by pixel as the plain loops above would.
class TestPixels : public QObject {
    Q_OBJECT

    static QImage plain(QSize size, QRgb colour) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }
    static QImage stretched(const QImage& picture, QSize size) {
        return painted(picture, picture.rect(), size, Mirror::none, background);
    }

  private Q_SLOTS:
    // What is painted in pieces on the screen has no seams.
    void aPartIsThatOfTheWhole() {
        const QImage picture = speckled({61, 47});
        for (const QSize target : {QSize(1, 1), {20, 13}, {60, 46}, {61, 47}, {90, 48}, {130, 100}}) {
            const QImage whole = resampled(picture, target);
            for (const QRect& part : {QRect(QPoint(), target),
                                      {target.width() / 3, target.height() / 2, 1, 1},
                                      {target.width() / 2, 0, target.width() - target.width() / 2, target.height()}})
                QCOMPARE(resampled(picture, target, part), whole.copy(part));
        }
        const QImage blocks = picture.scaled(183, 141);
        for (const QRect& part : {blocks.rect(), QRect(100, 7, 13, 99)})
            QCOMPARE(inBlocks(picture, blocks.size(), part), blocks.copy(part));
    }

    void aPictureAtManySizes() {
        const QImage picture = resampled(speckled({15, 10}), {300, 203});
        ScaledPicture scaled;
        scaled.set(picture);
        const auto at = [&scaled](QSize size) { return scaled.part(size, QRect(QPoint(), size)); };
        QCOMPARE(at({200, 150}), resampled(picture, {200, 150}));
        QCOMPARE(at({600, 406}), picture.scaled(600, 406));
        QCOMPARE(scaled.bytesBeside(), 0);
        for (const QSize size : {QSize(140, 95), {75, 51}, {31, 20}, {3, 2}, {1, 1}, {1, 203}, {300, 1}})
            QVERIFY2(largestDifference(at(size), areaMeans(picture, size)) <= 20,
                     qPrintable(QString::number(largestDifference(at(size), areaMeans(picture, size)))));
        QVERIFY(scaled.bytesBeside() > 0 && scaled.bytesBeside() < picture.sizeInBytes() * 35 / 100);
        scaled.set(plain({1, 1}, background));
        QCOMPARE(at({1, 1}).pixel(0, 0), background);
        QCOMPARE(scaled.bytesBeside(), 0);
    }

    void equalSizesCopyEveryPixel() {
        const QSize size(37, 23);
        const std::pair<QSize, QRect> rows[] = {
            {{1, 1}, {0, 0, 1, 1}},
            {size, {QPoint(), size}},
            {size, {5, 4, 20, 11}},
            {size, {QPoint(10, 8), size}},       // as a flip after a crop reads it
            {size, {-6, -3, 20, 20}},            // over the upper left corner
            {size, {-2, -3, 50, 40}},            // larger on all sides
            {size, {37, 0, 4, 4}},               // touching the edge outside
            {size, {-500, 900, 10, 12}},         // far away
            {{1100, 700}, {30, 20, 1090, 695}},  // several blocks
        };
        for (const auto& [pixels, part] : rows) {
            const QImage picture = speckled(pixels);
            for (const Mirror mirror : {Mirror::none, Mirror::horizontal, Mirror::vertical})
                QCOMPARE(painted(picture, part, part.size(), mirror, background), pixelByPixel(picture, part, mirror));
        }
    }

    void shrinkingTakesTheMeanOfTheArea() {
        const std::pair<QSize, QSize> rows[] = {
            {{64, 48}, {32, 24}},  {{65, 49}, {32, 24}},     {{60, 45}, {40, 30}},     {{61, 47}, {60, 46}},
            {{90, 81}, {10, 9}},   {{300, 200}, {1, 1}},     {{100, 10}, {13, 10}},     // only across
            {{10, 100}, {10, 13}}, {{1203, 901}, {100, 75}}, {{900, 700}, {801, 607}},  // several blocks
        };
        for (const auto& [from, to] : rows) {
            const QImage picture = speckled(from);
            const int difference = largestDifference(stretched(picture, to), areaMeans(picture, to));
            QVERIFY2(difference <= 1, qPrintable(u"%1 wide: %2"_s.arg(from.width()).arg(difference)));
        }
    }

    void stretchedPixels() {
        const std::pair<QImage, QImage> rows[] = {
            {greys({{0, 1}, {1, 0}}), greys({{1}})},         // halves are rounded up
            {greys({{30, 60, 90}}), greys({{40, 80}})},      // parts of pixels count for their part
            {greys({{0, 100}}), greys({{0, 25, 75, 100}})},  // growing is smooth, the edges stay
            {greys({{77}}), greys({{77, 77, 77}, {77, 77, 77}})},
            {greys({{0}, {100}, {200}, {40}}), greys({{50, 50}, {120, 120}})},
        };
        for (const auto& [picture, expected] : rows) QCOMPARE(stretched(picture, expected.size()), expected);
    }

    // Also at sizes whose weights do not divide evenly: a plain wall must not get stripes.
    void onePlainColourStaysIt() {
        for (const QRgb colour : {qRgb(255, 255, 255), qRgb(0, 0, 0), qRgb(1, 128, 254)})
            for (const QSize size :
                 {QSize(1, 1), QSize(7, 3), QSize(96, 60), QSize(98, 62), QSize(333, 20), QSize(30, 999)})
                QCOMPARE(stretched(plain({97, 61}, colour), size), plain(size, colour));
    }

    void stretchesAndMirrorsTogether() {
        const QImage picture = speckled({40, 30});
        const QRect part(3, 5, 30, 20);
        const QImage unmirrored = painted(picture, part, {15, 45}, Mirror::none, background);
        QCOMPARE(painted(picture, part, {15, 45}, Mirror::horizontal, background), unmirrored.mirrored(true, false));
        QCOMPARE(painted(picture, part, {15, 45}, Mirror::vertical, background), unmirrored.mirrored(false, true));
        QCOMPARE(stretched(picture.copy(part), {15, 45}), unmirrored);
    }

    void whatLiesOutsideIsBackgroundWhenStretched() {
        const QRgb colour = qRgb(200, 100, 50);
        const QImage result = painted(plain({20, 20}, colour), {10, 10, 20, 20}, {10, 10}, Mirror::none, background);
        for (const QPoint inside : {QPoint(0, 0), QPoint(4, 4)}) QCOMPARE(result.pixel(inside), colour);
        for (const QPoint outside : {QPoint(5, 0), QPoint(0, 9)}) QCOMPARE(result.pixel(outside), background);
    }

    void readsPicturesOfOtherFormats() {
        const QImage grey = speckled({21, 12}).convertToFormat(QImage::Format_Grayscale8);
        const QImage same = grey.convertToFormat(QImage::Format_RGB32);
        for (const QSize size : {QSize(21, 12), QSize(10, 6)}) {
            QCOMPARE(stretched(grey, size).format(), QImage::Format_RGB32);
            QCOMPARE(stretched(grey, size), stretched(same, size));
        }
        QCOMPARE(rotated(grey, {20, 20}, 30, background), plainLoop(same, {20, 20}, 30));
    }

    void refusesWhatCannotBePainted() {
        const QRect part(0, 0, 9, 9);
        const std::pair<QRect, QSize> rows[] = {{{3, 3, 0, 0}, {10, 10}},  // a selection of size 0
                                                {{9, 9, -5, -4}, {10, 10}},
                                                {{9, 9, -5, -4}, {-5, -4}},  // dragged backwards
                                                {part, {0, 9}},
                                                {part, {9, -9}},
                                                {part, {32768, 9}},
                                                {part, {9, 32768}}};
        for (const auto& [from, target] : rows) {
            QVERIFY_THROWS_EXCEPTION(Error, painted(speckled({20, 20}), from, target, Mirror::none, background));
            if (from == part) QVERIFY_THROWS_EXCEPTION(Error, rotated(speckled({9, 9}), target, 10, background));
        }
    }

    void boxAroundTheTurnedPicture() {
        const std::pair<double, QSize> rows[] = {{0, {1500, 900}},
                                                 {90, {901, 1500}},  // a right angle is a little less
                                                 {-90, {901, 1500}},
                                                 {180, {1501, 902}},  // half a turn leaves a tilt
                                                 {std::nan(""), {1500, 900}},
                                                 {HUGE_VAL, {1500, 900}}};
        for (const auto& [degrees, box] : rows) QCOMPARE(rotatedSize({1500, 900}, degrees), box);
    }

    void turnsAsThePlainLoop() {
        // The last ones are worked on in several strips and blocks.
        for (const QSize size :
             {QSize(1, 1), QSize(2, 2), QSize(3, 3), QSize(2, 9), QSize(9, 2), QSize(4, 7), QSize(16, 16),
              QSize(33, 20), QSize(100, 75), QSize(641, 5), QSize(5, 641), QSize(700, 530), QSize(1203, 501)}) {
            const QImage source = speckled(size);
            std::vector<double> angles = {0, 33, -90, 180, 1e6};
            if (size.width() < 700) {
                angles.insert(angles.end(), {0.5, -0.5, -33, 45, 89.9, 90, 91, 270, 359, 360, 720.25, -1e9});
                QRandomGenerator any(7);
                for (int i = 0; i < 30; ++i) angles.push_back(any.bounded(800.0) - 400.0);
            }
            for (const double degrees : angles) {
                const QSize target = boxInPixels(size, degrees).expandedTo({1, 1});
                QVERIFY2(rotated(source, target, degrees, background) == plainLoop(source, target, degrees),
                         qPrintable(u"%1 wide, %2 degrees"_s.arg(size.width()).arg(degrees)));
            }
        }
        const QImage source = speckled({31, 18});
        for (const QSize target : {QSize(1, 1), QSize(6, 90), QSize(31, 18), QSize(120, 7)})
            QCOMPARE(rotated(source, target, 20, background), plainLoop(source, target, 20));
    }

    void outermostLinesAreNeverRead() {
        const QImage source = speckled({40, 30});
        QImage expected = plain(source.size(), background);
        for (int y = 1; y < 29; ++y)
            for (int x = 1; x < 39; ++x) expected.setPixel(x, y, source.pixel(x, y));
        QCOMPARE(rotated(source, source.size(), 0, background), expected);
        QCOMPARE(rotated(source, source.size(), std::nan(""), background), expected);
    }

    void turnsCounterClockwise() {
        QImage source = plain({81, 81}, qRgb(0, 0, 0));
        for (int y = 35; y < 46; ++y)
            for (int x = 60; x < 71; ++x) source.setPixel(x, y, qRgb(255, 0, 0));
        QCOMPARE(rotated(source, source.size(), 90, background).pixelColor(40, 15), QColor(Qt::red));
        QCOMPARE(rotated(source, source.size(), -90, background).pixelColor(40, 65), QColor(Qt::red));
    }

    void progressRisesOnTheCallingThread() {
        std::vector<int> heard;
        const QThread* here = QThread::currentThread();
        bool elsewhere = false;
        rotated(speckled({1000, 800}), {1500, 1400}, 33, background, [&](int percent) {
            heard.push_back(percent);
            elsewhere = elsewhere || QThread::currentThread() != here;
        });
        QVERIFY(!heard.empty() && !elsewhere);
        QVERIFY(std::ranges::is_sorted(heard));
        QVERIFY(heard.front() > 0 && heard.back() <= 100);
    }
};

const Registered<TestPixels> registered;

}  // namespace

#include "pixels_test.moc"
