#include "jet_files.h"
#include "jet_tables.h"

#include <QImage>

using namespace Qt::Literals::StringLiterals;

namespace {

const jet::Form jet3{.version = jet::Version::jet3};
const jet::Form jet4{};
const jet::Form encoded{.key = 4711};

/// What a column holds, row by row; "NULL" for nothing.
QStringList textsOf(const Database& database, const QString& source, int column) {
    QStringList texts;
    for (Recordset set = database.OpenRecordset(source); !set.Eof(); set.MoveNext()) {
        const Field field = set.Fields(column);
        texts << (field.isNull() ? u"NULL"_s : field.Value().toText());
    }
    return texts;
}

QByteArray encodedImage(const char* format) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

/// Databases that the test makes itself, in both versions.
class JetReadingTest : public QObject {
    Q_OBJECT

    std::unique_ptr<JetFiles> files_;

    /// With an ending that says nothing, in a folder whose name shells would misread.
    Database made(const QList<jet::Table>& tables, const jet::Form& form) const {
        return OpenDatabase(files_->write(u"照片 'x' $1.dat"_s, jet::database(tables, form)));
    }

    static void forms() {
        QTest::addColumn<jet::Form>("form");
        QTest::addRow("jet 3") << jet3;
        QTest::addRow("jet 4") << jet4;
        QTest::addRow("jet 4, encoded") << encoded;
    }

  private Q_SLOTS:
    void init() { files_ = std::make_unique<JetFiles>(); }
    void cleanup() {
        const QStringList left = files_->copies();
        files_.reset();
        QCOMPARE(left, QStringList());
    }

    void everyTypeIsRead_data() { forms(); }
    void everyTypeIsRead() {
        QFETCH(jet::Form, form);
        const Database database = made({allTypes(form.version)}, form);
        QVERIFY(database.isForeign());
        const std::vector<TypeCase> cases = typeCases(form.version);
        const Recordset set = database.OpenRecordset(u"全部 类型"_s);
        QCOMPARE(set.FieldCount(), int(cases.size()));
        for (int i = 0; i < set.FieldCount(); ++i) {
            const TypeCase& expected = cases[size_t(i)];
            const Field field = set.Fields(i);
            QCOMPARE(field.Name(), expected.column.name);
            QCOMPARE(u"%1:%2"_s.arg(int(field.Type())).arg(field.Size()), expected.layout);
            const QString nothing = field.Type() == FieldType::boolean ? u"False"_s : u"NULL"_s;
            QCOMPARE(textsOf(database, u"[全部 类型]"_s, i), (QStringList{expected.text, nothing}));
        }
    }

    /// About where a value leaves its row, leaves one page for a second, and goes on over many.
    void longValuesComeWhole_data() { forms(); }
    void longValuesComeWhole() {
        QFETCH(jet::Form, form);
        const qsizetype room = jet::roomInPage(form.version);
        const QList<qsizetype> sizes{0,    1,        jet::roomInRow,     jet::roomInRow + 1,
                                     room, room + 1, 2 * (room - 4) + 1, 300000};
        jet::Table table = longValues(sizes);
        table.columns << jet::Column{u"包"_s, jet::Type::ole} << jet::Column{u"位图"_s, jet::Type::ole}
                      << jet::Column{u"图元"_s, jet::Type::ole};
        const QByteArray bmp = encodedImage("BMP");
        for (jet::Row& row : table.rows)
            row << jet::wrapped(bmp) << jet::wrappedBitmap(bmp) << jet::wrappedMetafile(bmp);
        const Database database = made({table}, form);
        Recordset set = database.OpenRecordset(u"长"_s);
        for (const jet::Row& row : table.rows) {
            QCOMPARE(set.Fields(0).Value().toText(), row[0].toString());
            QCOMPARE(set.Fields(1).Value().toBytes(), row[1].toByteArray());
            QCOMPARE(set.Fields(1).GetChunk(2, 100), row[1].toByteArray().mid(2, 100));
            QCOMPARE(set.Fields(2).Value().toText(), row[2].toString());
            for (int column = 3; column < 6; ++column) QCOMPARE(set.Fields(column).Value().toBytes(), bmp);
            set.MoveNext();
        }
        QVERIFY(set.Eof());
    }

    void manyTablesRowsAndColumns_data() { forms(); }
    void manyTablesRowsAndColumns() {
        QFETCH(jet::Form, form);
        jet::Table empty = manyRows();
        empty.name = u"空"_s;
        empty.rows.clear();
        const Database database = made({manyRows(), empty, manyColumns()}, form);
        QCOMPARE(database.TableDefs(), (QStringList{u"行"_s, u"空"_s, u"列"_s}));
        const QStringList numbers = textsOf(database, u"行"_s, 0);
        QCOMPARE(numbers.size(), 700);
        for (int i = 0; i < 700; ++i) QCOMPARE(numbers[i], QString::number(i + 1));
        QCOMPARE(textsOf(database, u"行"_s, 1).last(), u"row 700"_s);
        QCOMPARE(textsOf(database, u"空"_s, 0), QStringList());
        const Recordset wide = database.OpenRecordset(u"列"_s);
        QCOMPARE(wide.FieldCount(), 100);
        for (int i = 0; i < 100; ++i) {
            QCOMPARE(wide.Fields(i).Name(), u"column%1"_s.arg(i + 1));
            QCOMPARE(wide.Fields(i).Value().toText(), u"value %1"_s.arg(i + 1));
        }
    }

    /// Rows that have grown are elsewhere, in pages that come first; they stay in their order, and no other one is
    /// lost.
    void movedRowsStayInTheirOrder_data() { forms(); }
    void movedRowsStayInTheirOrder() {
        QFETCH(jet::Form, form);
        jet::Table table = manyRows();
        table.movedRows = {0, 5, 6, 400, 699};
        jet::Table pictures = longValues();
        pictures.movedRows = {1, 2};
        const Database database = made({table, pictures}, form);
        const QStringList numbers = textsOf(database, u"行"_s, 0);
        QCOMPARE(numbers.size(), 700);
        for (int i = 0; i < 700; ++i) QCOMPARE(numbers[i], QString::number(i + 1));
        QCOMPARE(textsOf(database, u"行"_s, 1).at(5), u"row 6"_s);
        Recordset set = database.OpenRecordset(u"长"_s);
        for (const jet::Row& row : pictures.rows) {
            QCOMPARE(set.Fields(1).Value().toBytes(), row[1].toByteArray());
            QCOMPARE(set.Fields(2).Value().toText(), row[2].toString());
            set.MoveNext();
        }
    }

    void passwordIsRespected() {
        for (jet::Form form : {jet3, jet4, encoded}) {
            form.password = u"p"_s;
            const QString path = files_->write(u"locked.mdb"_s, jet::database({manyRows()}, form));
            QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"密码"_s}));
        }
    }

    void namesOfColumns() {
        const auto names = [&](const QByteArray& second, const QByteArray& fourth) {
            jet::Table table = manyColumns();
            table.name = u"columns"_s;
            QByteArray bytes = jet::database({table}, {.version = jet::Version::jet3, .codePage = 1252});
            bytes.replace("\7column2", "\7" + second);
            bytes.replace("\7column3", "\7COLUMN1");
            bytes.replace("\7column4", "\7" + fourth);
            const Database database = OpenDatabase(files_->write(u"names.mdb"_s, bytes));
            const Recordset set = database.OpenRecordset(table.name);
            QStringList found;
            for (int i = 0; i < 5; ++i) found << set.Fields(i).Name();
            return found;
        };
        QCOMPARE(names("\x90\x40\xd0\xf2\xba\xc5x", "column4"),
                 (QStringList{u"column1"_s, u"怈序号x"_s, u"COLUMN1_2"_s, u"column4"_s, u"column5"_s}));
        QCOMPARE(names("column2", "\xe9t\xe9_a_b"),
                 (QStringList{u"column1"_s, u"column2"_s, u"COLUMN1_2"_s, u"été_a_b"_s, u"column5"_s}));
    }

    /// The header of nearly all files of Jet 3 names 1252, also where an old album is in Chinese.
    void chineseIsReadWhateverTheHeaderSays() {
        QByteArray bytes = jet::database({allTypes(jet::Version::jet3)}, jet3);
        constexpr qsizetype codePage = 0x3C;  // hidden by a mask, like all around it
        for (const qsizetype at : {0, 1}) bytes[codePage + at] = char(bytes[codePage + at] ^ (936 ^ 1252) >> 8 * at);
        const Database database = OpenDatabase(files_->write(u"old.mdb"_s, bytes));
        QCOMPARE(database.TableDefs(), QStringList(u"全部 类型"_s));
        QCOMPARE(textsOf(database, u"SELECT [名] FROM [全部 类型]"_s, 0).first(), u"普林斯顿大学"_s);
    }

    /// A column that was moved in the design keeps the number by which the rows hold it.
    void columnsComeInTheOrderOfTheirDesign_data() { forms(); }
    void columnsComeInTheOrderOfTheirDesign() {
        QFETCH(jet::Form, form);
        const jet::Table table{u"像册"_s,
                               {{u"备注"_s, jet::Type::text, 50, 0, 2},
                                {u"序号"_s, jet::Type::longInteger, 0, 0, 0},
                                {u"空"_s, jet::Type::text, 50, 0, 3},
                                {u"日期"_s, jet::Type::text, 50, 0, 1}},
                               {{u"湖"_s, 7, {}, u"2003"_s}}};
        const Database database = made({table}, form);
        const Recordset set = database.OpenRecordset(table.name);
        QStringList found;
        for (int i = 0; i < set.FieldCount(); ++i)
            found << set.Fields(i).Name() + u'=' + set.Fields(i).Value().textOr();
        QCOMPARE(found, (QStringList{u"备注=湖"_s, u"序号=7"_s, u"空="_s, u"日期=2003"_s}));
    }

    void nothingCanBeWritten() {
        const Database database = made({manyRows()}, jet4);
        const QByteArray before = contentOf(database.Name());
        Recordset set = database.OpenRecordset(u"行"_s);
        for (const auto& step : std::vector<std::function<void()>>{
                 [&] { set.Edit(); },
                 [&] { set.AddNew(); },
                 [&] { set.Delete(); },
                 [&] { database.Execute(u"DELETE FROM 行"_s); },
                 [&] { database.Execute(u"DROP TABLE 行"_s); },
                 [&] { database.Execute(u"CREATE TABLE tc01 ([序号] LONG)"_s); },
                 [&] { const Transaction transaction(database); },
             }) {
            QVERIFY(failsSaying(step, {u"只能读取"_s, database.Name()}));
        }
        QCOMPARE(set.EditMode(), Recordset::Mode::none);
        QCOMPARE(set.rowCount(), 700);
        QCOMPARE(contentOf(database.Name()), before);
    }

    void oneCopyServesAllUntilTheFileChanges() {
        const QString path = files_->write(u"a.mdb"_s, jet::database({manyColumns()}));
        Database first = OpenDatabase(path);
        setJetReader({u"/does/not/exist"_s});  // a second reading would fail
        QCOMPARE(OpenDatabase(path).TableDefs(), QStringList(u"列"_s));
        setJetReader();
        files_->write(u"a.mdb"_s, jet::database({manyColumns(), manyRows()}));
        QCOMPARE(OpenDatabase(path).TableDefs().size(), 2);
        QCOMPARE(first.TableDefs(), QStringList(u"列"_s));
        const Recordset set = first.OpenRecordset(u"列"_s);
        first = {};
        QCOMPARE(set.FieldCount(), 100);  // a set keeps its database
    }
};

Registered<JetReadingTest> registered;

}  // namespace

Q_DECLARE_METATYPE(jet::Form)

#include "jet_reading_test.moc"
