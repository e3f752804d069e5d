#include "database_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// A table that is an album but for the type of its third field.
const QString otherTypeSql =
    u"CREATE TABLE 别表 ([a] LONG,[b] TEXT(10),[c] LONG,[d] TEXT(12),[e] DATETIME,[f] LONGBINARY,[g] TEXT(50))"_s;

/// The picture of a record of tc01 and what tells of it.
QList<FieldValue> pictureValues(int number) {
    QList<FieldValue> values{stored(u"tc01"_s, number)};
    for (const QString& column : {u"规格"_s, u"大小"_s, u"日期"_s}) values << ofNumber(number, column);
    return values;
}

class TestDatabaseIntake : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void wholeWayOfAppending() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 5, 3);
        window.source.Execute(u"CREATE TABLE MSysOther ([a] LONG)"_s);
        window.chooseFile(u"tc02"_s, 1);
        window.expect(
            {.texts = {{u"lbl12"_s, u"源库："_s + window.path(u"源库.mdb"_s)}, {u"lbl10"_s, u"请选择来源数据表"_s}}});
        QCOMPARE(window.linesOf(u"lstSb"_s), QStringList{u"tc01"_s});

        window.clickLine(u"lstSb"_s, u"tc01"_s);
        window.expect({.shown = u"lstSb chkZd"_s,
                       .enabled = u"cmdQx"_s,
                       .disabled = u"cmdLr"_s,
                       .texts = {{u"lbl13"_s, u"源表：tc01"_s}, {u"lblMb(6)"_s, u"备注<对应>"_s}}});

        window.click(u"cmdQx"_s);
        QCOMPARE(window.mapping(), albumFields);
        window.expect({.texts = {{u"lbl14"_s, u"索引字段名：序号"_s},
                                 {u"lblMk"_s, u"在下表选择源表中要复制的记录"_s},
                                 {u"lblJl"_s, u"已选择的源表中要复制的记录的“序号”"_s},
                                 {u"cmdQx"_s, u"全部记录"_s},
                                 {u"cmdLr"_s, u"录入图册"_s}}});
        QCOMPARE(window.fieldBox(0).palette().color(QPalette::Text), QColor(Qt::red));
        QVERIFY(!window.files().isEnabled());
        QCOMPARE(window.placeOf(u"msgBm"_s), rectFromTwips(5180, 990, 4100, 3855));
        QCOMPARE(window.get<Grid>(u"msgBm"_s).model()->rowCount(), 3);

        window.clickRow(2);
        window.clickRow(0);
        QCOMPARE(window.hint(), u"要转录的记录选择完成后，请按“录入图册”按钮开始转录。"_s);
        window.clickRow(2);
        QCOMPARE(window.said(), QStringList{u"选择的记录重复！"_s});
        QCOMPARE(window.linesOf(u"lstSu"_s), (QStringList{u"7"_s, u"5"_s}));

        window.click(u"cmdLr"_s);
        QCOMPARE(window.said(),
                 (QStringList{u"将所选的图片追加本图册(tc02 空册)吗？\n\n如果录入，按《确定》；否则按《取消》。\n\n"_s,
                              entered(2)}));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(columnOf(u"tc02"_s, u"备注"_s), (QStringList{u"源7"_s, u"源5"_s}));
        QCOMPARE(valueOf(u"tc02"_s, u"日期"_s), u"1999-05-07 08:30:00"_s);
        QCOMPARE(stored(u"tc02"_s, 1), DatabaseWindow::pictureOf(7));
        window.expect({.hidden = u"lstSu lstSb lbl10 txtYb(0)"_s,
                       .disabled = u"cmdQ1"_s,
                       .texts = {{u"lblJl"_s, u"表 [tc02 空册] 共有记录：2 条"_s}, {u"cmdQx"_s, u"选择全部"_s}}});
        QVERIFY(window.hint().contains(u"请选择“图片来源”重新开始"_s));

        // The page goes on with another source.
        window.option(u"optYl(1)"_s);
        window.expect({.hidden = u"lstSb"_s, .enabled = u"fil1"_s});
    }

    void replacesByIndexField() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 9, 4);
        window.mapAll(u"tc01"_s, 0, u"tc01"_s);
        QCOMPARE(window.copyAll(),
                 (QStringList{u"目标表中下列序号的对应的记录不存在，没有替换。\n\n[序号 = 11,12]"_s, entered(2)}));
        QCOMPARE(columnOf(u"tc01"_s, u"备注"_s).mid(7), (QStringList{u"图片8"_s, u"源9"_s, u"源10"_s}));
        QCOMPARE(stored(u"tc01"_s, 10), DatabaseWindow::pictureOf(10));
    }

    void aReplacedPictureStaysWhenNoneComes() {
        DatabaseWindow window;
        window.source.Execute(createAlbumSql(u"tc01"_s));
        window.addRow(u"tc01"_s, {{u"序号"_s, 1}, {u"备注"_s, u"没有"_s}});
        window.addRow(u"tc01"_s, {{u"序号"_s, 2}, {u"备注"_s, u"空的"_s}, {u"图片"_s, QByteArray("")}});
        window.addSourceRow(u"tc01"_s, 3);
        const auto first = pictureValues(1), second = pictureValues(2), fourth = pictureValues(4);
        window.mapAll(u"tc01"_s, 0, u"tc01"_s);
        QCOMPARE(window.copyAll(), QStringList{entered(3)});
        QCOMPARE(window.report(), (QStringList{u"已录入 3 张"_s, u"1|没有图片可存，原有的图片没有改动|"_s,
                                               u"2|没有图片可存，原有的图片没有改动|"_s, u"3|已录入|"_s}));
        QCOMPARE(pictureValues(1), first);
        QCOMPARE(pictureValues(2), second);
        QCOMPARE(stored(u"tc01"_s, 3), DatabaseWindow::pictureOf(3));

        // The same where the picture is not mapped, whatever the source has.
        window.addSourceAlbum(u"tc02"_s, 4, 1);
        window.chooseTable(u"tc01"_s, 0, u"tc02"_s);
        window.mapField(0, u"序号"_s);
        window.mapField(6, u"备注"_s);
        window.click(u"cmdLr"_s);
        window.copyAll();
        QCOMPARE(window.report()[1], u"4|没有图片可存，原有的图片没有改动|"_s);
        QCOMPARE(pictureValues(4), fourth);
        QCOMPARE(columnOf(u"tc01"_s, u"备注"_s).first(4), (QStringList{u"没有"_s, u"空的"_s, u"源3"_s, u"源4"_s}));
    }

    void keysChooseTheFileTheyReach() {
        DatabaseWindow window;
        window.chooseFile(u"tc02"_s, 1);
        window.clickFile(window.files().List(0));
        for (const auto& [key, line] : {std::pair{Qt::Key_Down, 1}, std::pair{Qt::Key_Up, 0}}) {
            QTest::keyClick(&window.files(), key);
            QCOMPARE(window.label(u"lbl12"_s), u"源库："_s + window.path(window.files().List(line)));
        }
    }

    void theChosenTableIsMappedWhereverTheLineStands() {
        DatabaseWindow window;
        window.addSourceAlbum(u"相册"_s, 1, 1);
        window.source.Execute(otherTypeSql);
        window.chooseTable(u"tc02"_s, 1, u"相册"_s);
        auto& tables = window.get<ListBox>(u"lstSb"_s);
        QTest::keyClick(&tables, Qt::Key_Down);
        QCOMPARE(tables.currentItem()->text(), u"别表"_s);
        window.click(u"cmdQx"_s);
        QCOMPARE(window.said(), QStringList());
        QCOMPARE(window.mapping(), albumFields);
        // The other table does not fit.
        window.click(u"cmdQ1"_s);
        window.clickLine(u"lstSb"_s, u"别表"_s);
        window.click(u"cmdQx"_s);
        QCOMPARE(window.said(), QStringList{u"字段类型不对应，无法继续！"_s});
        QCOMPARE(window.mapping(), (QStringList{u"a"_s, u"b"_s, {}, {}, {}, {}, {}}));
        QCOMPARE(window.caption(u"cmdQx"_s), u"全部对应"_s);
        window.clickLine(u"lstSb"_s, u"相册"_s);
        window.click(u"cmdQx"_s);
        QTest::keyClick(&tables, Qt::Key_Down);
        window.click(u"cmdQ1"_s);
        QCOMPARE(window.label(u"lbl13"_s), u"源表：相册"_s);
        QCOMPARE(tables.currentItem()->text(), u"相册"_s);
        window.click(u"cmdQx"_s);
        QCOMPARE(window.copyAll(), QStringList{entered(1)});
    }

    void aSourceThatNothingShowsIsClosed() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 1, 2);
        window.mapAll(u"tc02"_s, 1, u"tc01"_s);
        auto& data = window.get<DataControl>(u"datBj"_s);
        QCOMPARE(data.total(), 2);
        window.typeAlbum(u"x"_s, false);
        QCOMPARE(data.total(), 0);
        window.expect({.hidden = u"lstSb lstSu"_s});
        window.choose(u"cboBm"_s, u"tc01"_s);
        QCOMPARE(data.total(), 10);
    }

    void mappingByHand() {
        DatabaseWindow window;
        const QString table = u"my 'pics'"_s;
        window.source.Execute(
            u"CREATE TABLE [my 'pics'] ([no] LONG,[caption] TEXT(80),[short] TEXT(10),[photo] LONGBINARY,[day] DATETIME)"_s);
        window.addRow(table, {{u"no"_s, 3},
                              {u"caption"_s, u"it's a lake"_s},
                              {u"short"_s, u"12"_s},
                              {u"photo"_s, DatabaseWindow::pictureOf(3)},
                              {u"day"_s, QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6))}});
        window.chooseTable(u"tc02"_s, 0, table);
        QVERIFY2(!window.enabled(u"cmdQx"_s), "another number of fields");

        window.openPickList(0);
        QCOMPARE(window.linesOf(u"lstDy"_s), (QStringList{u"no"_s, u"caption"_s, u"short"_s, u"photo"_s, u"day"_s}));
        QCOMPARE(window.said(),
                 QStringList{u"替换操作时，必须以目标表“序号”为索引字段，\n索引字段“序号”在该记录集中具有唯一的值。"
                             "\n\n所以其对应字段也必须在该记录集中具有唯一值。"_s});
        window.clickLine(u"lstDy"_s, u"caption"_s);
        QCOMPARE(window.said(), QStringList{u"两个字段的数据类型不同，不能继续，请重选！(源字段[caption]类型＝10，("
                                            "目标字段[序号]类型＝4)"_s});
        QCOMPARE(window.fieldBox(0).text(), QString());
        QVERIFY(window.files().isEnabled());
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said(), QStringList{u"如果由数据库以“替换”方式录入图片，必须设置“序号”的对应字段。"_s});

        window.option(u"optCz(1)"_s);
        window.clickFile(u"源库.mdb"_s);
        window.clickLine(u"lstSb"_s, table);
        // A field is taken back by a key.
        window.mapField(0, u"no"_s);
        window.openPickList(0);
        QTest::keyClick(&window.fieldBox(0), Qt::Key_Delete);
        QTest::keyClick(&window.fieldBox(0), Qt::Key_Escape);
        window.expect({.hidden = u"lstDy"_s, .texts = {{u"txtYb(0)"_s, QString()}, {u"lbl14"_s, u"索引字段名："_s}}});
        window.mapField(1, u"short"_s);
        window.mapField(0, u"no"_s);
        window.mapField(4, u"day"_s);
        window.mapField(5, u"photo"_s);
        QCOMPARE(window.said(), QStringList());
        for (const bool goOn : {false, true}) {
            window.answer = goOn;
            window.mapField(6, u"caption"_s);
            QCOMPARE(window.said(),
                     QStringList{u"目标表的字段长度小于源表的字段长度，如果继续请按“确定”；否则按“取消”！("
                                 "源字段[caption]长度＝80，(目标字段[备注]长度＝50)"_s});
            QCOMPARE(window.fieldBox(6).text(), goOn ? u"caption"_s : QString());
        }
        window.click(u"cmdLr"_s);
        QTest::mouseClick(&window.fieldBox(2), Qt::LeftButton);
        QCoreApplication::processEvents();
        QVERIFY2(!window.shown(u"lstDy"_s), "the mapping is finished");
        QCOMPARE(window.copyAll().last(), entered(1));
        // 规格 and 大小 are not mapped: they are known from the picture, whatever its column is called.
        const QString kilobytes = FieldValue(float(DatabaseWindow::pictureOf(3).size()) / 1000).toText();
        const QList<std::pair<QString, QString>> values{
            {u"序号"_s, u"1"_s},           {u"编号"_s, u"12"_s},
            {u"备注"_s, u"it's a lake"_s}, {u"日期"_s, u"2001-02-03 04:05:06"_s},
            {u"规格"_s, u"60*45"_s},       {u"大小"_s, kilobytes}};
        for (const auto& [column, value] : values) QCOMPARE(valueOf(u"tc02"_s, column), value);
        QCOMPARE(stored(u"tc02"_s, 1), DatabaseWindow::pictureOf(3));
    }

    void aTableOfTheSameNameInTheCatalogueGoesFirst() {
        DatabaseWindow window;
        window.source.Execute(u"CREATE TABLE tc01 ([序号] LONG,[x] TEXT(5))"_s);
        window.chooseTable(u"tc02"_s, 1, u"tc01"_s);
        QVERIFY2(window.enabled(u"cmdQx"_s), "as many fields as tc01 of the catalogue has");
        window.openPickList(1);
        QCOMPARE(window.linesOf(u"lstDy"_s), (QStringList{u"序号"_s, u"x"_s}));
        window.click(u"cmdQx"_s);
        QCOMPARE(window.boxes.size(), 1);
        QCOMPARE(window.boxes.front().title, u"错误提示"_s);
        QVERIFY(window.boxes.front().text.contains(u"编号"_s));
    }

    void manyColumns() {
        DatabaseWindow window;
        QStringList columns{u"[序号] LONG"_s};
        for (int i = 1; i < 40; ++i) columns << u"[列%1] TEXT(50)"_s.arg(i);
        window.source.Execute(u"CREATE TABLE 宽表 ("_s + columns.join(u',') + u')');
        window.addRow(u"宽表"_s, {{u"序号"_s, 1}, {u"列39"_s, u"最后"_s}});
        window.chooseTable(u"tc02"_s, 1, u"宽表"_s);
        window.mapField(0, u"序号"_s);
        window.mapField(6, u"列39"_s);
        QVERIFY(window.get<QWidget>(u"picMl"_s).rect().contains(window.get<QWidget>(u"lstDy"_s).geometry()));
        window.click(u"cmdLr"_s);
        window.copyAll();
        QCOMPARE(valueOf(u"tc02"_s, u"备注"_s), u"最后"_s);
    }

    void nullColumns() {
        for (const bool fill : {true, false}) {
            DatabaseWindow window;
            window.source.Execute(createAlbumSql(u"tc01"_s));
            window.addRow(u"tc01"_s, {{u"序号"_s, 1}, {u"图片"_s, DatabaseWindow::pictureOf(1)}});
            window.addRow(u"tc01"_s, {{u"序号"_s, 2}, {u"备注"_s, u"无图"_s}});
            window.addRow(u"tc01"_s, {{u"序号"_s, 3}, {u"图片"_s, QByteArray("no picture")}});
            window.chooseTable(u"tc02"_s, 1, u"tc01"_s);
            window.get<QCheckBox>(u"chkZd"_s).setChecked(fill);
            window.click(u"cmdQx"_s);
            const QStringList said = window.copyAll();
            QVERIFY2(said.first().startsWith(u"其中 1 条的图片不是 BMP 或 JPEG：序号＝3\n"_s),
                     qPrintable(said.first()));
            QCOMPARE(said.mid(1), QStringList{entered(3)});
            const auto values = [](const QString& column) { return columnOf(u"tc02"_s, column); };
            QCOMPARE(values(u"编号"_s), fill ? QStringList(3, u" "_s) : QStringList(3));
            QCOMPARE(values(u"备注"_s),
                     fill ? (QStringList{u" "_s, u"无图"_s, u" "_s}) : (QStringList{{}, u"无图"_s, {}}));
            QCOMPARE(values(u"规格"_s), fill ? (QStringList{u"60*45"_s, {}, {}}) : QStringList(3));
            const QString kilobytes = FieldValue(float(DatabaseWindow::pictureOf(1).size()) / 1000).toText();
            QCOMPARE(values(u"大小"_s), fill ? (QStringList{kilobytes, {}, u"0.01"_s}) : QStringList(3));
            QCOMPARE(values(u"日期"_s).front(),
                     fill ? FieldValue(QDate::currentDate().startOfDay()).toText() : QString());
            QCOMPARE(stored(u"tc02"_s, 3), QByteArray("no picture"));
        }
    }

    void nullAndRepeatedKeys() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 1, 2);
        window.addRow(u"tc01"_s, {{u"序号"_s, 1}, {u"备注"_s, u"另一个1"_s}});
        window.addRow(u"tc01"_s, {{u"备注"_s, u"无号"_s}});
        window.mapAll(u"tc02"_s, 1, u"tc01"_s);
        window.clickRow(0);
        QCOMPARE(window.said(), QStringList{u"这条记录的“序号”为空，不能选择。"_s});
        window.click(u"cmdQx"_s);
        QCOMPARE(window.said(), QStringList{u"源表中有1条记录的“序号”为空，没有选中。"_s});
        QCOMPARE(window.linesOf(u"lstSu"_s), (QStringList{u"1"_s, u"1"_s, u"2"_s}));
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().last(), entered(3));
        QCOMPARE(columnOf(u"tc02"_s, u"备注"_s), (QStringList{u"源1"_s, u"另一个1"_s, u"源2"_s}));
    }

    void keysThatCannotBeLookedFor() {
        DatabaseWindow window;
        addAlbum(4, u"tc07"_s, u"异册"_s);
        mekTp::catalogue.Execute(u"DROP TABLE [tc07]"_s);
        mekTp::catalogue.Execute(u"CREATE TABLE tc07 ([序号] TEXT(10))"_s);
        window.open();
        window.tabs().setCurrentIndex(1);
        window.source.Execute(u"CREATE TABLE 名册 ([号] TEXT(10))"_s);
        window.addRow(u"名册"_s, {{u"号"_s, u"5"_s}});
        window.mapAll(u"tc07"_s, 1, u"名册"_s);
        const QStringList said = window.copyAll();
        QVERIFY(said[0].startsWith(u"“号＝5”的记录没有录入："_s));
        QCOMPARE(said.last(), entered(0));
        QCOMPARE(numbersOf(u"tc07"_s), QStringList());
    }

    void emptySourceTable() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 1, 0);
        window.mapAll(u"tc02"_s, 1, u"tc01"_s);
        QCOMPARE(window.copyAll().last(), entered(0));
        QCOMPARE(numbersOf(u"tc02"_s), QStringList());
    }

    void sourcesThatAreRefused() {
        DatabaseWindow window;
        window.addSourceAlbum(u"相册"_s, 1, 1);
        window.addBytes(u"坏.mdb"_s, QByteArray(5000, 'x'));
        window.chooseFile(u"tc02"_s, 1);
        window.clickFile(u"坏.mdb"_s);
        QCOMPARE(window.boxes.front().title, u"错误提示"_s);
        const QStringList said = window.said();
        QVERIFY(said.size() == 1 && said.front().contains(u"坏.mdb"_s));
        window.expect({.hidden = u"lstSb"_s});
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.label(u"lbl12"_s), QString());

        window.clickFile(u"源库.mdb"_s);
        window.expect({.shown = u"lstSb"_s});
        window.clickFile(u"另库.mdb"_s, Qt::ControlModifier);
        QCOMPARE(window.said(), QStringList{u"只能选择一个数据库！"_s});
        QVERIFY(window.files().selectedItems().isEmpty());

        window.clickFile(u"源库.mdb"_s);
        window.source.Execute(u"DROP TABLE 相册"_s);
        window.clickLine(u"lstSb"_s, u"相册"_s);
        QCOMPARE(window.boxes.front().title, u"错误提示"_s);
        QCOMPARE(window.said(), QStringList{u"本数据表不能用于提供图片数据，请重新选择！"_s});
        window.expect({.shown = u"lstSb"_s, .hidden = u"cmdQx"_s});
    }

    void stepsBack() {
        DatabaseWindow window;
        window.addSourceAlbum(u"tc01"_s, 1, 2);
        window.mapAll(u"tc02"_s, 1, u"tc01"_s);
        window.clickRow(0);
        const auto back = [&window] { window.click(u"cmdQ1"_s); };

        back();
        QCOMPARE(window.linesOf(u"lstSu"_s), QStringList());
        window.expect({.disabled = u"cmdLr"_s});
        QCOMPARE(window.hint(), u"请在右边表格中选择数据源要复制的记录，或者直接按“全部记录”按钮。"_s);

        back();
        QCOMPARE(window.mapping(), QStringList(7));
        window.expect({.hidden = u"lstSu"_s,
                       .enabled = u"cmdQx"_s,
                       .disabled = u"cmdLr"_s,
                       .texts = {{u"cmdQx"_s, u"全部对应"_s},
                                 {u"cmdLr"_s, u"对应完成"_s},
                                 {u"lblMk"_s, u"目 标 数 据 库 表"_s},
                                 {u"lblJl"_s, u"表 [tc02 空册] 共有记录：0 条"_s}}});
        QCOMPARE(window.get<Grid>(u"msgBm"_s).model()->rowCount(), 0);
        QVERIFY(window.hint().startsWith(u"确定对应字段"_s));

        back();
        window.expect({.hidden = u"txtYb(0) chkZd cmdQx cmdLr"_s, .enabled = u"fil1"_s});
        QVERIFY(window.get<ListBox>(u"lstSb"_s).selectedItems().isEmpty());
        QCOMPARE(window.hint(), u"在左侧目录框中选择“来源数据库”，选完后再确定“来源数据表”"_s);

        back();
        QVERIFY(window.files().selectedItems().isEmpty());
        window.expect({.shown = u"lbl7"_s, .hidden = u"lstSb lbl10 lblB0"_s, .texts = {{u"lbl13"_s, QString()}}});

        back();
        window.expect({.disabled = u"fraFs"_s, .unchecked = u"optCz(1)"_s, .texts = {{u"lbl12"_s, QString()}}});

        back();
        QVERIFY(!window.checked(u"optYl(1)"_s));
        QVERIFY(window.hint().startsWith(u"先选择目标图册"_s));

        back();
        window.expect({.disabled = u"cmdQ1"_s});
        // And forward once more.
        window.mapAll(u"tc02"_s, 1, u"tc01"_s);
        QCOMPARE(window.copyAll(), QStringList{entered(2)});
    }

    void whatElseIsChosenGivesTheSourceUp() {
        using Choice = std::function<void(DatabaseWindow&)>;
        const std::vector<std::pair<const char*, Choice>> choices{
            {"album",
             [](DatabaseWindow& window) {
                 window.expect({.disabled = u"fil1"_s});
                 window.choose(u"cboBm"_s, u"tc01"_s);
                 window.expect({.enabled = u"fil1"_s});
             }},
            {"folder", [](DatabaseWindow& window) { window.enterFolder(u"内"_s); }},
            {"files", [](DatabaseWindow& window) { window.option(u"optYl(0)"_s); }},
            {"page and back",
             [](DatabaseWindow& window) {
                 window.tabs().setCurrentIndex(0);
                 QCOMPARE(window.get<Grid>(u"msgBm"_s).model()->rowCount(), 4);
                 window.tabs().setCurrentIndex(1);
             }},
            {"table", [](DatabaseWindow& window) { window.clickLine(u"lstSb"_s, u"tc02"_s); }}};
        for (const auto& [name, choose] : choices) {
            DatabaseWindow window;
            window.addSourceAlbum(u"tc01"_s, 1, 2);
            window.addSourceAlbum(u"tc02"_s, 1, 2);
            window.mapAll(u"tc01"_s, 1, u"tc01"_s);
            window.clickRow(0);
            choose(window);
            QVERIFY2(!window.shown(u"lstSu"_s), name);
            QVERIFY2(window.get<Grid>(u"msgBm"_s).model()->rowCount() == 10, name);
            QVERIFY2(window.label(u"lblMk"_s) == u"目 标 数 据 库 表"_s, name);
            QVERIFY2(!window.shown(u"cmdLr"_s) || !window.enabled(u"cmdLr"_s), name);
            window.mapAll(u"tc01"_s, 1, u"tc02"_s);
            QVERIFY2(window.copyAll().last() == entered(2), name);
        }
    }
};

const Registered<TestDatabaseIntake> registered;

}  // namespace

#include "database_intake_test.moc"
