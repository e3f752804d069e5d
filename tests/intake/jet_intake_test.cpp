#include "../platform/database/jet_files.h"
#include "../support/run_all.h"
#include "transfer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Databases of another program on the pages 图片录入 and 图片转存.
class TestJetIntake : public QObject {
    Q_OBJECT

    static constexpr auto sampleName = "jet4-ole-large-unicode.mdb";

  private Q_SLOTS:
    void picturesComeIn() {
        if (!JetFiles::hasSamples()) return;
        const JetFiles files;
        DatabaseWindow window;
        const QString name = QString::fromLatin1(sampleName);
        QVERIFY(QFile::copy(JetFiles::sample(name), window.path(name)));
        window.chooseFile(u"tc02"_s, 1);
        window.clickFile(name);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"Bilder Übersicht"_s, u"leer"_s}));
        window.clickLine(u"lstSb"_s, u"Bilder Übersicht"_s);
        window.mapField(0, u"Nr"_s);
        window.mapField(4, u"日付"_s);
        window.mapField(5, u"Bild"_s);
        window.click(u"cmdLr"_s);
        window.clickRow(6);
        window.clickRow(11);
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().last(), u"图片录入完成！  共录入：2张"_s);
        const QByteArray photograph = stored(u"tc02"_s, 1);
        QCOMPARE(photograph.size(), 1938);
        QCOMPARE(QImage::fromData(photograph).size(), QSize(160, 120));
        QCOMPARE(stored(u"tc02"_s, 2).size(), 931184);
        QCOMPARE(valueOf(u"tc02"_s, u"日期"_s), u"1850-03-04 05:06:07"_s);
        QCOMPARE(files.copies(), QStringList());
    }

    void picturesDoNotGoOut() {
        if (!JetFiles::hasSamples()) return;
        const JetFiles files;
        TransferWindow window;
        const QString name = QString::fromLatin1(sampleName);
        QVERIFY(QFile::copy(JetFiles::sample(name), window.path(name)));
        window.clickRow(0);
        window.chooseTarget(name);
        QVERIFY(window.said().first().contains(u"不能把图片转存进去"_s));
        QVERIFY(!window.shown(u"lstSb"_s));
        QCOMPARE(files.copies(), QStringList());
    }
};

const Registered<TestJetIntake> registered;

}  // namespace

#include "jet_intake_test.moc"
