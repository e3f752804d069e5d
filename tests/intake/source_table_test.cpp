#include "database_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// A table of another program: its columns have names of their own.
class SourceTableWindow : public DatabaseWindow {
  public:
    SourceTableWindow() {
        source.Execute(u"CREATE TABLE shots ([no] LONG,[photo] LONGBINARY,[text] TEXT(50),[图片] LONGBINARY)"_s);
    }
    void addShot(int number, const QByteArray& photo) const {
        addRow(u"shots"_s, {{u"no"_s, number},
                            {u"photo"_s, photo},
                            {u"text"_s, u"shot %1"_s.arg(number)},
                            {u"图片"_s, QByteArray("other")}});
    }
    /// 序号, and 图片 from the column `photo`.
    void map(const QString& album, int way) const {
        chooseTable(album, way, u"shots"_s);
        mapField(0, u"no"_s);
        mapField(5, u"photo"_s);
        click(u"cmdLr"_s);
    }
    QStringList headings() const {
        const auto& model = *grid().model();
        QStringList all;
        for (int i = 0; i < model.columnCount(); ++i) all << model.headerData(i, Qt::Horizontal).toString();
        return all;
    }
};

class TestSourceTable : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theGridHasTheHeadingsOfWhatItShows() {
        SourceTableWindow window;
        window.addShot(7, DatabaseWindow::pictureOf(7));
        window.choose(u"cboBm"_s, u"tc02"_s);
        const QStringList album = window.headings();
        QCOMPARE(album.first(), u"序号"_s);
        const auto choose = [&] {
            window.map(u"tc02"_s, 1);
            QCOMPARE(window.headings(), (QStringList{u"no"_s, u"text"_s}));
        };
        choose();
        window.click(u"cmdQ1"_s);
        QCOMPARE(window.headings(), album);
        choose();
        window.tabs().setCurrentIndex(2);
        QCOMPARE(window.headings(), album);
        window.tabs().setCurrentIndex(1);
        QCOMPARE(window.headings(), album);
        choose();
        window.copyAll();
        QCOMPARE(window.headings(), album);
    }

    void thePictureOfARecordIsTheMappedOne() {
        SourceTableWindow window;
        window.addShot(7, DatabaseWindow::pictureOf(7));
        window.addShot(8, pictureBytes({30, 20}, Qt::red));
        window.map(u"tc02"_s, 1);
        window.click(u"cmdCk(0)"_s);
        window.clickRow(1);
        const auto& shown = window.get<ImageBox>(u"imgWj"_s).picture();
        QCOMPARE(shown.pixels(), QSize(30, 20));
        QCOMPARE(window.label(u"lblWj"_s), u"源表：shots no：8\n规格：30*20"_s);
        window.click(u"cmdCg"_s);
        window.click(u"cmdQ1"_s);
        QCOMPARE(window.copyAll().last(), entered(2));
        QCOMPARE(columnOf(u"tc02"_s, u"规格"_s), (QStringList{u"60*45"_s, u"30*20"_s}));
        QCOMPARE(stored(u"tc02"_s, 2), pictureBytes({30, 20}, Qt::red));
    }

    void doubtfulValuesStayOut() {
        for (const bool taken : {false, true}) {
            SourceTableWindow window;
            const QByteArray whole = DatabaseWindow::pictureOf(2);
            // The second record of the key 5 alone is doubtful; 9 has no picture at all, which is none to doubt.
            window.addShot(1, "no picture");
            window.addShot(2, whole);
            window.addShot(5, whole);
            window.addShot(5, whole.chopped(2));
            window.addShot(6, whole + QByteArray(9, '\0'));
            window.addShot(9, {});
            chooseInBoxesWith([&](const BoxText& box) {
                window.boxes << box;
                return box.answers.contains(u"也录入"_s) && !taken ? box.onEscape : 0;
            });
            window.map(u"tc02"_s, 1);
            const QStringList said = window.copyAll();
            QCOMPARE(said.size(), 2);
            QVERIFY2(said[0].startsWith(u"其中 1 条的图片不是 BMP 或 JPEG：no＝1\n其中 1 条的图片不完整：no＝5\n"_s),
                     qPrintable(said[0]));
            QCOMPARE(said[1], entered(taken ? 6 : 4));
            QList<QByteArray> pictures{whole, whole, whole + QByteArray(9, '\0'), {}};
            if (taken) pictures << QByteArray("no picture") << whole.chopped(2);
            QCOMPARE(numbersOf(u"tc02"_s).size(), pictures.size());
            for (int i = 0; i < pictures.size(); ++i) QCOMPARE(stored(u"tc02"_s, i + 1), pictures[i]);
        }
    }

    void aKeyThatTheTargetLacksIsToldAtOnce() {
        SourceTableWindow window;
        window.addShot(7, DatabaseWindow::pictureOf(7));
        window.chooseTable(u"tc01"_s, 0, u"shots"_s);
        window.mapField(0, u"no"_s);
        window.mapField(5, u"photo"_s);
        window.said();
        window.click(u"cmdLr"_s);
        const QStringList said = window.said();
        QCOMPARE(said.size(), 1);
        QVERIFY2(said[0].startsWith(u"目标表中没有栏目“no”"_s), qPrintable(said[0]));
        // The fields can be mapped otherwise.
        window.expect({.shown = u"txtYb(0)"_s, .hidden = u"lstSu"_s, .texts = {{u"cmdLr"_s, u"对应完成"_s}}});
        window.mapField(2, u"no"_s);
        QCOMPARE(window.said().size(), 1);  // the types differ
    }

    /// Which tables lstSb offers as a source. The offer of targets is tested with the transfer.
    void ofTheCatalogueOnlyAlbums() {
        DatabaseWindow window;
        mekTp::catalogue.Execute(createAlbumSql(u"海边照片"_s));
        QVERIFY(QFile::remove(window.path(u"源库.mdb"_s)) &&
                QFile::link(mekTp::cataloguePath(), window.path(u"源库.mdb"_s)));
        window.chooseFile(u"tc01"_s, 1);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"tc00"_s, u"tc01"_s, u"tc02"_s, u"海边照片"_s}));
        window.mapAll(u"tc01"_s, 1, u"海边照片"_s);
        QCOMPARE(window.mapping(), albumFields);
    }

    void ofAnotherDatabaseAll() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc30"_s, 1, 0);
        for (const QString& table : {u"tcan"_s, u"MSysObjects"_s, u"照片"_s})
            window.source.Execute(u"CREATE TABLE "_s + table + u" ([序号] LONG)"_s);
        window.chooseFile(u"tc01"_s, 1);
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"tc30"_s, u"tcan"_s, u"照片"_s}));
    }
};

const Registered<TestSourceTable> registered;

}  // namespace

#include "source_table_test.moc"
