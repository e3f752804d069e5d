#include "editor/editor_texts.h"

#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/mektp.h"
#include "platform/picture/picture.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QSize hiMetric(QSize pixels) {
    return {hiMetricFromPixels(pixels.width()), hiMetricFromPixels(pixels.height())};
}

class TestEditorTexts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void hints() {
        QVERIFY(hintFor(u"k0"_s).startsWith(u"先选择图册，再在右边筛选"_s));
        QCOMPARE(hintFor(u"k1"_s), hintFor(u"w1"_s));
        for (const QString& code : {u"c2"_s, u"x2"_s, u"p1"_s, u"z1"_s}) QCOMPARE(hintFor(code), hintFor(u"s2"_s));
        QVERIFY(hintFor(u"a1"_s).contains(u"100＊75像素"_s));
        for (const QString& code : {u"00"_s, u"v1"_s, u"a4"_s, u"b"_s, u"c"_s, QString()})
            QCOMPARE(hintFor(code), QString());
    }

    void hintBoxFitsItsText() {
        QCOMPARE(hintWidth({}), 60);
        QCOMPARE(hintWidth(u"a图1"_s), 4 * 90 + 60);
    }

    void sourceLineOfAFile_data() {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<QString>("tail");
        QTest::newRow("button picture") << qint64(1536) << QSize(100, 75) << u"大小：1.500KB  规格：100 * 75"_s;
        QTest::newRow("half a kilobyte") << qint64(512) << QSize(1, 1) << u"大小：0.500KB  规格：1 * 1"_s;
        QTest::newRow("photograph") << qint64(4'567'890) << QSize(4000, 3000)
                                    << u"大小：4,460.830KB  规格：4000 * 3000"_s;
        QTest::newRow("panorama") << qint64(0) << QSize(32767, 8001) << u"大小：0.000KB  规格：32767 * 8001"_s;
    }
    void sourceLineOfAFile() {
        QFETCH(qint64, bytes);
        QFETCH(QSize, pixels);
        QFETCH(QString, tail);
        QCOMPARE(fileSourceLine(u"/相片/a b.jpg"_s, bytes, hiMetric(pixels)), u"[从文件读出] /相片/a b.jpg  "_s + tail);
    }

    void sourceLineOfARecordLeavesOutNulls() {
        const SampleCatalogue sample;
        Recordset album = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 ORDER BY [序号]"_s);
        const auto change = [&album](const Variant& code, const Variant& kilobytes) {
            album.Edit();
            album.Fields(u"编号"_s).SetValue(code);
            album.Fields(u"大小"_s).SetValue(kilobytes);
            album.Fields(u"规格"_s).SetValue(u"40 * 30"_s);
            album.Update();
        };
        change(u"12"_s, u"1.234"_s);
        QCOMPARE(albumSourceLine(u"tc01"_s, album),
                 u"[从图册读出] 图册名：tc01 序号：1 编号：12 大小：1.234 规格：40 * 30"_s);
        album.MoveNext();
        change({}, {});
        QCOMPARE(albumSourceLine(u"tc01"_s, album), u"[从图册读出] 图册名：tc01 序号：2 规格：40 * 30"_s);
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
};

const Registered<TestEditorTexts> registered;

}  // namespace

#include "editor_texts_test.moc"
