#include "../platform/database/jet_files.h"
#include "../support/run_all.h"
#include "jet_maker/jet_maker.h"
#include "transfer_window.h"

#include <QBuffer>
#include <QDateTime>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A picture of several pages.
QByteArray noisyPicture() {
    QImage image(90, 60, QImage::Format_RGB32);
    std::generate_n(reinterpret_cast<quint32*>(image.bits()), 90 * 60, std::mt19937(1));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", 100);
    return bytes;
}

/// The second and third record have the pictures; the third has its own in the wrapper of forms.
void putDatabase(const QString& path, const QByteArray& second, const QByteArray& third) {
    const QList<jet::Column> columns{
        {u"Nr"_s, jet::Type::longInteger}, {u"日付"_s, jet::Type::date}, {u"Bild"_s, jet::Type::ole}};
    const QDateTime day({1850, 3, 4}, {5, 6, 7});
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(jet::database({{u"Übersicht 总览"_s,
                               columns,
                               {{1, QVariant(), QVariant()}, {2, day, second}, {3, QVariant(), jet::wrapped(third)}}},
                              {u"空"_s, columns, {}}}));
}

/// Databases of another program on the pages 图片录入 and 图片转存.
class TestJetIntake : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void picturesComeIn() {
        const JetFiles files;
        DatabaseWindow window;
        const QByteArray small = pictureBytes({160, 120}, Qt::darkGreen), large = noisyPicture();
        putDatabase(window.path(u"照片.mdb"_s), small, large);
        window.chooseFile(u"tc02"_s, 1);
        window.clickFile(u"照片.mdb"_s);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"Übersicht 总览"_s, u"空"_s}));
        window.clickLine(u"lstSb"_s, u"Übersicht 总览"_s);
        window.mapField(0, u"Nr"_s);
        window.mapField(4, u"日付"_s);
        window.mapField(5, u"Bild"_s);
        window.click(u"cmdLr"_s);
        window.clickRow(1);
        window.clickRow(2);
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().last(), u"图片录入完成！  共录入：2张"_s);
        QCOMPARE(stored(u"tc02"_s, 1), small);
        QCOMPARE(stored(u"tc02"_s, 2), large);
        QCOMPARE(valueOf(u"tc02"_s, u"日期"_s), u"1850-03-04 05:06:07"_s);
        QCOMPARE(files.copies(), QStringList());
    }

    void picturesDoNotGoOut() {
        const JetFiles files;
        TransferWindow window;
        putDatabase(window.path(u"照片.mdb"_s), {}, {});
        window.clickRow(0);
        window.chooseTarget(u"照片.mdb"_s);
        QVERIFY(window.said().first().contains(u"不能把图片转存进去"_s));
        QVERIFY(!window.shown(u"lstSb"_s));
        QCOMPARE(files.copies(), QStringList());
    }
};

const Registered<TestJetIntake> registered;

}  // namespace

#include "jet_intake_test.moc"
