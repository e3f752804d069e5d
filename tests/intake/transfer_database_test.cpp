#include "../support/disk_faults.h"
#include "transfer_window.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString closing = u"图册《旅行》中的 %1 张图片已复制完成！"_s;

QString startQuestionOf(const QString& operation) {
    return u"开始"_s + operation + u"选中的图片记录吗？\n\n如果是，按“确定”；否则按“取消”。"_s;
}

/// The values of a record but for its 序号 and picture.
QStringList valuesOf(const Database& database, const QString& table, int number) {
    const Recordset row = database.OpenRecordset(u"SELECT * FROM %1 WHERE 序号 = %2"_s.arg(table).arg(number));
    QStringList values;
    for (const QString& field : {u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s, u"备注"_s})
        values << row.Fields(field).Value().textOr(u"Null"_s);
    return values;
}

/// With an album tc02 in the file 源库.mdb, which is the target.
class TargetWindow : public TransferWindow {
  public:
    explicit TargetWindow(int first = 1, int count = 0) { addSourceAlbum(u"tc02"_s, first, count); }

    /// Chooses the file, and the table by position; the panel stays open.
    void mapTable() const {
        if (!shown(u"picMl"_s)) chooseTarget();
        clickLine(u"lstSb"_s, u"tc02"_s);
        click(u"cmdQx"_s);
    }
    QStringList arrived() const { return numbersOf(u"tc02"_s, source); }
};

class TestTransferDatabase : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theFailedOnesAreMovedAtTheSecondTry() {
        TargetWindow window;
        const auto inTarget = [&](const QString& sql) {
            QProcess::execute(u"sqlite3"_s, {window.path(u"源库.mdb"_s), sql});
        };
        inTarget(
            u"CREATE TRIGGER refuses BEFORE INSERT ON tc02 WHEN NEW.序号 = 2 BEGIN SELECT RAISE(ABORT, 'no'); END"_s);
        window.chooseRows({0, 1, 2});
        window.chooseTable(u"tc02"_s);
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said().last(), closing.arg(1));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 9);
        inTarget(u"DROP TRIGGER refuses"_s);
        window.click(u"cmdCs"_s);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.arrived(), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 7);
    }

    void copiesThroughTheWizard() {
        TargetWindow window(20, 1);
        window.chooseRows({2, 0});
        window.chooseTarget();
        window.expect({.texts = {{u"lbl6"_s, u"目标库："_s + window.path(u"源库.mdb"_s)},
                                 {u"lbl10"_s, u"请选择目标数据表"_s},
                                 {u"lbl12"_s, u"“图片转录”只能在目标表后追加记录。"_s}}});
        QVERIFY(window.linesOf(u"lstSb"_s).contains(u"tc01"_s));
        window.mapTable();
        window.expect(
            {.enabled = u"cmdFz cmdYd"_s,
             .disabled = u"cmdWj"_s,
             .texts = {
                 {u"lblLj"_s, u"目标表：tc02"_s}, {u"lbl3"_s, u"索引字段名：序号"_s}, {u"cmdLr"_s, u"关闭本框"_s}}});
        window.click(u"cmdLr"_s);
        window.expect({.hidden = u"picMl"_s, .disabled = u"cboBm"_s});
        QCOMPARE(window.hint(),
                 u"接受图片的数据表已经设定，请按“按默认文件名转成文件”或“复制”或“移动”按钮进行相应操作。"_s);
        window.click(u"cmdFz"_s);
        QCOMPARE(window.said(), (QStringList{startQuestionOf(u"复制"_s), closing.arg(2)}));
        QCOMPARE(window.arrived(), (QStringList{u"20"_s, u"21"_s, u"22"_s}));
        QCOMPARE(valuesOf(window.source, u"tc02"_s, 21), valuesOf(mekTp::catalogue, u"tc01"_s, 3));
        QCOMPARE(stored(u"tc02"_s, 22, window.source), stored(u"tc01"_s, 1));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(window.chosen(), QStringList());
        QCOMPARE(window.label(u"lbl5"_s), u"已选中0条"_s);
        QCOMPARE(window.hint(), u"选择图册可重新开始。"_s);
        window.expect({.enabled = u"cboBm"_s});
        QVERIFY(window.pageFree());
    }

    void aTableClickedAfterTheMappingTakesNothing() {
        TargetWindow window;
        window.addSourceAlbum(u"tc01"_s, 1, 0);
        window.clickRow(0);
        window.mapTable();
        for (const QString& table : {u"tc01"_s, u"tc02"_s}) {
            window.clickLine(u"lstSb"_s, table);
            window.expect({.disabled = u"cmdFz cmdYd"_s});
            window.click(u"cmdYd"_s);
        }
        QCOMPARE(window.said(), QStringList());
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(window.arrived(), QStringList());
        window.mapTable();
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said().last(), closing.arg(1));
        QCOMPARE(window.arrived(), QStringList{u"1"_s});
    }

    void aRunBeforeThePanelIsClosedEndsItsUse() {
        TargetWindow window;
        window.clickRow(0);
        window.mapTable();
        window.click(u"cmdFz"_s);
        QCOMPARE(window.said().last(), closing.arg(1));
        window.expect({.shown = u"cmdQb"_s, .hidden = u"picMl lbl12"_s, .enabled = u"cboBm msgBm"_s});
        window.clickRow(1);
        QCOMPARE(window.chosen(), QStringList{u"2"_s});
    }

    void aMoveThatWouldLoseThePictureIsNotMade() {
        TargetWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, u"图片"_s, FieldValue());
        window.chooseRows({0, 1, 2});
        window.chooseTarget();
        window.clickLine(u"lstSb"_s, u"tc02"_s);
        window.mapField(0, u"序号"_s);
        window.mapField(6, u"备注"_s);
        window.click(u"cmdLr"_s);
        window.click(u"cmdLr"_s);
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said().last(), closing.arg(1));
        QCOMPARE(window.report().mid(1, 2),
                 (QStringList{u"1|失败，没有移动|图片没有对应字段"_s, u"2|失败，没有移动|图片没有对应字段"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(3), (QStringList{u"1"_s, u"2"_s, u"4"_s}));
        QCOMPARE(window.arrived(), QStringList{u"1"_s});
    }

    void anotherFolderIsOneStepBack() {
        TransferWindow window;
        window.clickRow(0);
        window.chooseTarget();
        window.enterFolder(u"内"_s);
        window.expect({.hidden = u"lstSb"_s});
        window.click(u"cmdQq"_s);
        window.expect({.hidden = u"picMl"_s, .unchecked = u"optMb(1)"_s});
        QCOMPARE(window.chosen().size(), 1);
        window.option(u"optMb(1)"_s);
        window.get<DirList>(u"dir1"_s).setPath(window.pictures.path());
        window.expect({.shown = u"lbl12"_s});
        window.dropLine(u"1"_s);
        window.expect({.hidden = u"lbl12 picMl"_s});
    }

    void aTargetThatIsGone() {
        TargetWindow window;
        window.source = {};
        window.clickRow(0);
        window.chooseTarget();
        QVERIFY(QFile::remove(window.path(u"源库.mdb"_s)));
        window.clickLine(u"lstSb"_s, u"tc02"_s);
        QCOMPARE(window.boxes.size(), 1);
        QCOMPARE(window.boxes.front().title, u"操作提示"_s);
        QVERIFY(window.boxes.front().text.contains(u"源库.mdb"_s));
        window.expect({.hidden = u"cmdLr"_s, .disabled = u"cmdFz"_s, .texts = {{u"lblLj"_s, QString()}}});
    }

    /// The program would wait at a pipe for ever.
    void aTargetThatHasBecomeNoFile() {
        TargetWindow window;
        window.source = {};
        window.clickRow(0);
        window.chooseTable(u"tc02"_s);
        const QString target = window.path(u"源库.mdb"_s);
        QVERIFY(QFile::remove(target));
        QCOMPARE(mkfifo(QFile::encodeName(target).constData(), 0600), 0);
        window.click(u"cmdYd"_s);
        const QStringList said = window.said();
        QCOMPARE(said.size(), 2);
        QVERIFY2(said[1].contains(target) && said[1].contains(u"管道"_s), qPrintable(said[1]));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(window.chosen(), QStringList{u"1"_s});
    }

    void aTargetThatCannotBeWritten() {
        TargetWindow window;
        window.source = {};
        window.clickRow(0);
        window.chooseTable(u"tc02"_s);
        QFile target(window.path(u"源库.mdb"_s)), folder(window.pictures.path());
        const auto mine = target.permissions(), mineToo = folder.permissions();
        const auto tried = [&] {
            const PlainUser user;
            window.click(u"cmdYd"_s);
            return window.said().value(1);
        };
        // The plain user keeps the group, and reads the album.
        QFile(window.catalogue.folder()).setPermissions(mineToo | QFileDevice::ExeGroup | QFileDevice::ReadGroup);
        QVERIFY(folder.setPermissions(mineToo | QFileDevice::ExeGroup | QFileDevice::ReadGroup) &&
                target.setPermissions(QFileDevice::ReadUser | QFileDevice::ReadGroup));
        QVERIFY2(tried().contains(u"只读"_s), "file");
        QVERIFY(target.setPermissions(mine | QFileDevice::ReadGroup | QFileDevice::WriteGroup));
        QVERIFY2(tried().contains(u"所在的文件夹不能写入"_s), "folder");
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(window.chosen(), QStringList{u"1"_s});
        QVERIFY(folder.setPermissions(mineToo));
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said().last(), closing.arg(1));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 9);
    }

    void movesIntoAnotherAlbumOfTheCatalogue() {
        TransferWindow window;
        window.click(u"cmdBh(2)"_s);
        window.click(u"cmdXb"_s);
        window.chooseTable(u"tc02"_s, window.catalogue.file(u"lunq.mdb"_s));
        const QByteArray picture = stored(u"tc01"_s, 2);
        window.answer = false;
        window.click(u"cmdYd"_s);
        QCOMPARE(numbersOf(u"tc02"_s), QStringList());
        QCOMPARE(window.chosen().size(), 5);
        window.answer = true;
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said().mid(1), (QStringList{startQuestionOf(u"移动"_s), closing.arg(5)}));
        QCOMPARE(numbersOf(u"tc02"_s).size(), 5);
        QCOMPARE(stored(u"tc02"_s, 2), picture);
        QCOMPARE(numbersOf(u"tc01"_s).first(), u"6"_s);
        QCOMPARE(window.label(u"lblJs"_s), u"旅行 全部共：0条"_s);
    }

    void stepsBackFromADatabase() {
        TargetWindow window;
        window.clickRow(0);
        window.chooseTable(u"tc02"_s);
        window.click(u"cmdQq"_s);  // step 16
        window.expect({.shown = u"picMl"_s});
        QVERIFY(window.hint().startsWith(u"接受图片的数据表已经确定"_s));
        window.click(u"cmdQq"_s);  // step 15
        window.expect({.disabled = u"cmdFz cmdYd"_s, .texts = {{u"cmdLr"_s, u"对应完成"_s}, {u"lbl3"_s, QString()}}});
        QCOMPARE(window.mapping(), QStringList(7, QString()));
        window.click(u"cmdQq"_s);  // step 14
        window.expect({.shown = u"lstSb"_s, .hidden = u"cmdQx"_s, .texts = {{u"lblLj"_s, QString()}}});
        window.click(u"cmdQq"_s);  // step 13
        window.expect({.shown = u"lbl7"_s, .hidden = u"lstSb"_s});
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.label(u"lbl6"_s), QString());
        window.click(u"cmdQq"_s);  // step 12
        window.expect({.hidden = u"picMl"_s, .unchecked = u"optMb(1)"_s});
        QCOMPARE(window.chosen().size(), 1);
        window.click(u"cmdQq"_s);  // step 1
        QCOMPARE(window.chosen(), QStringList());
        window.expect({.enabled = u"cboBm msgBm"_s});
        QVERIFY(window.pageFree());
    }

    void targetsThatAreRefused() {
        TransferWindow window;
        window.addBytes(u"jet.mdb"_s, QByteArray("\0\1\0\0Standard Jet DB\0", 20) + QByteArray(4096, '\0'));
        window.addBytes(u"text.mdb"_s, "no database");
        SQLite::Database(window.path(u"other.mdb"_s).toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
            .exec("CREATE TABLE tc01 (序号 INTEGER)");
        window.clickRow(0);
        for (const QString& file : {u"jet.mdb"_s, u"text.mdb"_s, u"other.mdb"_s}) {
            window.chooseTarget(file);
            const QStringList said = window.said();
            QCOMPARE(said.size(), 1);
            QVERIFY2(said.first().contains(window.path(file)), qPrintable(said.first()));
            QCOMPARE(said.first().contains(u"不能把图片转存进去"_s), file != u"text.mdb"_s);
            window.expect({.hidden = u"lstSb"_s});
        }
        window.chooseTarget();
        window.clickLine(u"lstSb"_s, u"tc02"_s);
        QCOMPARE(window.said(), QStringList{u"目标库中没有数据表“tc02”，请重新选择！"_s});
        window.expect({.hidden = u"cmdLr"_s, .texts = {{u"lblLj"_s, QString()}}});
    }

    /// The tables that the program lives by are not offered.
    void onlyAlbumsOfTheCatalogueAreOffered() {
        TargetWindow window;
        mekTp::catalogue.Execute(createAlbumSql(u"海边照片"_s));
        window.clickRow(0);
        window.chooseTarget();
        QCOMPARE(window.linesOf(u"lstSb"_s), (QStringList{u"tc01"_s, u"tc02"_s, u"海边照片"_s}));
    }

    void recordsThatDoNotFitStay() {
        TransferWindow window;
        window.source.Execute(
            u"CREATE TABLE tc02 ([序号] LONG,[编号] TEXT(1),[大小] SINGLE,[规格] TEXT(12),"
            "[日期] DATETIME,[图片] LONGBINARY,[备注] TEXT(50))"_s);
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 6"_s);
        window.click(u"cmdQb"_s);
        window.get<ListBox>(u"lstSu"_s).AddItem(u"6"_s);
        window.chooseTable(u"tc02"_s);
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said().last(), closing.arg(6));
        const QStringList report = window.report();
        QCOMPARE(report[0], u"已移动 6 张，6 张已核对，4 张失败"_s);
        QCOMPARE(report.filter(u"|失败，没有移动|"_s).filter(QRegularExpression(u"^[135]\\|"_s)).size(), 3);
        QVERIFY(report.contains(u"6|失败，没有移动|记录已不在图册中"_s));
        QCOMPARE(numbersOf(u"tc01"_s), (QStringList{u"1"_s, u"3"_s, u"5"_s}));
        QCOMPARE(numbersOf(u"tc02"_s, window.source).last(), u"6"_s);
    }

    void numbersFollowTheHighestOfTheTarget() {
        TargetWindow window;
        for (const int number : {20, 3}) window.addSourceRow(u"tc02"_s, number);
        window.addRow(u"tc02"_s, {{u"备注"_s, u"没有序号"_s}});
        window.chooseRows({0, 1});
        window.chooseTable(u"tc02"_s);
        window.click(u"cmdFz"_s);
        QCOMPARE(window.said().last(), closing.arg(2));
        QCOMPARE(window.arrived(), (QStringList{u"20"_s, u"3"_s, QString(), u"21"_s, u"22"_s}));
    }
};

const Registered<TestTransferDatabase> registered;

}  // namespace

#include "transfer_database_test.moc"
