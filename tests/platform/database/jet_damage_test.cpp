#include "jet_files.h"
#include "jet_tables.h"
#include "platform/database/records/reading_notes.h"

#include <map>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

using Random = std::mt19937;

/// Between 0 and `end`, the same on every machine.
qsizetype below(Random& random, qsizetype end) {
    return qsizetype(random() % quint32(end));
}

void spoil(QByteArray& bytes, Random& random, qsizetype from, qsizetype length, int count) {
    for (int i = 0; i < count; ++i) bytes[from + below(random, length)] = char(random());
}

/// The header of a version, and behind it noise.
QByteArray garbage(char version, qsizetype size, quint32 seed) {
    Random random(seed);
    QByteArray bytes(size, '\0');
    spoil(bytes, random, 0, size, int(size));
    bytes.replace(0, 19, QByteArray("\0\1\0\0Standard Jet DB", 19));
    bytes[19] = '\0';
    bytes[20] = version;
    return bytes;
}

/// By name, which begins with the version.
std::map<QString, QByteArray> wholeFiles() {
    const jet::Form jet3{.version = jet::Version::jet3};
    return {{u"jet3 types"_s, jet::database({allTypes(jet3.version), manyRows()}, jet3)},
            {u"jet3 long values"_s, jet::database({longValues(), manyColumns()}, jet3)},
            {u"jet4 types"_s, jet::database({allTypes(jet::Version::jet4), manyRows()})},
            {u"jet4 long values"_s, jet::database({longValues(), manyColumns()})},
            {u"jet4 encoded"_s, jet::database({longValues(), manyRows()}, {.key = 4711})}};
}

class JetDamageTest : public QObject {
    Q_OBJECT

    std::unique_ptr<JetFiles> files_;

    /// Reads all there is, if the file opens at all. Returns what the failure says, which names the file.
    static QString failureOfReading(const QString& path) {
        const QString failure = failureOf([&] {
            const Database database = OpenDatabase(path);
            for (const QString& table : database.TableDefs()) {
                for (Recordset set = database.OpenRecordset(table); !set.Eof(); set.MoveNext()) {
                    for (int i = 0; i < set.FieldCount(); ++i) set.Fields(i).Value();
                }
            }
        });
        return failure.isEmpty() || failure.contains(path) ? failure : u"no file name: "_s + failure;
    }

    QString script(const QByteArray& commands) const {
        const QString path = files_->write(u"reader"_s, "#!/bin/sh\n" + commands);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }

  private Q_SLOTS:
    void init() { files_ = std::make_unique<JetFiles>(); }
    void cleanup() {
        const QStringList left = files_->copies();
        files_.reset();
        QCOMPARE(left, QStringList());
    }

    void garbageIsRefused() {
        std::vector<std::pair<QByteArray, QString>> cases{
            {garbage(1, 21, 1), u"不完整"_s},  // the header alone
            {garbage(1, 4096, 2), u"不完整"_s},
            {garbage(1, 50000, 3), u"不完整"_s},  // a torn page
            {garbage(1, 8192, 4).replace("Jet DB", "ACE DB"), u"版本"_s},
            {garbage(2, 8192, 5), u"版本"_s},
            {garbage('\xff', 8192, 6), u"版本"_s},
            {garbage(1, 65536, 7).replace(21, 65515, QByteArray(65515, '\0')), QString()},
        };
        for (quint32 seed = 10; seed < 16; ++seed)
            for (const char version : {'\0', '\1'}) cases.emplace_back(garbage(version, 40960, seed), QString());
        for (const auto& [bytes, reason] : cases) {
            const QString path = files_->write(u"garbage.mdb"_s, bytes);
            QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, reason}));
        }
    }

    void tooLargeFileIsRefusedUnread() {
        const QString path = files_->write(u"large.mdb"_s, garbage(1, 4096, 1));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.resize((qint64{2} << 30) + 4096));
        setJetReader({u"/does/not/exist"_s});
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"2 GB"_s}));
    }

    void readersFailureIsExplained() {
        const QString path = files_->write(u"a.mdb"_s, garbage(1, 12288, 1));
        for (const auto& [commands, reason] : {std::pair{"kill -SEGV $$\n", u"意外终止"_s},
                                               {"kill -KILL $$\n", u"意外终止"_s},
                                               {"exec sleep 100\n", u"超出"_s},
                                               {"exit 70\n", u"超出"_s},
                                               {"exit 71\n", u"空间不足"_s},
                                               {"exit 3\n", u"重新安装"_s},
                                               {"echo nonsense > \"$2\"\n", u"不是数据库"_s}}) {
            setJetReader({script(commands), 200});
            QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, reason}));
        }
        setJetReader({u"/does/not/exist"_s, 200});
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"不见了"_s}));
        // Signs of progress keep a reader alive.
        setJetReader({script("for i in 1 2 3 4 5 6; do printf .; sleep 0.2; done; exit 67\n"), 800});
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"密码"_s}));
    }

    /// Whatever ends the program or its reader then, what they have read cannot stay behind.
    void copyHasNoNameAtAnyTime() {
        const QString path = files_->write(u"a.mdb"_s, garbage(1, 12288, 1));
        const QString seen = files_->folder.filePath(u"seen"_s);
        const auto openFiles = [] {
            return QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System).size();
        };
        setJetReader({script("printf private > \"$2\"; { ls -A \"$TMPDIR\"; cat \"$2\"; } > '" +
                             QFile::encodeName(seen) + "'; exit 67\n")});
        const auto before = openFiles();
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"密码"_s}));
        QCOMPARE(contentOf(seen), QByteArray("private"));
        QCOMPARE(openFiles(), before);
    }

    void noPlaceForTheCopyIsSaid() {
        const QString path = files_->write(u"a.mdb"_s, garbage(1, 12288, 1));
        qputenv("TMPDIR", "/proc");
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"/proc"_s}));
    }

    /// A value of 80 MB in a file that is large enough for it.
    void tooMuchForTheReaderIsSaid() {
        QByteArray whole = jet::database({longValues()}, {.version = jet::Version::jet3});
        const QByteArray length("\x30\x75\x00\x00", 4);
        whole.replace(whole.lastIndexOf(length), length.size(), QByteArray("\x00\xb4\xc4\x04", 4));
        const QString path = files_->write(u"long.mdb"_s, whole);
        QVERIFY(QFile::resize(path, 50000 * 2048));
        QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path, u"限制"_s}));
    }

    /// A turned bit beside the place of a piece, such as the mark of a deleted row, costs nothing.
    void marksOfPiecesDoNotMatter() {
        constexpr qsizetype pageSize = 4096, owner = 4, markOfFirstRow = 15;
        const jet::Table table = longValues();
        QByteArray bytes = jet::database({table});
        int pieces = 0;
        for (qsizetype page = 0; page < bytes.size(); page += pageSize) {
            if (bytes[page] != 1 || bytes.mid(page + owner, 4) != QByteArray(4, '\0')) continue;
            bytes[page + markOfFirstRow] = char(bytes[page + markOfFirstRow] | 0x80);
            ++pieces;
        }
        QVERIFY(pieces > 3);
        Recordset set = OpenDatabase(files_->write(u"marked.mdb"_s, bytes)).OpenRecordset(table.name);
        for (const jet::Row& row : table.rows) {
            QCOMPARE(set.Fields(1).Value().toBytes(), row[1].toByteArray());
            set.MoveNext();
        }
    }

    void missingPartsAreNoticed() {
        for (const auto& [name, whole] : wholeFiles()) {
            const QList<qsizetype> lengths{
                150, 4096, 12289, whole.size() / 2 + 1, whole.size() - 4096, whole.size() - 1};
            for (const qsizetype length : lengths) {
                const QString path = files_->write(u"short.mdb"_s, whole.left(length));
                const QString failure = failureOfReading(path);
                if (failure.isEmpty()) {
                    const ReadingNotes notes(OpenDatabase(path));
                    QVERIFY2(!notes.unreadableTables().isEmpty() || notes.missingRecords(u"行"_s) != 0,
                             qPrintable(name));
                    continue;
                }
                QVERIFY2(failure.startsWith(u"数据库文件“") && failure.contains(u"short.mdb"),
                         qPrintable(u"%1 %2 %3"_s.arg(name).arg(length).arg(failure)));
                if (length % 2 != 0) QVERIFY2(failure.contains(u"不完整"), qPrintable(failure));
            }
        }
    }

    /// One page of zeros costs what it holds: `marks` are bytes on the page, as the two versions write them.
    void damageCostsWhatItHolds_data() {
        QTest::addColumn<QByteArray>("mark");
        QTest::addColumn<QStringList>("tables");
        QTest::addColumn<QStringList>("unreadable");
        QTest::addColumn<int>("pictures");  // of the three
        QTest::addColumn<QString>("lost");
        QTest::newRow("whole") << QByteArray() << QStringList{u"甲"_s, u"乙"_s} << QStringList() << 3 << QString();
        QTest::newRow("definition") << QByteArray("Only") << QStringList{u"甲"_s} << QStringList{u"乙"_s} << 3
                                    << QString();
        QTest::newRow("end of a long value")
            << noise(9000).right(60) << QStringList{u"甲"_s, u"乙"_s} << QStringList() << 2 << u"2 Picture"_s;
        QTest::newRow("rows of the second table")
            << QByteArray("rowinsecond") << QStringList{u"甲"_s, u"乙"_s} << QStringList() << 3 << u"乙 1"_s;
    }

    void damageCostsWhatItHolds() {
        QFETCH(QByteArray, mark);
        QFETCH(int, pictures);
        QFETCH(QString, lost);
        const jet::Table first{u"甲"_s,
                               {{u"No"_s, jet::Type::longInteger}, {u"Picture"_s, jet::Type::ole}},
                               {{1, noise(20)}, {2, noise(9000)}, {3, noise(30)}}};
        const jet::Table second{u"乙"_s, {{u"Only"_s, jet::Type::text, 20}}, {{u"rowinsecond"_s}}};
        QByteArray bytes = jet::database({first, second}, {.version = jet::Version::jet3, .codePage = 936});
        if (!mark.isEmpty()) {
            const qsizetype page = bytes.lastIndexOf(mark) / 2048 * 2048;
            QVERIFY(page > 2048);
            bytes.replace(page, 2048, QByteArray(2048, '\0'));
        }
        const Database database = OpenDatabase(files_->write(u"page.mdb"_s, bytes));
        const ReadingNotes notes(database);
        QTEST(database.TableDefs(), "tables");
        QTEST(notes.unreadableTables(), "unreadable");
        int read = 0;
        for (Recordset set = database.OpenRecordset(u"甲"_s); !set.Eof(); set.MoveNext())
            attempt([&] { read += set.Fields(u"Picture"_s).Value().toBytes().isEmpty() ? 0 : 1; });
        QCOMPARE(read, pictures);
        QString told;
        for (const auto& value : notes.lostValues(u"甲"_s)) told += u"%1 %2"_s.arg(value.row).arg(value.column);
        if (const int rows = notes.missingRecords(u"乙"_s); rows != 0) told += u"乙 %1"_s.arg(rows);
        QCOMPARE(told, lost);
    }

    /// Whatever is read from such a file, or why it is not: the album lives on, and nothing is left behind.
    void damageDoesNoHarm_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("seed");
        for (const auto& [name, whole] : wholeFiles()) {
            for (int i = 0; i < 10; ++i) QTest::addRow("%s %d", qPrintable(name), i) << name << i % 5 << 1000 + i;
        }
    }

    void damageDoesNoHarm() {
        QFETCH(QString, name);
        QFETCH(int, kind);
        QFETCH(int, seed);
        QByteArray bytes = wholeFiles()[name];
        Random random(static_cast<quint32>(seed));
        const qsizetype page = name.startsWith(u"jet3") ? 2048 : 4096;
        const qsizetype pages = bytes.size() / page;
        const qsizetype chosen = page * (1 + below(random, std::min<qsizetype>(pages - 1, 40)));
        switch (kind) {
            case 0:  // single bytes anywhere behind the header
                spoil(bytes, random, page, bytes.size() - page, 30);
                break;
            case 1:  // the definition of the catalogue
                spoil(bytes, random, 2 * page, 200, 3);
                break;
            case 2:  // the places of the rows in a page
                spoil(bytes, random, chosen, 48, 6);
                break;
            case 3:  // a whole page
                spoil(bytes, random, chosen, page, int(page));
                break;
            default:  // one page in the place of another
                bytes.replace(chosen, page, bytes.mid(page * below(random, pages), page));
        }
        const QString failure = failureOfReading(files_->write(u"spoilt.mdb"_s, bytes));
        QVERIFY2(failure.isEmpty() || failure.startsWith(u"数据库文件“"), qPrintable(failure));
        QVERIFY2(!failure.contains(u"意外终止"), qPrintable(failure));
    }
};

Registered<JetDamageTest> registered;

}  // namespace

#include "jet_damage_test.moc"
