#include "catalogue/picture_loader.h"

#include "../support/sample_catalogue.h"
#include "platform/picture/wide_colours.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize place(20, 15);

/// What an album holds for each of its records, in their order.
std::vector<PictureRequest> requestsOf(const QString& table) {
    const Recordset album = mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 ORDER BY [序号]"_s.arg(table));
    std::vector<PictureRequest> requests;
    for (int row = 0; row < album.rowCount(); ++row) requests.push_back({album.storedAt(row, u"图片"_s), place});
    return requests;
}

/// All pictures that a loader has loaded, in their order.
struct Loaded {
    explicit Loaded(PictureLoader& loader) {
        QObject::connect(&loader, &PictureLoader::loaded,
                         [this](const PictureRequest& request, const Picture& picture) {
                             requests.push_back(request);
                             pictures.push_back(picture);
                         });
    }
    std::vector<PictureRequest> requests;
    std::vector<Picture> pictures;
};

class TestPictureLoader : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:

    void everythingWantedComesAtTheSizeOfItsPlace() {
        PictureLoader loader;
        const Loaded loaded(loader);
        const auto requests = requestsOf(u"tc01"_s);
        loader.want(requests);
        QTRY_COMPARE(loaded.pictures.size(), requests.size());
        for (const PictureRequest& request : requests) {
            QVERIFY(loader.kept(request));
            QCOMPARE(loader.kept(request)->image().size(), place);
        }
        QCOMPARE(loader.kept(requests[2])->pixels(), QSize(30, 40));
        loader.want(requests);  // all at hand: nothing is decoded again
        QTest::qWait(0);
        QCOMPARE(loaded.pictures.size(), requests.size());
    }

    void aProfileIsAppliedToWhatIsShown() {
        QImage image({400, 300}, QImage::Format_RGB32);
        image.fill(qRgb(200, 100, 50));
        constexpr unsigned displayP3 = 12;
        changeRow(u"tc01"_s, {{u"图片"_s, encodeJpeg(image, 95, wideProfile(displayP3))}});
        PictureLoader loader;
        const Loaded loaded(loader);
        loader.want({requestsOf(u"tc01"_s)[0]});
        QTRY_COMPARE(loaded.pictures.size(), size_t(1));
        QCOMPARE(loaded.pictures[0].image().size(), place);
        const QColor shown = loaded.pictures[0].image().pixelColor(10, 7), expected(215, 93, 31);
        QVERIFY(std::abs(shown.red() - expected.red()) <= 3 && std::abs(shown.green() - expected.green()) <= 3 &&
                std::abs(shown.blue() - expected.blue()) <= 3);
    }

    void bytesThatAreNoPictureAreReportedOnceAndKnown() {
        changeRow(u"tc01"_s, {{u"图片"_s, QByteArray("no picture")}});
        PictureLoader loader;
        const Loaded loaded(loader);
        const auto requests = requestsOf(u"tc01"_s);
        loader.want({requests[0]});
        QTRY_COMPARE(loaded.pictures.size(), size_t(1));
        QVERIFY(loaded.pictures[0].isNull());
        QVERIFY(loader.kept(requests[0]) && loader.kept(requests[0])->isNull());
    }

    void aValueThatCannotBeReadIsToldAndAskedForAgain() {
        PictureLoader loader;
        const Loaded loaded(loader);
        const auto requests = requestsOf(u"tc01"_s);
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 = 1"_s);
        loader.want({requests[0], requests[1]});
        QTRY_COMPARE(loaded.pictures.size(), size_t(2));
        QVERIFY(loaded.pictures[0].isNull());
        QVERIFY(!loader.kept(requests[0]));
        QVERIFY(loader.kept(requests[1]));
    }

    // The picture of a record that has been changed is another value, whatever was decoded of the one before.
    void aChangedRecordHoldsAnotherValue() {
        const auto before = requestsOf(u"tc01"_s);
        changeRow(u"tc01"_s, {{u"图片"_s, pictureBytes({40, 30}, Qt::cyan)}});
        const auto after = requestsOf(u"tc01"_s);
        QVERIFY(after[0] != before[0]);
        QCOMPARE(after[1], before[1]);
        changeRow(u"tc01"_s, {{u"备注"_s, u"another word"_s}});
        QCOMPARE(requestsOf(u"tc01"_s)[0], after[0]);
    }

    void whatIsKeptStaysWithinItsRoom() {
        PictureLoader loader;
        const Loaded loaded(loader);
        constexpr qint64 onePicture = 20 * 15 * 4 + 1000;
        loader.setRoom(3 * onePicture);
        const auto requests = requestsOf(u"tc01"_s);
        loader.want(requests);
        QTRY_COMPARE(loaded.pictures.size(), requests.size());
        const auto kept = std::ranges::count_if(requests, [&](const auto& each) { return loader.kept(each); });
        QVERIFY2(kept >= 2 && kept <= 3, qPrintable(QString::number(kept)));
        QVERIFY(loader.kept(loaded.requests.back()));
    }

    /// The value is gone meanwhile: what comes has not been read once more.
    void atAnotherSizeASmallPictureIsOnlyScaled() {
        changeRow(u"tc01"_s, {{u"图片"_s, pictureBytes({400, 300}, Qt::red)}});
        PictureLoader loader;
        const Loaded loaded(loader);
        const PictureRequest first = requestsOf(u"tc01"_s)[0];
        loader.want({first});
        QTRY_COMPARE(loaded.pictures.size(), size_t(1));
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 = 1"_s);
        for (const auto& [size, comes] :
             {std::pair{QSize(40, 30), true}, {QSize(12, 9), true}, {QSize(80, 60), false}}) {
            loader.want({{first.value, size}});
            QTRY_VERIFY(loader.isIdle());
            QCOMPARE(loaded.requests.back().target, size);
            QCOMPARE(loaded.pictures.back().image().size(), comes ? size : QSize(0, 0));
        }
    }

    void workThatIsNotWantedAnyMoreIsDropped() {
        changeRow(u"tc01"_s, {{u"图片"_s, pictureBytes({4000, 3000}, Qt::red)}});
        const auto album = requestsOf(u"tc01"_s);
        const PictureRequest urgent = album.back();
        // Far more than is begun at a time.
        std::vector<PictureRequest> many;
        for (int i = 0; i < 10 * (DecodingThreads::count() + 2); ++i) many.push_back({album[0].value, {20 + i, 15}});
        PictureLoader loader;
        const Loaded loaded(loader);
        loader.want(many);
        loader.want({urgent});
        loader.workUntil([&] { return loader.kept(urgent) != nullptr; }, QDeadlineTimer(60'000));
        QVERIFY(loader.kept(urgent));
        // What was being decoded at that moment comes to its end, the rest does not begin.
        QTRY_VERIFY(loader.isIdle());
        QVERIFY(loaded.requests.size() < many.size() / 2);
    }

    void itMayGoWhileItIsAtWork() {
        for (int i = 0; i < 20; ++i) PictureLoader().want(requestsOf(u"tc01"_s));
        QCoreApplication::processEvents();
    }
};

const Registered<TestPictureLoader> registered;

}  // namespace

#include "picture_loader_test.moc"
