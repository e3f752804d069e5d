#include "test_album.h"

using namespace Qt::Literals::StringLiterals;

class DialectTest : public QObject {
    Q_OBJECT

    TestAlbum album_;

  private Q_SLOTS:
    void initTestCase() {
        album_.add(7, u"aX"_s, u"2003-10-03 12:00"_s, "picture");
        album_.add(1, u"b"_s, u"2003-10-01"_s);
        album_.add(10, u"编x"_s, u"2003-10-02 23:59:59"_s);
        album_.add(6, u"it's"_s, u"2003-10-04"_s);
        Recordset set = album_.open(u"tc01"_s);
        set.AddNew();
        set.Update();
    }

    void selects() {
        const QList<int> all{7, 1, 10, 6, -1};
        const std::tuple<QString, QList<int>> cases[] = {
            {u"tc01"_s, all},
            {u" [TC01] "_s, all},
            {u"select * from tc01;"_s, all},
            {u"SELECT * FROM [tc01]  ORDER BY [序号]"_s, {-1, 1, 6, 7, 10}},
            {u"SELECT * FROM tc01 ORDER BY 序号 DESC"_s, {10, 7, 6, 1, -1}},
            {u"SELECT * FROM tc01 演示 ORDER BY [序号]"_s, {-1, 1, 6, 7, 10}},
            {u" SELECT * FROM tc01 AS t WHERE t.序号 = 7 "_s, {7}},
            {u"SELECT * FROM tc01 WHERE InStr(编号,'x') > 0 And 序号 = 7 ORDER BY [序号]"_s, {7}},
            {u"SELECT * FROM tc01 WHERE  InStr(编号,'x') > 0 ORDER BY [序号]"_s, {7, 10}},
            {u"SELECT * FROM tc01 WHERE Instr(编号,'x') = 2"_s, {7, 10}},
            {u"SELECT * FROM tc01 WHERE InStr(编号,'') = 1"_s, {7, 1, 10, 6}},
            {u"SELECT * FROM tc01 WHERE InStr(编号,'xa') = 0 And Not IsNull(图片)"_s, {7}},
            {u"SELECT * FROM tc01 WHERE  DateValue(日期) > #2003-10-01# And 序号 > 5 ORDER BY [序号]"_s, {6, 7, 10}},
            {u"SELECT * FROM tc01 WHERE DateValue(日期) = #2003/10/2#"_s, {10}},
            {u"SELECT * FROM tc01 WHERE 日期 = #2003-10-01#"_s, {1}},
            {u"SELECT * FROM tc01 WHERE 日期 >= #2003年10月3日 12:00#"_s, {7, 6}},
            {u"SELECT * FROM tc01 WHERE IsNull(编号)"_s, {-1}},
            {u"SELECT * FROM tc01 WHERE isnull( 图片 ) and not ISNULL(序号)"_s, {1, 10, 6}},
            {u"SELECT * FROM tc01 WHERE left(编号, 1) = '编'"_s, {10}},
            {u"SELECT * FROM tc01 WHERE Left(编号,1) = 'A'"_s, {7}},
            {u"SELECT * FROM tc01 WHERE LCase(编号) <> 'ax' ORDER BY 序号"_s, {1, 6, 10}},
            {u"SELECT * FROM tc01 WHERE 编号 = 'B'"_s, {1}},
            {u"SELECT * FROM tc01 WHERE 编号 <> 'AX'"_s, {1, 10, 6}},
            {u"SELECT * FROM tc01 WHERE 编号 In ('AX','B')"_s, {7, 1}},
            {u"SELECT * FROM tc01 WHERE 编号 LIKE 'AX%'"_s, {7}},
            {u"SELECT * FROM tc01 WHERE 编号 = 'it''s'"_s, {6}},
            {u"SELECT * FROM tc01 WHERE 编号 = '#2003-10-01#' Or 编号 = 'ORDER BY; [x]'"_s, {}},
            {u"SELECT * FROM tc01 WHERE 序号 = '7'"_s, {7}},
            {u"SELECT * FROM tc01 WHERE 序号 In (SELECT 序号 FROM tc01 WHERE 序号 > 6 ORDER BY 序号)"_s, {7, 10}},
        };
        for (const auto& [source, numbers] : cases) {
            QCOMPARE(numbersOf(album_.open(source)), numbers);
        }
    }

    void dayOfADate() {
        const std::pair<QString, QString> cases[] = {
            {u"2003-10-01 23:59:59"_s, u"2003-10-01 00:00:00"_s},
            {u"2003-10-01 00:00:00"_s, u"2003-10-01 00:00:00"_s},
            {u"2003/10/1 8:05"_s, u"2003-10-01 00:00:00"_s},
            {u"2003-10-01 24:00:00"_s, {}},
            {u"2003-10-01 23:60:00"_s, {}},
            {u"2003-10-01 23:59:60"_s, {}},
            {u"2003-02-29 00:00:00"_s, {}},
            {u"2003-10-00 00:00:00"_s, {}},
            {u"2003-10-01 2:"_s, {}},
        };
        for (const auto& [date, day] : cases) {
            const Recordset set = album_.open(u"SELECT DateValue('%1') AS d FROM tc01"_s.arg(date));
            QCOMPARE(set.Fields(u"d"_s).Value().textOr(), day);
        }
    }

    void refuses() {
        const std::tuple<QString, QString> cases[] = {
            {u"SELECT * FROM tc01 WHERE  ORDER BY [序号]"_s, u"WHERE"_s},
            {u"SELECT * FROM tc01 WHERE "_s, u"WHERE"_s},
            {u"SELECT * FROM tc01 ORDER BY"_s, u"ORDER BY"_s},
            {u"SELECT * FROM tc99"_s, u"表“tc99”不存在"_s},
            {u"tc99"_s, u"表“tc99”不存在"_s},
            {u""_s, u"不存在"_s},
            {u"Long_Binary"_s, u"不存在"_s},
            {u"SELECT * FROM [sqlite_schema]"_s, u"不存在"_s},
            {u"SELECT a.序号 FROM tc01 a, long_binary b"_s, u"不存在"_s},
            {u"SELECT * FROM tc01 WHERE 没有 = 1"_s, u"表“tc01”中没有列“没有”"_s},
            // Between marks a name stays a name, and is never taken for a text.
            {u"SELECT * FROM tc01 WHERE [没有] = 1"_s, u"表“tc01”中没有列“没有”"_s},
            {u"SELECT * FROM tc01 ORDER BY [没 有]"_s, u"表“tc01”中没有列“没 有”"_s},
            {u"SELECT * FROM [tc01] AS t WHERE t.[编码] = 'a'"_s, u"表“tc01”中没有列“编码”"_s},
            {u"SELECT [没有] FROM tc01 WHERE 序号 = 1 GROUP BY 序号"_s, u"列“没有”不存在"_s},
            {u"SELECT 没有 FROM tc01"_s, u"“没有”"_s},
            {u"SELECT * FROM tc01 WHERE 日期 > #2003-13-01#"_s, u"2003-13-01"_s},
            {u"SELECT * FROM tc01 WHERE 日期 > #2003-10-01"_s, u"#"_s},
            {u"SELECT * FROM tc01 WHERE 编号 = 'it's'"_s, u"'"_s},
            {u"SELECT * FROM [tc01"_s, u"]"_s},
            {u"SELECT * FROM tc01 旅行 二 ORDER BY [序号]"_s, u"有错"_s},
            {u"SELECT * FROM tc01; DROP TABLE tc01"_s, u"一条"_s},
            {u"SELECT * FROM tc01 WHERE 序号 > > 1"_s, u"有错"_s},
        };
        for (const auto& [source, named] : cases) {
            QVERIFY(failsSaying([&, source = source] { album_.open(source); }, {named}));
            QCOMPARE(album_.open(u"tc01"_s).rowCount(), 5);
        }
    }

    void quotesBelongToTheText() {
        QCOMPARE(numbersOf(album_.open(u"SELECT * FROM tc01 WHERE 编号 = "_s + quoted(u"it's"_s))), (QList<int>{6}));
    }

    void executesOneStatement() {
        const Database& database = album_.database;
        database.Execute(TestAlbum::createSql(u"[a 'b' table]"_s));
        QCOMPARE(database.TableDefs(), (QStringList{u"tc01"_s, u"a 'b' table"_s}));
        const std::pair<QString, QStringList> refused[] = {
            {u"已存在"_s, {TestAlbum::createSql(u"tc01"_s)}},
            {u"保留"_s, {TestAlbum::createSql(u"LONG_BINARY"_s), TestAlbum::createSql(u"sqlite_x"_s)}},
            {u"行"_s, {TestAlbum::createSql(u"旅 行"_s)}},
            {u"("_s, {TestAlbum::createSql(u""_s)}},
            {u"WIDE"_s, {u"CREATE TABLE t (a WIDE)"_s}},
            {u"tc99"_s, {u"DROP TABLE tc99"_s, u"DELETE FROM tc99"_s}},
            {u"表“tc01”中没有列“编码”"_s, {u"DELETE FROM tc01 WHERE [编码] = 'a'"_s}},
            {u"不存在"_s,
             {u"DROP TABLE long_binary"_s, u"DELETE FROM long_binary"_s, u"DELETE FROM [SQLITE_sequence]"_s}},
            {u"一条"_s, {u"DELETE FROM tc01; DELETE FROM tc01"_s}},
            {u"SELECT"_s, {u"SELECT * FROM tc01"_s}},
            {u"不能执行"_s,
             {u"DROP TABLE IF EXISTS tc01"_s, u"DELETE tc01"_s, u"UPDATE tc01 SET 序号 = 1"_s,
              u"PRAGMA user_version = 9"_s, u"ATTACH 'x.mdb' AS x"_s, u"VACUUM"_s}},
            {u"空"_s, {u" ; "_s}}};
        for (const auto& [named, statements] : refused)
            for (const QString& sql : statements)
                QVERIFY(failsSaying([&, &sql = sql] { database.Execute(sql); }, {named}));
        database.Execute(u"DROP TABLE [a 'b' table]"_s);
        QCOMPARE(database.TableDefs(), (QStringList{u"tc01"_s}));
        QCOMPARE(album_.shell(u"SELECT count(*) FROM long_binary"_s), u"1"_s);
    }
};

static Registered<DialectTest> registered;

#include "dialect_test.moc"
