#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/picture.h"
#include "platform/picture/preview.h"
#include "profile_samples.h"

#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = JpegOptions::Kind;

bool isNear(QRgb a, QRgb b, int most = 2) {
    return std::abs(qRed(a) - qRed(b)) <= most && std::abs(qGreen(a) - qGreen(b)) <= most &&
           std::abs(qBlue(a) - qBlue(b)) <= most;
}

QByteArray text(QRgb colour) {
    return QByteArray::number(qRed(colour)) + ' ' + QByteArray::number(qGreen(colour)) + ' ' +
           QByteArray::number(qBlue(colour));
}

/// Colours all over, those at the edges too.
QList<QRgb> manyColours(ColourKind kind) {
    QList<QRgb> colours;
    if (kind == ColourKind::grey)
        for (int grey = 0; grey < 256; ++grey) colours << qRgb(grey, grey, grey);
    const int step = kind == ColourKind::inks ? 51 : 17;
    for (int a = 0; a < 256 && kind != ColourKind::grey; a += step)
        for (int b = 0; b < 256; b += step)
            for (int c = 0; c < 256; c += step)
                for (int d = 0; d < 256; d += kind == ColourKind::inks ? 51 : 256) colours << qRgba(a, b, c, d);
    return colours;
}

QImage inOneColour(QRgb colour, QSize size = {64, 48}) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

QRgb middleOf(const Picture& picture) {
    return picture.image().pixel(picture.image().rect().center());
}

QRgb loadedMiddle(const QByteArray& bytes, QSize target = {}) {
    return middleOf(LoadPicture(bytes, u"图"_s, target));
}

QByteArray inkJpeg(const QByteArray& profile, bool inverted) {
    const QByteArray jpeg =
        jpegBytes(inOneColour(qRgb(200, 120, 60)), {inverted ? Kind::invertedInks : Kind::inks, 0, false, {1, 1}});
    return profile.isEmpty() ? jpeg : jpegWithSegments(jpeg, profile);
}

class TestColourProfiles : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void everyProfileGivesTheColoursOfTheLibrary() {
        struct Case {
            const char* name;
            QByteArray profile;
            ColourKind kind;
        };
        const Case cases[] = {
            {"P3, version 4", displayP3Profile(), ColourKind::lights},
            {"P3, version 2", displayP3Profile(2.1), ColourKind::lights},
            {"Adobe RGB", adobeRgbProfile(), ColourKind::lights},
            {"table", tableProfile(), ColourKind::lights},
            {"grey 1.8", greyProfile(1.8), ColourKind::grey},
            {"grey 1.0", greyProfile(1.0), ColourKind::grey},
            {"inks", inkProfile(), ColourKind::inks},
            {"inks, 2 MB", inkProfile(2 << 20), ColourKind::inks},
        };
        for (const Case& each : cases) {
            const auto transform = ColourTransform::of(each.profile, each.kind);
            QVERIFY2(transform && !transform->changesNothing(), each.name);
            const QList<QRgb> colours = manyColours(each.kind);
            const QList<QRgb> expected = byLibrary(each.profile, each.kind, colours);
            QList<QRgb> turned = colours;
            transform->apply(turned.data(), turned.size());
            QList<QRgb> oneByOne = colours;
            for (QRgb& pixel : oneByOne) transform->apply(&pixel, 1);
            QVERIFY2(oneByOne == turned, each.name);
            for (qsizetype i = 0; i < colours.size(); ++i)
                QVERIFY2(isNear(turned[i], expected[i]), (each.name + QByteArray(": ") + text(colours[i]) + " is " +
                                                          text(turned[i]) + ", not " + text(expected[i]))
                                                             .constData());
        }
        QVERIFY(inkProfile(2 << 20).size() >= 2 << 20);
    }

    /// By the formulas of the colour spaces, computed elsewhere.
    void knownPatchesHaveTheirColours() {
        struct Case {
            QByteArray profile;
            QRgb stored, shown;
        };
        const Case cases[] = {
            {displayP3Profile(), qRgb(255, 255, 255), qRgb(255, 255, 255)},
            {displayP3Profile(), qRgb(128, 128, 128), qRgb(128, 128, 128)},
            {displayP3Profile(), qRgb(0, 0, 0), qRgb(0, 0, 0)},
            {displayP3Profile(), qRgb(255, 0, 0), qRgb(255, 0, 0)},
            {displayP3Profile(), qRgb(200, 100, 50), qRgb(215, 93, 31)},
            {adobeRgbProfile(), qRgb(255, 255, 255), qRgb(255, 255, 255)},
            {adobeRgbProfile(), qRgb(200, 100, 50), qRgb(227, 100, 42)},
            {adobeRgbProfile(), qRgb(0, 255, 0), qRgb(0, 255, 0)},
        };
        for (const Case& each : cases) {
            const QByteArray jpeg = jpegBytes(inOneColour(each.stored), {.sampling = {1, 1}, .quality = 100});
            const QRgb shown = loadedMiddle(jpegWithSegments(jpeg, each.profile));
            QVERIFY2(isNear(shown, each.shown), (text(each.stored) + " is " + text(shown)).constData());
            QVERIFY(isNear(loadedMiddle(jpeg), each.stored));
        }
    }

    void everyWayOfDecodingIsTurned() {
        const QRgb stored = qRgb(120, 200, 80);
        const QRgb shown = byLibrary(tableProfile(), ColourKind::lights, {stored}).first();
        const QImage image = inOneColour(stored, {200, 160});
        for (const Kind kind : {Kind::baseline, Kind::progressive, Kind::lights}) {
            for (const bool backwards : {false, true}) {
                const QByteArray jpeg = jpegWithSegments(jpegBytes(image, {kind, 6}), tableProfile(), 999, backwards);
                for (const QSize target : {QSize(), QSize(20, 20), QSize(60, 60)}) {
                    QVERIFY(isNear(loadedMiddle(jpeg, target), shown));
                    const Picture own = LoadPicture(jpeg, u"图"_s, target, Colours::ofFile);
                    QVERIFY(isNear(middleOf(own), stored));
                    QCOMPARE(own.profile(), tableProfile());
                    const Picture small = inScreenColours(shrunkTo(own, {10, 12}));
                    QCOMPARE(small.image().size(), QSize(10, 12));
                    QVERIFY(isNear(middleOf(small), shown) && small.profile().isEmpty());
                }
            }
        }
    }

    void screenColoursCostNothingAndKeepTheirProfile() {
        const auto transform = ColourTransform::of(screenProfile(), ColourKind::lights);
        QVERIFY(transform && transform->changesNothing());
        const QByteArray jpeg = jpegWithSegments(jpegBytes(quadrants({64, 48})), screenProfile());
        QCOMPARE(LoadPicture(jpeg, u"图"_s).image(), LoadPicture(jpeg, u"图"_s, {}, Colours::ofFile).image());
        QCOMPARE(LoadPicture(jpeg, u"图"_s, {}, Colours::ofFile).profile(), screenProfile());
    }

    void greysAndInksBecomeScreenColoursAtOnce() {
        const QByteArray grey =
            jpegWithSegments(jpegBytes(inOneColour(qRgb(100, 100, 100)), {Kind::greyscale}), greyProfile(1.0));
        const QRgb light = byLibrary(greyProfile(1.0), ColourKind::grey, {qRgb(100, 100, 100)}).first();
        for (const QSize target : {QSize(), QSize(4, 4)}) QVERIFY(isNear(loadedMiddle(grey, target), light));

        const QRgb plain = loadedMiddle(inkJpeg({}, false));
        for (const bool inverted : {false, true}) {
            const QByteArray jpeg = inkJpeg(inkProfile(), inverted);
            const QRgb inks = qRgba(55, 135, 195, 0);  // 255 less than the lights
            QVERIFY(isNear(loadedMiddle(jpeg), byLibrary(inkProfile(), ColourKind::inks, {inks}).first()));
            QVERIFY(LoadPicture(jpeg, u"图"_s, {}, Colours::ofFile).profile().isEmpty());
            QVERIFY(isNear(loadedMiddle(inkJpeg({}, inverted)), plain));
        }
    }

    void aProfileOfNoUseIsPassedOver() {
        QByteArray cut = displayP3Profile();
        cut.chop(cut.size() / 2);
        QByteArray wild = tableProfile();
        for (qsizetype i = 128; i < wild.size(); i += 3) wild[i] = char(i * 7);
        const QByteArray profiles[] = {"x",          QByteArray(200, '\xFF'),  cut, wild, greyProfile(2.2),
                                       inkProfile(), QByteArray(5 << 20, '\1')};
        const QByteArray jpeg = jpegBytes(quadrants({64, 48}));
        const QByteArray inks = inkJpeg({}, false);
        for (const QByteArray& profile : profiles) {
            const Picture picture = LoadPicture(jpegWithSegments(jpeg, profile), u"图"_s, {}, Colours::ofFile);
            QCOMPARE(picture.image(), LoadPicture(jpeg, u"图"_s).image());
            QVERIFY(picture.profile().isEmpty());
        }
        QCOMPARE(loadedMiddle(inkJpeg(displayP3Profile(), false)), loadedMiddle(inks));

        // Segments that do not make up a profile.
        QByteArray missing = jpegWithSegments(jpeg, displayP3Profile(), 100);
        missing[missing.indexOf("ICC_PROFILE") + 12] = 3;
        QCOMPARE(LoadPicture(missing, u"图"_s).image(), LoadPicture(jpeg, u"图"_s).image());
    }

    void theCamerasSmallPictureIsTurnedAlike() {
        const QRgb stored = qRgb(200, 100, 50);
        const QByteArray jpeg = jpegBytes(inOneColour(stored, {640, 480}));
        const QByteArray preview = jpegBytes(inOneColour(stored, {160, 120}), {.sampling = {1, 1}});
        const QRgb shown = byLibrary(displayP3Profile(), ColourKind::lights, {stored}).first();
        const QByteArray file = withPreview(jpegWithSegments(jpeg, displayP3Profile()), preview);
        QVERIFY(isNear(middleOf(LoadPreview(file.left(9000))), shown, 3));
        // One that has a profile of its own, and one whose profile is behind the part that was read.
        const QByteArray own = withPreview(jpeg, jpegWithSegments(preview, displayP3Profile()));
        QVERIFY(isNear(middleOf(LoadPreview(own)), shown, 3));
        const qsizetype endOfPreview = file.indexOf("ICC_PROFILE") + 40;
        QVERIFY(isNear(middleOf(LoadPreview(file.first(endOfPreview))), stored, 3));
    }

    void whatIsWrittenKeepsItsProfile() {
        const QTemporaryDir folder;
        const QImage image = inOneColour(qRgb(10, 200, 120));
        for (const QByteArray& profile : {QByteArray(), displayP3Profile(), tableProfile()}) {
            const QByteArray jpeg = encodeJpeg(image, 90, profile);
            QVERIFY(jpeg.startsWith("\xFF\xD8\xFF\xE0"));
            QCOMPARE(LoadPicture(jpeg, u"图"_s, {}, Colours::ofFile).profile(), profile);
            for (const QString& name : {u"图.jpg"_s, u"图.bmp"_s}) {
                const QString path = folder.filePath(name);
                name.endsWith(u"jpg") ? saveJpeg(image, path, 90, profile) : SavePicture(image, path, profile);
                const Picture picture = LoadPicture(path, {}, Colours::ofFile);
                QCOMPARE(picture.profile(), profile);
                QVERIFY(isNear(middleOf(picture), image.pixel(3, 3)));
                QVERIFY(!QImage(path).isNull());
            }
        }
    }

    void aBmpThatLiesAboutItsProfileIsShownWithout() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"图.bmp"_s);
        SavePicture(quadrants({8, 6}), path, displayP3Profile());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        for (const int place : {126, 130}) {
            for (const quint32 number : {0U, 200U, 0xFFFFFFFFU}) {
                QByteArray changed = bytes;
                qToLittleEndian(number, changed.data() + place);
                const Picture picture = LoadPicture(changed, u"图"_s, {}, Colours::ofFile);
                QVERIFY(picture.profile().isEmpty());
                QCOMPARE(picture.image(), quadrants({8, 6}));
            }
        }
    }

    void manyThreadsAskAtOnce() {
        std::atomic<int> wrong = 0;
        const QRgb colour = qRgb(200, 100, 50);
        const QRgb expected = byLibrary(adobeRgbProfile(), ColourKind::lights, {colour}).first();
        {
            std::vector<std::jthread> threads;
            for (int i = 0; i < 6; ++i)
                threads.emplace_back([&, i] {
                    for (int round = 0; round < 20; ++round) {
                        // A profile of each round's own drives the kept ones out.
                        ColourTransform::of(greyProfile(1 + 0.01 * round + 0.3 * i), ColourKind::grey);
                        QRgb pixel = colour;
                        ColourTransform::of(adobeRgbProfile(), ColourKind::lights)->apply(&pixel, 1);
                        if (!isNear(pixel, expected)) ++wrong;
                    }
                });
        }
        QCOMPARE(wrong.load(), 0);
    }
};

static Registered<TestColourProfiles> registered;

}  // namespace

#include "colour_profiles_test.moc"
