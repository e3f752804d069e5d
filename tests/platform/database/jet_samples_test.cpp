#include "jet_files.h"

#include <QImage>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictures = u"jet4-ole-large-unicode.mdb"_s;
const QString pictureTable = u"Bilder Übersicht"_s;

/// Length and beginning of the checksum of a value, such as `22970:e5b3682c51`.
QString printOf(const QByteArray& bytes) {
    const QByteArray sum = QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().left(10);
    return u"%1:%2"_s.arg(bytes.size()).arg(QString::fromLatin1(sum));
}

/// Types and sizes of the columns, such as `4:4 10:255`.
QString layoutOf(const Recordset& set) {
    QStringList layout;
    for (int i = 0; i < set.FieldCount(); ++i) {
        layout << u"%1:%2"_s.arg(int(set.Fields(i).Type())).arg(set.Fields(i).Size());
    }
    return layout.join(u' ');
}

struct Contents {
    QStringList rows;        ///< By table.
    QStringList longValues;  ///< In their order.
    int nulls = 0;
};

Contents contentsOf(const Database& database) {
    Contents contents;
    for (const QString& table : database.TableDefs()) {
        int rows = 0;
        for (Recordset set = database.OpenRecordset(table); !set.Eof(); set.MoveNext(), ++rows) {
            for (int i = 0; i < set.FieldCount(); ++i) {
                const Field field = set.Fields(i);
                if (field.isNull())
                    ++contents.nulls;
                else if (field.Type() == FieldType::longBinary)
                    contents.longValues << printOf(field.Value().toBytes());
            }
        }
        contents.rows << u"%1 %2"_s.arg(table).arg(rows);
    }
    return contents;
}

/// Folder of databases that the genuine engine has written: we may not distribute such files.
const QString samples = qEnvironmentVariable("LUNQ_JET_SAMPLES");

QString sample(const QString& name) {
    return samples + u'/' + name;
}

class JetSamplesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<JetFiles> files_;

    static Recordset pictureSet(const Database& database, int number) {
        return database.OpenRecordset(u"SELECT * FROM [%1] WHERE Nr = %2"_s.arg(pictureTable).arg(number));
    }

  private Q_SLOTS:
    void init() {
        if (samples.isEmpty()) QSKIP("LUNQ_JET_SAMPLES names no folder of genuine databases.");
        QVERIFY2(QFileInfo(samples).isDir(), qPrintable(samples));
        files_ = std::make_unique<JetFiles>();
    }
    void cleanup() {
        if (!files_) return;
        const QStringList left = files_->copies();
        files_.reset();
        QCOMPARE(left, QStringList());
    }

    void everythingIsRead() {
        const std::tuple<QString, QString, int, QString> cases[] = {
            {u"jet3-types"_s, u"Table1 2, Table2 0, Table3 0, Table4 0"_s, 0, QString()},
            {u"jet3-ole-memo"_s, u"MSP_PROJECTS 1"_s, 14, u"22970:e5b3682c51"_s},
            {u"jet3-ole-large"_s, u"MSP_PROJECTS 1"_s, 14, u"612345:ba9626063e"_s},
            {u"jet4-ole-memo"_s, u"Table1 2, Table2 1"_s, 5, u"121036:0a3e762ba5"_s},
            {u"jet4-encoded"_s, u"Table1 2"_s, 0, QString()},
            {u"jet4-alltypes"_s,
             u"DataTypeTest 2, Dual 1, InheritanceParent 3, InheritanceChild 3, Person 4, Doctor 1, Patient 1, "
             "Parent 7, Child 17, GrandChild 22, LinqDataTypes 12, TestIdentity 0, AllTypes 14, TestMerge1 4, "
             "TestMerge2 4"_s,
             394, u"4:3c585604e8 4:3c585604e8 16:428f78bf42 5:11966ab9c0 5:7b0a85df8e"_s},
            // The tenth comes without its wrapper: there the picture begins at byte 78.
            {u"jet4-ole-large-unicode"_s, u"Bilder Übersicht 12, leer 0"_s, 8,
             u"1:ae4f281df5 64:90224a5935 65:a72b087439 4076:912c99a401 4077:9518ad1378 1938:bc46646db5 "
             "10533:30fff9af62 22554:fb5a045a99 16374:f50c7e6c52 341284:08963e52b8 931184:36d778fa45"_s},
        };
        for (const auto& [file, rows, nulls, longValues] : cases) {
            // With an ending that says nothing, in a folder whose name shells would misread.
            const QString source = sample(file + u".mdb"_s);
            const QString copy = files_->write(u"照片 'x' $1.dat"_s, contentOf(source));
            const Database database = OpenDatabase(copy);
            QVERIFY(database.isForeign());
            QCOMPARE(database.Name(), copy);
            const Contents contents = contentsOf(database);
            QCOMPARE(contents.rows.join(u", "), rows);
            QCOMPARE(contents.nulls, nulls);
            QCOMPARE(contents.longValues.join(u' '), longValues);
            QCOMPARE(files_->copies(), QStringList());
        }
    }

    void columnsKeepTypesAndSizes() {
        const std::tuple<QString, QString, QString> cases[] = {
            {u"jet3-types"_s, u"Table1"_s, u"10:50 10:100 2:1 3:2 4:4 7:8 8:8 5:8 1:1"_s},
            {u"jet4-ole-memo"_s, u"Table1"_s, u"4:4 10:255 4:4 5:8 8:8 1:1 12:0 12:0 12:0 11:0 12:0"_s},
            {u"jet4-alltypes"_s, u"AllTypes"_s,
             u"4:4 1:1 3:2 20:16 4:4 2:1 5:8 7:8 6:4 8:8 10:1 10:20 10:20 12:0 10:20 "
             "10:20 12:0 9:10 9:510 11:0 11:0 15:16"_s},
        };
        for (const auto& [file, table, layout] : cases) {
            const Database database = OpenDatabase(sample(file + u".mdb"_s));
            QCOMPARE(layoutOf(database.OpenRecordset(table)), layout);
            QCOMPARE(layoutOf(database.OpenRecordset(u"SELECT * FROM "_s + table)), layout);
        }
    }

    void valuesAreExact() {
        const QString unicode = u"jet4-ole-large-unicode"_s, all = u"jet4-alltypes"_s, old = u"jet3-types"_s;
        const QString number = u"[Bilder Übersicht] WHERE Nr = "_s;
        const std::tuple<QString, QString, QString, QString> cases[] = {
            {unicode, number + u'6', u"Название"_s, u"emoji 😀 end"_s},
            {unicode, number + u'7', u"日付"_s, u"1850-03-04 05:06:07"_s},
            {unicode, number + u'7', u"Größe"_s, u"6.6"_s},
            {unicode, number + u'2', u"Preis"_s, u"-12.3456"_s},
            {unicode, number + u'2', u"Klein"_s, u"-5"_s},
            {unicode, number + u'1', u"Gedruckt"_s, u"True"_s},
            {u"jet4-ole-memo"_s, u"Table1 WHERE ID = 2"_s, u"ShortTextField"_s, u"普林斯顿大学"_s},
            {u"jet4-encoded"_s, u"Table1 WHERE ID = 2"_s, u"col1"_s, u"world"_s},
            {all, u"LinqDataTypes WHERE ID = 1"_s, u"MoneyValue"_s, u"1.11"_s},
            {all, u"LinqDataTypes WHERE ID = 1"_s, u"GuidValue"_s, u"{EF129165-6FFE-4DF9-BB6B-BB16E413C883}"_s},
            {all, u"TestMerge1 WHERE Id = 3"_s, u"FieldEnumString"_s, QString(QChar(0))},
            {all, u"TestMerge1 WHERE Id = 3"_s, u"FieldDate"_s, u"2123-11-23"_s},
            {old, u"Table1 WHERE D = 222"_s, u"G"_s, u"1974-09-21"_s},
            {old, u"Table1 WHERE D = 222"_s, u"F"_s, u"444.555"_s},
        };
        for (const auto& [file, source, column, text] : cases) {
            const Database database = OpenDatabase(sample(file + u".mdb"_s));
            const Recordset set = database.OpenRecordset(u"SELECT * FROM "_s + source);
            QCOMPARE(set.Fields(column).Value().toText(), text);
        }
    }

    void longTextsAndPicturesComeWhole() {
        const Database database = OpenDatabase(sample(pictures));
        const QString text = pictureSet(database, 9).Fields(u"Bemerkung"_s).Value().toText();
        QCOMPARE(text.size(), 40000);
        QCOMPARE(text.toUtf8().size(), 57144);
        const QList<std::pair<int, QSize>> sizes{{7, {160, 120}}, {9, {100, 75}}, {10, {90, 60}}, {11, {900, 600}}};
        for (const auto& [number, size] : sizes) {
            const Recordset set = pictureSet(database, number);
            const Field picture = set.Fields(u"Bild"_s);
            QCOMPARE(picture.GetChunk(2, 100), picture.Value().toBytes().mid(2, 100));
            QCOMPARE(QImage::fromData(picture.Value().toBytes()).size(), size);
        }
    }

    void passwordIsRespected() {
        const QString path = sample(u"jet4-password.mdb"_s);
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"密码"_s}));
    }
};

Registered<JetSamplesTest> registered;

}  // namespace

#include "jet_samples_test.moc"
