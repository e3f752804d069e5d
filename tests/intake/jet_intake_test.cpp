#include "../platform/database/jet_files.h"
#include "jet_maker/jet_maker.h"
#include "platform/database/records/own_values.h"
#include "transfer_window.h"

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
    writeFile(path,
              jet::database({{u"Übersicht 总览"_s,
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

    /// A table of another program is mapped by its names and contents; the person looks at its first records. What was
    /// used is proposed the next time.
    void fieldsAreProposedAndRemembered() {
        const JetFiles files;
        DatabaseWindow window;
        OwnValues(mekTp::catalogue).prepare();
        putDatabase(window.path(u"照片.mdb"_s), pictureBytes({160, 120}, Qt::darkGreen), noisyPicture());
        const auto choose = [&] {
            window.chooseFile(u"tc02"_s, 1);
            window.clickFile(u"照片.mdb"_s);
            window.clickLine(u"lstSb"_s, u"Übersicht 总览"_s);
        };
        choose();
        QCOMPARE(window.mapping(), (QStringList{u"Nr"_s, {}, {}, {}, u"日付"_s, u"Bild"_s, {}}));
        window.expect({.shown = u"grdYl"_s,
                       .hidden = u"cmdBh(0)"_s,
                       .enabled = u"cmdLr fil1"_s,
                       .disabled = u"cmdQx"_s,
                       .texts = {{u"lbl14"_s, u"索引字段名：Nr"_s}, {u"cmdLr"_s, u"对应完成"_s}}});
        const auto& sample = window.get<QTableWidget>(u"grdYl"_s);
        QCOMPARE(sample.horizontalHeaderItem(1)->text(), u"日付"_s);
        QCOMPARE(sample.item(1, 0)->text(), u"2"_s);
        const QColor shown = sample.item(1, 2)->data(Qt::DecorationRole).value<QImage>().pixelColor(3, 3);
        QVERIFY(shown.green() > 120 && shown.red() < 10 && shown.blue() < 10);
        QVERIFY(sample.item(0, 2)->data(Qt::DecorationRole).isNull());

        // The date is not wanted.
        QTest::mouseClick(&window.fieldBox(4), Qt::LeftButton);
        QTest::keyClick(&window.fieldBox(4), Qt::Key_Delete);
        window.click(u"cmdLr"_s);
        window.expect({.hidden = u"grdYl"_s, .disabled = u"fil1"_s});
        QCOMPARE(window.copyAll().last(), entered(3));
        QCOMPARE(columnOf(u"tc02"_s, u"规格"_s).mid(1), (QStringList{u"160*120"_s, u"90*60"_s}));
        choose();
        QCOMPARE(window.mapping(), (QStringList{u"Nr"_s, {}, {}, {}, {}, u"Bild"_s, {}}));
        window.click(u"cmdQ1"_s);
        window.expect({.shown = u"cmdBh(0)"_s, .hidden = u"grdYl"_s});
    }

    /// A proposed field that is longer than the album's is asked about before it is used.
    void longProposalsAreAskedAbout() {
        DatabaseWindow window;
        window.source.Execute(u"CREATE TABLE shots ([no] LONG,[caption] TEXT(200))"_s);
        window.addRow(u"shots"_s, {{u"no"_s, 1}, {u"caption"_s, u"short"_s}});
        window.chooseTable(u"tc02"_s, 1, u"shots"_s);
        window.answer = false;
        window.click(u"cmdLr"_s);
        QVERIFY(window.said().value(0).startsWith(u"目标表的字段长度小于源表的字段长度"_s));
        QCOMPARE(window.mapping().last(), QString());
        window.expect({.texts = {{u"cmdLr"_s, u"对应完成"_s}}});
    }

    /// The sign of the index field goes with its line when 全部对应 does not fit.
    void droppedProposalsLeaveNoSign() {
        DatabaseWindow window;
        window.source.Execute(
            u"CREATE TABLE shots ([caption] TEXT(20),[no] LONG,[a] LONG,[b] LONG,[c] LONG,[d] LONG,[e] LONG)"_s);
        window.addRow(u"shots"_s, {{u"no"_s, 1}, {u"caption"_s, u"short"_s}});
        window.chooseTable(u"tc02"_s, 1, u"shots"_s);
        window.expect({.texts = {{u"lbl14"_s, u"索引字段名：no"_s}}});
        window.click(u"cmdQx"_s);
        QCOMPARE(window.said(), QStringList{u"字段类型不对应，无法继续！"_s});
        window.expect({.texts = {{u"txtYb(0)"_s, QString()}, {u"lbl14"_s, u"索引字段名："_s}}});
    }

    /// Both ways to read the texts are shown once; the choice is kept for the file, and can be changed.
    void doubtfulTextsAreAskedAbout() {
        const JetFiles files;
        DatabaseWindow window;
        OwnValues(mekTp::catalogue).prepare();
        const QByteArray rare("\x94\xea\x94\xea"), usual("\xb1\xe0\xc2\xeb");
        const QString file = window.path(u"旧.mdb"_s);
        writeFile(file, jet::database({{u"t"_s, {{u"a"_s, jet::Type::text, 20}}, {{rare}, {usual}}}},
                                      {.version = jet::Version::jet3, .codePage = 1252}));
        const auto isChinese = [&] {
            const Recordset texts = OpenDatabase(file).OpenRecordset(u"t"_s);
            return texts.Fields(u"a"_s).Value().toText().front() > QChar(0x3000);
        };
        window.chooseFile(u"tc02"_s, 1);
        for (const bool isFirst : {true, false}) {
            window.clickFile(u"旧.mdb"_s);
            const auto asked = std::ranges::find_if(window.boxes, [](const BoxText& box) {
                return box.answers == QStringList{u"中文"_s, u"西文"_s};
            });
            QCOMPARE(asked != window.boxes.end(), isFirst);
            if (isFirst) QVERIFY(asked->text.contains(u"编码"_s) && asked->text.contains(u"±àÂë"_s));
            QVERIFY(isChinese());
            window.said();
        }
        window.clickLine(u"lstSb"_s, u"t"_s);
        window.expect({.texts = {{u"lbl13"_s, u"源表：t"_s}}});
        window.get<QAction>(u"mnuBm"_s).trigger();
        QVERIFY(!isChinese());
        window.expect({.hidden = u"cmdLr"_s, .texts = {{u"lbl13"_s, QString()}, {u"lbl14"_s, QString()}}});
    }

    /// A damaged table is marked; what it still has comes in after one question, and the report names what is lost.
    void whatIsWholeComesInFromADamagedFile() {
        const JetFiles files;
        DatabaseWindow window;
        const QByteArray second = noisyPicture(), third = pictureBytes({160, 120}, Qt::darkGreen);
        putDatabase(window.path(u"照片.mdb"_s), second, third);
        QFile file(window.path(u"照片.mdb"_s));
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qsizetype page = file.readAll().indexOf(second.right(40)) / 4096 * 4096;
        QVERIFY(page > 0 && file.seek(page));
        file.write(QByteArray(4096, '\0'));
        file.close();
        window.passesOver = true;
        window.chooseFile(u"tc02"_s, 1);
        window.clickFile(u"照片.mdb"_s);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"Übersicht 总览（有损坏）"_s, u"空"_s}));
        window.clickLine(u"lstSb"_s, u"Übersicht 总览（有损坏）"_s);
        window.click(u"cmdLr"_s);
        QVERIFY(window.said().value(0).contains(u"“Nr＝2”的“Bild”已损坏，不能读取"_s));
        window.copyAll();
        QCOMPARE(stored(u"tc02"_s, 2), third);
        const QStringList report = window.report();
        QCOMPARE(report[0], u"已录入 2 张，1 张失败，源表有 1 处损坏"_s);
        QVERIFY(report[1].startsWith(u"（源表）|"_s) && report[1].contains(u"“Nr＝2”的“Bild”"_s));
        QVERIFY(report[2].startsWith(u"2|失败"_s));
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

    /// They can go into a new catalogue beside such a file, which stays as it was.
    void aNewCatalogueTakesThem() {
        const JetFiles files;
        TransferWindow window;
        putDatabase(window.path(u"照片.mdb"_s), {}, {});
        const QByteArray before = window.bytesOf(u"照片.mdb"_s);
        window.clickRow(0);
        chooseInBoxesWith([&](const BoxText& box) {
            window.boxes << box;
            return box.answers.contains(u"新建图册库"_s) ? 1 : 0;
        });
        window.chooseTarget(u"照片.mdb"_s);
        QVERIFY(window.said().value(0).contains(u"照片-新.mdb"_s));
        QCOMPARE(window.label(u"lbl6"_s), u"目标库："_s + window.path(u"照片-新.mdb"_s));
        window.clickLine(u"lstSb"_s, u"tc01"_s);
        window.click(u"cmdQx"_s);
        window.click(u"cmdLr"_s);
        window.click(u"cmdFz"_s);
        const Database made = OpenDatabase(window.path(u"照片-新.mdb"_s));
        QCOMPARE(numbersOf(u"tc01"_s, made), QStringList{u"1"_s});
        QCOMPARE(made.OpenRecordset(u"tcbm"_s).Fields(u"表名"_s).Value().toText(), u"tc01"_s);
        QCOMPARE(window.bytesOf(u"照片.mdb"_s), before);
    }
};

const Registered<TestJetIntake> registered;

}  // namespace

#include "jet_intake_test.moc"
