#include "catalogue/runs/repetition_count.h"

#include "../../support/sample_catalogue.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/picture_storing.h"

#include <atomic>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestRepetitionCount : public OpenedSampleTest {
    Q_OBJECT

    QString write(const QString& name, const QByteArray& bytes) const { return writeFile(sample_->file(name), bytes); }
    static Repetitions counted(const ChosenFiles& files) {
        KnownPictures known(mekTp::catalogue, u"tc01"_s);
        return countRepetitions(known, files, [] { return true; });
    }
    static int count(const QStringList& paths) { return counted({paths}).known; }

  private Q_SLOTS:
    void filesOfTheAlbum() {
        const QByteArray large(300000, 'x');
        addRow(u"tc01"_s, {{u"序号"_s, 11}, {u"图片"_s, large + QByteArray(19, '\0')}});
        addRow(u"tc01"_s, {{u"序号"_s, 12}, {u"图片"_s, QByteArray(10, '\0')}});
        addRow(u"tc02"_s, {{u"序号"_s, 1}, {u"图片"_s, QByteArray("elsewhere")}});
        const QString bmp = write(u"turned.bmp"_s, pictureBytes({60, 40}, Qt::blue, "BMP"));
        {
            PictureInHand file(bmp);
            addRow(u"tc01"_s, {{u"序号"_s, 13}, {u"图片"_s, jpegOfBmp(file)}});
        }
        const QString same = write(u"same.jpg"_s, large);
        QVERIFY(QDir().mkdir(sample_->file(u"folder.jpg"_s)));
        QFile::setPermissions(write(u"closed.jpg"_s, large), {});
        const std::pair<QString, int> cases[] = {
            {same, 1},
            {write(u"zeros.jpg"_s, large + QByteArray(70000, '\0')), 1},
            {write(u"other.jpg"_s, QByteArray(299999, 'x') + 'y'), 0},
            {write(u"longer.jpg"_s, large + 'x'), 0},
            {write(u"elsewhere.jpg"_s, "elsewhere"), 0},
            {write(u"empty.jpg"_s, {}), 0},
            {write(u"nothing.jpg"_s, QByteArray(10, '\0')), 0},
            {bmp, 1},
            {write(u"broken.bmp"_s, "BM"), 0},
            {sample_->file(u"folder.jpg"_s), 0},
            {sample_->file(u"gone.jpg"_s), 0},
        };
        QStringList all;
        int known = 0;
        for (const auto& [path, repetitions] : cases) {
            QVERIFY2(count({path}) == repetitions, qPrintable(path));
            all << path;
            known += repetitions;
        }
        QCOMPARE(count(all), known);
        QCOMPARE(count({same, same}), 2);
    }

    /// Nothing of their files is kept, only the JPEGs that were made of them.
    void otherFormatsStayOpen() {
        const QByteArray png = pictureBytes({60, 40}, Qt::blue, "PNG");
        addRow(u"tc01"_s, {{u"序号"_s, 11}, {u"图片"_s, QByteArray("one")}});
        const QStringList paths{write(u"1.png"_s, png), write(u"2.bmp"_s, png), write(u"one.jpg"_s, "one")};
        QVERIFY(counted({paths, true}) == (Repetitions{1, 2}));
        QVERIFY(counted({paths, false}) == (Repetitions{1, 0}));
    }

    void countComesFromItsThread() {
        addRow(u"tc01"_s, {{u"序号"_s, 11}, {u"图片"_s, QByteArray("one")}});
        std::atomic<int> counted = -1;
        const RepetitionCount count(mekTp::cataloguePath(), u"tc01"_s, ChosenFiles{{write(u"one.jpg"_s, "one")}},
                                    [&](const Repetitions& found) { counted = found.known; });
        QTRY_COMPARE(counted, 1);
    }

    void recordsOfAnotherAlbum() {
        addRow(u"tc01"_s, {{u"序号"_s, 11}, {u"图片"_s, QByteArray("one")}});
        addRow(u"tc01"_s, {{u"序号"_s, 12}, {u"图片"_s, QByteArray("two")}});
        const QByteArray pictures[] = {"one", "other", "two\0\0", {}, "three"};
        for (int i = 0; i < 5; ++i) addRow(u"tc02"_s, {{u"序号"_s, i}, {u"图片"_s, pictures[i]}});
        const CopyOrder order{.sourcePath = mekTp::cataloguePath(),
                              .sourceTable = u"tc02"_s,
                              .indexField = u"序号"_s,
                              .mapping = {{u"图片"_s, u"图片"_s}},
                              .records = recordsOfKeys({u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"77"_s})};
        KnownPictures known(mekTp::catalogue, u"tc01"_s);
        QVERIFY(countRepetitions(known, order, [] { return true; }) == (Repetitions{2, 0}));
    }

    /// The catalogue cannot be read for two seconds: as little comes from a share that stalls.
    void nobodyWaitsForACount() {
        QProcess other;
        other.start(u"sqlite3"_s, {mekTp::cataloguePath()});
        other.write("BEGIN EXCLUSIVE;\nSELECT 'held';\n");
        QVERIFY(other.waitForReadyRead());
        QElapsedTimer timer;
        timer.start();
        {
            const RepetitionCount count(mekTp::cataloguePath(), u"tc01"_s, ChosenFiles{{write(u"one.jpg"_s, "one")}},
                                        [](const Repetitions&) { QFAIL("told"); });
            QTest::qWait(20);
        }
        QVERIFY(timer.elapsed() < 1000);
        other.close();
    }

    /// Nothing is told of a count that was broken off.
    void countEndsWithItsObject() {
        const QByteArray large(64 << 20, 'x');
        addRow(u"tc01"_s, {{u"序号"_s, 11}, {u"图片"_s, large}});
        const QStringList paths(1000, write(u"large.jpg"_s, large));
        QElapsedTimer timer;
        timer.start();
        {
            const RepetitionCount count(mekTp::cataloguePath(), u"tc01"_s, ChosenFiles{paths},
                                        [](const Repetitions&) { QFAIL("told"); });
            QTest::qWait(20);
        }
        QVERIFY(timer.elapsed() < 10000);
    }
};

const Registered<TestRepetitionCount> registered;

}  // namespace

#include "repetition_count_test.moc"
