#include "editor/rotation.h"

#include "../support/run_all.h"
#include "platform/base/error.h"
#include "platform/base/twips.h"

#include <QRandomGenerator>
#include <QThread>
#include <QtTest/QtTest>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QRgb background = qRgb(240, 240, 230);

/// Every pixel of another colour, so that no exchange of neighbours goes unseen.
QImage speckled(QSize pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    QRandomGenerator colours(quint32(pixels.width() * 40000 + pixels.height()));
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x) image.setPixel(x, y, colours.generate() | 0xFF000000u);
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

class TestRotation : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void boxAroundTheTurnedPicture_data() {
        QTest::addColumn<double>("degrees");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("not turned") << 0.0 << QSize(1500, 900);
        QTest::newRow("a right angle is a little less") << 90.0 << QSize(901, 1500);
        QTest::newRow("clockwise") << -90.0 << QSize(901, 1500);
        QTest::newRow("half a turn leaves a tilt") << 180.0 << QSize(1501, 902);
        QTest::newRow("no number counts as 0") << std::nan("") << QSize(1500, 900);
        QTest::newRow("endless counts as 0") << HUGE_VAL << QSize(1500, 900);
    }
    void boxAroundTheTurnedPicture() {
        QFETCH(double, degrees);
        QTEST(rotatedSize({1500, 900}, degrees), "expected");
    }

    void exactPixelsOfThePlainLoop_data() {
        QTest::addColumn<QSize>("size");
        // The last ones are worked on in several strips and blocks.
        for (const QSize size :
             {QSize(1, 1), QSize(2, 2), QSize(3, 3), QSize(2, 9), QSize(9, 2), QSize(4, 7), QSize(16, 16),
              QSize(33, 20), QSize(100, 75), QSize(641, 5), QSize(5, 641), QSize(700, 530), QSize(1203, 501)})
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
    }
    void exactPixelsOfThePlainLoop() {
        QFETCH(QSize, size);
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
                     qPrintable(QString::number(degrees)));
        }
    }

    void targetOfAnotherSizeThanTheBox() {
        const QImage source = speckled({31, 18});
        for (const QSize target : {QSize(1, 1), QSize(6, 90), QSize(31, 18), QSize(120, 7)})
            QCOMPARE(rotated(source, target, 20, background), plainLoop(source, target, 20));
    }

    void outermostLinesAreNeverRead() {
        const QImage source = speckled({40, 30});
        QImage expected(source.size(), QImage::Format_RGB32);
        expected.fill(background);
        for (int y = 1; y < 29; ++y)
            for (int x = 1; x < 39; ++x) expected.setPixel(x, y, source.pixel(x, y));
        QCOMPARE(rotated(source, source.size(), 0, background), expected);
        QCOMPARE(rotated(source, source.size(), std::nan(""), background), expected);
    }

    void turnsCounterClockwise() {
        QImage source(81, 81, QImage::Format_RGB32);
        source.fill(Qt::black);
        for (int y = 35; y < 46; ++y)
            for (int x = 60; x < 71; ++x) source.setPixel(x, y, qRgb(255, 0, 0));
        QCOMPARE(rotated(source, source.size(), 90, background).pixelColor(40, 15), QColor(Qt::red));
        QCOMPARE(rotated(source, source.size(), -90, background).pixelColor(40, 65), QColor(Qt::red));
    }

    void readsPicturesOfOtherFormats() {
        const QImage source = speckled({20, 20});
        const QImage grey = source.convertToFormat(QImage::Format_Grayscale8);
        QCOMPARE(rotated(grey, {20, 20}, 30, background),
                 plainLoop(grey.convertToFormat(QImage::Format_RGB32), {20, 20}, 30));
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

    void refusesTargetsThatNoPictureCanHave_data() {
        QTest::addColumn<QSize>("target");
        QTest::newRow("no width") << QSize(0, 10);
        QTest::newRow("negative height") << QSize(10, -1);
        QTest::newRow("too wide") << QSize(32768, 10);
        QTest::newRow("too high") << QSize(10, 32768);
    }
    void refusesTargetsThatNoPictureCanHave() {
        QFETCH(QSize, target);
        QVERIFY_THROWS_EXCEPTION(Error, rotated(speckled({9, 9}), target, 10, background));
    }
};

const Registered<TestRotation> registered;

}  // namespace

#include "rotation_test.moc"
