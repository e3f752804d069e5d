#include "platform/database/records/rows_by_number.h"
#include "test_album.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString number = u"序号"_s;
const QString remark = u"备注"_s;
const QString inOrder = u"SELECT * FROM tc01 ORDER BY [序号]"_s;
const QString noRows = u"SELECT * FROM tc01 WHERE 序号 > 99"_s;

class RecordsetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestAlbum> album_;

    Recordset open(const QString& source) const { return album_->open(source); }

  private Q_SLOTS:
    void init() {
        album_ = std::make_unique<TestAlbum>();
        album_->add(3, u"aX"_s, u"2003-10-03 12:00"_s);
        album_->add(1, u"b"_s, u"2003-10-01"_s);
        album_->add(2, u" "_s, u"2003/10/2 8:30:05"_s);
    }

    void countsTheRecordsVisited() {
        Recordset set = open(u"tc01"_s);
        QCOMPARE(set.rowCount(), 3);
        QCOMPARE(set.RecordCount(), 1);
        set.MoveNext();
        QCOMPARE(set.RecordCount(), 2);
        set.MoveLast();
        set.MoveFirst();
        QCOMPARE(set.RecordCount(), 3);
        QCOMPARE(open(noRows).RecordCount(), 0);
    }

    void movesAsFarAsTheRecordsGo() {
        Recordset set = open(inOrder);
        QCOMPARE(numbersOf(set), (QList<int>{1, 2, 3}));
        set.MoveLast();
        set.MoveNext();
        QVERIFY(set.Eof() && !set.Bof() && set.row() == -1);
        QVERIFY(fails([&] { set.MoveNext(); }));
        QVERIFY(fails([&] { set.Fields(0).Value(); }));
        set.MovePrevious();
        QCOMPARE(set.row(), 2);
        set.MoveFirst();
        set.MovePrevious();
        QVERIFY(set.Bof() && !set.Eof());
        QVERIFY(fails([&] { set.MovePrevious(); }));
        set.MoveNext();
        QCOMPARE(set.row(), 0);
    }

    /// Rows are looked up together until one of them is gone.
    void recordsInTurn() {
        RecordsInTurn turn(album_->database, u"tc01"_s, {3, 1, 2, 1});
        for (const auto& [place, wanted] : {std::pair(0, 2), {1, 3}, {3, 3}}) {
            QCOMPARE(turn.at(place).Fields(number).Value(), FieldValue(wanted));
            QCOMPARE(turn.at(place).rowCount(), 3);
        }
        album_->database.Execute(u"DELETE FROM tc01 WHERE 序号 = 1"_s);
        QVERIFY(turn.at(2).Eof());
        QCOMPARE(turn.at(0).Fields(number).Value(), FieldValue(2));
    }

    void refusesToWorkWithoutARecord() {
        Recordset empty = open(noRows);
        QVERIFY(empty.Eof() && empty.Bof());
        const std::vector<std::function<void(Recordset&)>> steps{
            [](Recordset& set) { set.MoveFirst(); },      [](Recordset& set) { set.MoveLast(); },
            [](Recordset& set) { set.MoveNext(); },       [](Recordset& set) { set.Edit(); },
            [](Recordset& set) { set.Delete(); },         [](Recordset& set) { set.Update(); },
            [](Recordset& set) { set.Fields(0).Value(); }};
        for (const auto& step : steps) {
            QVERIFY(fails([&] { step(empty); }));
            Recordset nothing;
            QVERIFY(fails([&] { step(nothing); }));
        }
        QVERIFY(fails([] { Database().OpenRecordset(u"tc01"_s); }));
    }

    void deletedRecordLeavesAGap() {
        Recordset set = open(inOrder);
        set.moveToRow(1);
        set.Delete();
        QVERIFY(!set.Eof() && !set.Bof() && set.row() == -1);
        QVERIFY(fails([&] { set.Fields(0).Value(); }));
        set.MoveNext();
        QCOMPARE(set.Fields(number).Value().toInteger(), 3);
        set.Delete();
        set.MovePrevious();
        QCOMPARE(set.Fields(number).Value().toInteger(), 1);
        set.Delete();
        QVERIFY(!set.Eof());
        set.MoveNext();
        QVERIFY(set.Eof() && set.Bof());
        QCOMPARE(set.RecordCount(), 0);
        QCOMPARE(open(u"tc01"_s).rowCount(), 0);
    }

    void newRecordJoinsTheEndAndDoesNotBecomeCurrent() {
        Recordset set = open(inOrder);
        set.MoveNext();
        set.AddNew();
        QCOMPARE(set.EditMode(), Recordset::Mode::add);
        QVERIFY(set.Fields(number).isNull());
        set.Fields(number).SetValue(0);
        set.Update();
        QCOMPARE(set.EditMode(), Recordset::Mode::none);
        QCOMPARE(set.Fields(number).Value().toInteger(), 2);
        QCOMPARE(numbersOf(set), (QList<int>{1, 2, 3, 0}));
        set.MoveLast();
        QCOMPARE(set.Fields(number).Value().toInteger(), 0);

        Recordset empty = open(noRows);
        empty.AddNew();
        empty.Update();
        QCOMPARE(empty.RecordCount(), 1);
        QVERIFY(empty.Eof() && empty.row() == -1);
        empty.MoveLast();
        QVERIFY(empty.Fields(number).isNull());
    }

    void movingDropsAnEdit() {
        Recordset set = open(inOrder);
        set.Edit();
        set.Fields(remark).SetValue(u"海"_s);
        QCOMPARE(set.Fields(remark).Value().toText(), u"海"_s);
        set.MoveNext();
        QVERIFY(fails([&] { set.Update(); }));
        QVERIFY(fails([&] { set.Fields(remark).SetValue(u"海"_s); }));
        set.MoveFirst();
        QVERIFY(set.Fields(remark).isNull());
        set.AddNew();
        set.CancelUpdate();
        QCOMPARE(open(u"tc01"_s).rowCount(), 3);
    }

    void failedUpdateLeavesTheRowAndDropsTheEdit() {
        album_->shell(u"CREATE UNIQUE INDEX once ON tc01 (序号)"_s);
        Recordset set = open(inOrder);
        set.Edit();
        set.Fields(number).SetValue(2);
        set.Fields(remark).SetValue(u"x"_s);
        set.Fields(u"图片"_s).SetValue(QByteArray("picture"));
        QVERIFY(fails([&] { set.Update(); }));
        QCOMPARE(set.EditMode(), Recordset::Mode::none);
        QCOMPARE(set.Fields(number).Value().toInteger(), 1);
        QVERIFY(set.Fields(remark).isNull() && set.Fields(u"图片"_s).isNull());
        QCOMPARE(album_->keptPictures(), u"0"_s);
    }

    void findsInTheOrderOfTheSet() {
        Recordset set = open(inOrder);
        set.FindFirst(u"日期 >= #2003-10-02#"_s);
        QVERIFY(!set.NoMatch());
        QCOMPARE(set.row(), 1);
        set.FindFirst(u"序号 = 7"_s);
        QVERIFY(set.NoMatch());
        QCOMPARE(set.row(), 1);
        QVERIFY(fails([&] { set.FindFirst(u"序号 = "_s); }));
        QVERIFY(fails([&] { set.FindFirst(u" "_s); }));
        QVERIFY(fails([&] { set.FindFirst(u"没有 = 1"_s); }));

        Recordset joined = open(u"SELECT a.序号, b.编号 FROM tc01 a, tc01 b WHERE a.序号 = b.序号 ORDER BY a.序号"_s);
        joined.FindFirst(u"编号 = 'AX'"_s);
        QCOMPARE(joined.row(), 2);
    }

    void seesTheChangesOfOthers() {
        Recordset watching = open(inOrder);
        QVERIFY(watching.Fields(remark).isNull());
        Recordset changing = OpenDatabase(album_->path()).OpenRecordset(inOrder);
        change(changing, remark, u"新"_s);
        QCOMPARE(watching.Fields(remark).Value().toText(), u"新"_s);

        changing.Delete();
        QCOMPARE(watching.rowCount(), 3);
        QVERIFY(failsSaying([&] { watching.Fields(remark).Value(); }, {u"tc01"_s, u"删除"_s}));
        QVERIFY(fails([&] { watching.Edit(); }));
        watching.MoveNext();
        QCOMPARE(watching.Fields(number).Value().toInteger(), 2);
    }

    void aSearchNeverLeavesAFixedSet() {
        Recordset joined = open(u"SELECT a.序号, b.编号 FROM tc01 a, tc01 b WHERE a.序号 = b.序号 ORDER BY a.序号"_s);
        album_->add(9, u"Z"_s, u"2003-10-09"_s);
        for (const QString& criteria : {u"序号 = 9"_s, u"0 UNION SELECT 1000000"_s, u"0 UNION SELECT -7"_s}) {
            joined.FindFirst(criteria);
            QVERIFY2(joined.NoMatch() && joined.row() == 0, qPrintable(criteria));
        }
    }

    void aSetOpenedEarlierNeverTakesANewRecordForItsOwn() {
        const auto deleteLast = [](TestAlbum& album) {
            Recordset set = album.open(inOrder);
            set.FindFirst(u"编号 = ' '"_s);
            set.Delete();
        };
        const std::function<void(TestAlbum&)> removals[] = {
            deleteLast, [](TestAlbum& album) { album.database.Execute(u"DELETE FROM TC01"_s); },
            [](TestAlbum& album) {
                album.database.Execute(u"DROP TABLE tc01"_s);
                album.database.Execute(TestAlbum::createSql(u"tc01"_s));
            },
            [&](TestAlbum& album) {
                deleteLast(album);
                const Transaction takenBack(album.database);
                album.add(8, u"8"_s, u"2003-10-08"_s);
            }};
        for (const auto& removal : removals) {
            init();
            album_->database = {};  // the connection knows only those identities that the set has noted
            album_->database = OpenDatabase(album_->path());
            Recordset earlier = open(u"tc01"_s);
            earlier.MoveLast();
            removal(*album_);
            for (int i = 7; i < 11; ++i) album_->add(i, u"new"_s, u"2003-10-07"_s);
            QVERIFY(failsSaying([&] { earlier.Fields(number).Value(); }, {u"已被删除"_s}));
            QVERIFY(failsSaying([&] { earlier.Edit(); }, {u"已被删除"_s}));
            QVERIFY(failsSaying([&] { earlier.Delete(); }, {u"已被删除"_s}));
            QCOMPARE(album_->shell(u"SELECT count(*), sum(序号) FROM tc01 WHERE 编号 = 'new'"_s), u"4|34"_s);
        }
    }

    void tablesOfOtherProgramsKeepTheirOwnKeys() {
        album_->database.Execute(u"CREATE TABLE own (id INTEGER PRIMARY KEY, name TEXT)"_s);
        Recordset set = open(u"own"_s);
        addRow(set, {{u"id"_s, 70}});
        addRow(set, {{u"name"_s, u"next"_s}});
        set.MoveFirst();
        QCOMPARE(set.Fields(u"id"_s).Value(), FieldValue(70));
        QCOMPARE(album_->shell(u"SELECT group_concat(id) FROM own"_s), u"70,71"_s);
    }

    void selectedColumnsCanBeChanged() {
        Recordset set = open(u"select 备注,[序号] from tc01 order by 序号"_s);
        QCOMPARE(set.FieldCount(), 2);
        change(set, remark, u"改"_s);
        QCOMPARE(album_->remark(1), u"改"_s);
        QVERIFY(failureOf([&] { set.Fields(u"图片"_s); }).contains(u"图片"));
    }

    void otherQueriesCanBeRead() {
        Recordset count = open(u"SELECT count(*) AS n, max(日期) AS d FROM tc01 WHERE 序号 < 3"_s);
        QCOMPARE(count.Fields(u"N"_s).Value(), FieldValue(2));
        QVERIFY(fails([&] { count.Edit(); }) && fails([&] { count.AddNew(); }) && fails([&] { count.Delete(); }));
        Recordset limited = open(u"SELECT * FROM tc01 ORDER BY 序号 LIMIT 2"_s);
        QCOMPARE(numbersOf(limited), (QList<int>{1, 2}));
        QCOMPARE(limited.Fields(u"日期"_s).Type(), FieldType::date);
    }

    void equalKeysKeepTheOrderOfTheTable() {
        album_->add(2, u"second"_s, u"2003-10-09"_s);
        Recordset set = open(inOrder);
        QCOMPARE(set.valuesAt(1).at(1).toText(), u" "_s);
        QCOMPARE(set.valuesAt(2).at(1).toText(), u"second"_s);
        QVERIFY(set.valuesAt(0).at(5).isNull());
        QVERIFY(fails([&] { set.valuesAt(4); }) && fails([&] { set.moveToRow(-1); }));
    }
};

static Registered<RecordsetTest> registered;

}  // namespace

#include "recordset_test.moc"
