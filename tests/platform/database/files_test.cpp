#include "../../support/disk_faults.h"
#include "../../support/failing_disk.h"
#include "platform/database/file/file_check.h"
#include "test_album.h"

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString remark = u"备注"_s;

void setRemark(Recordset& set, const QString& text) {
    change(set, remark, text);
}

class FilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestAlbum> album_;

    QString write(const QString& name, const QByteArray& content) const {
        return writeFile(album_->folder.filePath(name), content);
    }

  private Q_SLOTS:
    void init() {
        album_ = std::make_unique<TestAlbum>();
        for (int i = 1; i <= 3; ++i) album_->add(i, u"a"_s, u"2003-10-01"_s, QByteArray(100000, 'p'));
    }

    void newFileIsLaidOutForPictures() {
        const QStringList expected{u"page_size=16384"_s, u"auto_vacuum=2"_s, u"application_id=1819635313"_s,
                                   u"user_version=1"_s, u"journal_mode=delete"_s};
        for (const QString& setting : expected) {
            const QString name = setting.section(u'=', 0, 0);
            QCOMPARE(name + u'=' + album_->shell(u"PRAGMA "_s + name), setting);
        }
        QCOMPARE(
            album_->shell(u"SELECT count(*) FROM tc01 JOIN long_binary ON id = 图片 WHERE length(bytes) = 100000"_s),
            u"3"_s);
        QVERIFY(failureOf([&] { createDatabase(album_->path()); }).contains(u"已存在"));
        QCOMPARE(album_->database.Name(), album_->path());
    }

    void refusesWhatIsNoDatabase() {
        const QByteArray whole = contentOf(album_->path());
        const QStringList paths{write(u"empty.mdb"_s, {}),
                                write(u"garbage.mdb"_s, QByteArray(50000, '?')),
                                write(u"halved.mdb"_s, whole.left(whole.size() / 2)),
                                write(u"header.mdb"_s, whole.left(100)),
                                write(u"spoilt.mdb"_s, QByteArray(whole).replace(100, 3000, QByteArray(3000, '?'))),
                                album_->folder.filePath(u"missing.mdb"_s),
                                album_->folder.path()};
        for (const QString& path : paths) {
            QVERIFY(failsSaying([&] { OpenDatabase(path); }, {path}));
        }
        for (const int damaged : {0, 1, 2, 3, 4}) {
            try {
                OpenDatabase(paths[damaged]);
                QFAIL("opened");
            } catch (const Error& error) {
                QVERIFY2(error.isDamage(), qPrintable(paths[damaged]));
            }
        }
    }

    /// At a pipe, and at a device without an end, the program would wait for ever.
    void refusesWhatIsNoFile() {
        const QString pipe = album_->folder.filePath(u"pipe"_s), lost = album_->folder.filePath(u"lost"_s);
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        for (const auto& [target, reason] : {std::pair{pipe, u"设备或管道"_s},
                                             {u"/dev/zero"_s, u"设备或管道"_s},
                                             {album_->folder.path(), u"文件夹"_s},
                                             {lost, u"所指的“%1”不存在"_s.arg(lost)}}) {
            const QString link = album_->folder.filePath(u"link.mdb"_s);
            QFile::remove(link);
            QVERIFY(QFile::link(target, link));
            QVERIFY(failsSaying([&] { OpenDatabase(link); }, {link, reason}));
            QVERIFY(failsSaying([&] { isJetDatabase(link); }, {link, reason}));
            QVERIFY(failsSaying([&] { FileCheck check(link); }, {link, reason}));
        }
    }

    void spoiltPictureLeavesTheOthersReadable() {
        const auto letter = [](int i) { return char('x' + i); };
        for (int i = 0; i < 3; ++i) album_->add(10 + i, u"b"_s, u"2003-10-02"_s, QByteArray(100000, letter(i)));
        // Such a page is the number of the next one and then nothing but the value.
        constexpr qsizetype pageSize = 16384;
        QByteArray content = contentOf(album_->path());
        qsizetype page = 0;
        while (page < content.size() && content.mid(page + 4, pageSize - 4) != QByteArray(pageSize - 4, letter(1))) {
            page += pageSize;
        }
        QVERIFY(page < content.size());
        const Database database = OpenDatabase(write(u"spoilt.mdb"_s, content.replace(page, 4, "\x7f\xff\xff\xff")));
        Recordset set = database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 > 9 ORDER BY 序号"_s);
        for (int i = 0; i < 3; ++i, set.MoveNext()) {
            const Field picture = set.Fields(u"图片"_s);
            QCOMPARE(set.Fields(u"编号"_s).Value().toText(), u"b"_s);
            QCOMPARE(picture.FieldSize(), 100000);
            if (i != 1) QCOMPARE(picture.Value().toBytes(), QByteArray(100000, letter(i)));
            if (i == 1) QVERIFY(failureOf([&] { picture.Value(); }).contains(u"已损坏"));
        }
    }

    void filesOfOthersKeepTheirSettings() {
        const QString path = album_->folder.filePath(u"other.mdb"_s);
        album_->shell(
            u"ATTACH '%1' AS o; PRAGMA o.journal_mode = WAL; PRAGMA o.user_version = 9; "
            "CREATE TABLE o.t (a LONG)"_s.arg(path));
        OpenDatabase(path).Execute(u"DELETE FROM t"_s);
        album_->shell(u"PRAGMA user_version = 3"_s);
        album_->database = {};
        QVERIFY(failsSaying([&] { OpenDatabase(album_->path()); }, {u"更新的版本"_s, album_->path()}));
        QCOMPARE(album_->shell(u"ATTACH '%1' AS o; PRAGMA o.journal_mode"_s.arg(path)), u"wal"_s);
    }

    /// However much free space it has.
    void readingLeavesAFileAsItIs() {
        const QString settings[] = {{}, u"PRAGMA journal_mode = WAL;"_s, u"PRAGMA application_id = 1;"_s};
        for (const QString& setting : settings) {
            init();
            album_->add(4, u"b"_s, u"2003-10-02"_s, QByteArray(20000000, 'q'));
            album_->database = {};
            album_->shell(u"DELETE FROM long_binary WHERE length(bytes) > 1000000;"_s + setting);
            const QByteArray before = contentOf(album_->path());
            QVERIFY(before.size() > 20000000);
            for (int round = 0; round < 2; ++round) {
                const Database database = OpenDatabase(album_->path());
                Recordset set = database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 < 4"_s);
                for (; !set.Eof(); set.MoveNext()) QCOMPARE(set.Fields(u"图片"_s).Value().toBytes().size(), 100000);
            }
            QVERIFY(contentOf(album_->path()) == before);

            // Space of our own files is given back by whoever changes something.
            {
                const Database database = OpenDatabase(album_->path());
                Recordset set = database.OpenRecordset(u"tc01"_s);
                setRemark(set, u"后"_s);
            }
            QCOMPARE(contentOf(album_->path()).size() < before.size(), setting.isEmpty() || setting.contains(u"WAL"));
            QCOMPARE(album_->remark(1), u"后"_s);
            QCOMPARE(album_->shell(u"PRAGMA journal_mode"_s), u"delete"_s);
        }
    }

    void damagedPageFailsAlone() {
        const QString spoilt =
            write(u"spoilt.mdb"_s, contentOf(album_->path()).replace("2003-10-01", "\xff\xfe\xfd?-10-0?"));
        const Database database = OpenDatabase(spoilt);
        Recordset set = database.OpenRecordset(u"tc01"_s);
        QCOMPARE(set.rowCount(), 3);
        QVERIFY(std::holds_alternative<QString>(set.Fields(u"日期"_s).Value().storage()));
    }

    void readOnlyFileCanBeRead() {
        QVERIFY(QFile::setPermissions(album_->folder.path(), QFile::Permissions(0x7755)));
        const QString copy = write(u"copy.mdb"_s, contentOf(album_->path()));
        QVERIFY(QFile::setPermissions(copy, QFile::Permissions(0x4444)));
        const PlainUser user;
        Recordset set = OpenDatabase(copy).OpenRecordset(u"tc01"_s);
        QCOMPARE(set.Fields(u"图片"_s).FieldSize(), 100000);
        QVERIFY(failsSaying([&] { setRemark(set, u"x"_s); }, {u"只读"_s, copy}));
        QVERIFY(set.Fields(remark).isNull());
    }

    /// Another program may write as well: each waits for the other's moment, and nobody's change is lost.
    void twoProgramsWrite() {
        constexpr int rows = 60;
        QProcess other;
        other.start(u"sqlite3"_s, {u"-cmd"_s, u".timeout 20000"_s, album_->path()});
        for (int i = 0; i < rows; ++i)
            other.write(
                "INSERT INTO long_binary (bytes) VALUES (zeroblob(50000)); "
                "INSERT INTO tc01 (图片, 备注) VALUES (last_insert_rowid(), 'other');\n");
        other.closeWriteChannel();
        for (int i = 0; i < rows; ++i) album_->add(100 + i, u"b"_s, u"2003-10-02"_s, QByteArray(50000, 'q'));
        QVERIFY(other.waitForFinished());
        QCOMPARE(QString::fromUtf8(other.readAllStandardError()), QString());
        QCOMPARE(album_->shell(u"SELECT count(*), count(DISTINCT 图片), sum(备注 = 'other') FROM tc01"_s),
                 u"%1|%1|%2"_s.arg(3 + 2 * rows).arg(rows));
        QCOMPARE(album_->shell(u"PRAGMA integrity_check"_s), u"ok"_s);
    }

    void whoeverWaitsTooLongIsTold() {
        Recordset set = album_->open(u"tc01"_s);
        QProcess other;
        other.start(u"sqlite3"_s, {album_->path()});
        other.write("BEGIN IMMEDIATE; UPDATE tc01 SET 备注 = 'other' WHERE 序号 = 2; SELECT 'begun';\n");
        QVERIFY(other.waitForReadyRead());
        QVERIFY(failsSaying([&] { setRemark(set, u"mine"_s); }, {album_->path(), u"正被使用"_s}));
        other.write("COMMIT;\n");
        other.closeWriteChannel();
        QVERIFY(other.waitForFinished());
        setRemark(set, u"mine"_s);
        QCOMPARE(album_->shell(u"SELECT group_concat(备注) FROM tc01"_s), u"mine,other"_s);
    }

    void fullDiskLeavesTheFileAsItWas() {
        Recordset set = album_->open(u"tc01"_s);
        {
            const FullDisk disk(QFileInfo(album_->path()).size() + 200000);
            set.Edit();
            for (int i = 0; i < 8; ++i) set.Fields(u"图片"_s).AppendChunk(QByteArray(100000, 'n'));
            QVERIFY(failsSaying([&] { set.Update(); }, {album_->path()}));
        }
        QCOMPARE(set.Fields(u"图片"_s).Value().toBytes(), QByteArray(100000, 'p'));
        QCOMPARE(album_->shell(u"PRAGMA integrity_check"_s), u"ok"_s);
        QCOMPARE(album_->keptPictures(), u"3"_s);
        setRemark(set, u"后"_s);
        QCOMPARE(album_->remark(1), u"后"_s);
    }

    /// A change that succeeds is on the disk: when the disk does not confirm it, the change fails.
    void changesWaitForTheDisk() {
        album_->database = {};
        FailingDisk disk;
        const auto closed = qScopeGuard([this] { album_->database = {}; });  // before the disk goes
        album_->database = OpenDatabase(album_->path());
        Recordset set = album_->open(u"tc01"_s);
        setRemark(set, u"前"_s);
        constexpr int leastWaits = 2;  // for the journal, and for the file
        for (int waits = 0; waits < leastWaits; ++waits) {
            disk.syncing = {.code = SQLITE_IOERR_FSYNC, .reason = EIO, .calls = 1, .before = waits};
            QVERIFY(failsSaying([&] { setRemark(set, u"后"_s); }, {album_->path()}));
            QCOMPARE(disk.syncing.calls, 0);
            QCOMPARE(album_->remark(1), u"前"_s);
        }
        disk.syncing = {};
        setRemark(set, u"后"_s);
        QCOMPARE(album_->remark(1), u"后"_s);
    }

    void failureOfTheDiskEndsTheWholeTransaction() {
        Recordset set = album_->open(u"tc01"_s);
        {
            Transaction transaction(album_->database);
            setRemark(set, u"一"_s);
            set.MoveLast();
            set.Edit();  // more than the engine keeps in memory
            for (int i = 0; i < 50; ++i) set.Fields(u"图片"_s).AppendChunk(QByteArray(1000000, 'n'));
            {
                const FullDisk disk(QFileInfo(album_->path()).size() + 2000000);
                QVERIFY(fails([&] { set.Update(); }));
            }
            QVERIFY(failsSaying([&] { setRemark(set, u"二"_s); }, {u"全部撤消"_s}));
            QVERIFY(fails([&] { album_->database.Execute(u"DELETE FROM tc01"_s); }));
            QVERIFY(fails([&] { transaction.commit(); }));
        }
        QCOMPARE(album_->shell(u"SELECT count(*), count(备注), (SELECT count(*) FROM long_binary) FROM tc01"_s),
                 u"3|0|3"_s);
        setRemark(set, u"后"_s);
        QCOMPARE(album_->remark(3), u"后"_s);
        QCOMPARE(album_->shell(u"PRAGMA integrity_check"_s), u"ok"_s);
    }

    void whatACrashLeavesIsRepaired() {
        Recordset set = album_->open(u"tc01"_s);
        const Transaction transaction(album_->database);
        set.Delete();
        set.MoveLast();
        change(set, u"图片"_s, QByteArray(50000000, 'n'));
        // The files in the middle of a change are those that a killed program leaves.
        const QString copy = album_->folder.filePath(u"copy.mdb"_s);
        QVERIFY(QFile::copy(album_->path(), copy));
        QVERIFY(QFile::copy(album_->path() + u"-journal"_s, copy + u"-journal"_s));
        QVERIFY(QFileInfo(copy).size() > 1000000 && QFileInfo(copy + u"-journal"_s).size() > 0);

        Recordset whole = OpenDatabase(copy).OpenRecordset(u"tc01"_s);
        QCOMPARE(numbersOf(whole), (QList<int>{1, 2, 3}));
        for (; !whole.Eof(); whole.MoveNext()) {
            QCOMPARE(whole.Fields(u"图片"_s).Value().toBytes(), QByteArray(100000, 'p'));
        }
        QVERIFY(QFileInfo(copy).size() < 1000000);
    }

    void transactionStandsOrFalls() {
        Recordset set = album_->open(u"tc01"_s);
        {
            const Transaction transaction(album_->database);
            setRemark(set, u"一"_s);
            set.MoveLast();
            set.Delete();
            album_->database.Execute(u"CREATE TABLE tc02 (a LONG, p LONGBINARY)"_s);
        }
        QCOMPARE(album_->database.TableDefs(), (QStringList{u"tc01"_s}));
        QCOMPARE(album_->shell(u"SELECT count(*), count(备注), (SELECT count(*) FROM long_binary) FROM tc01"_s),
                 u"3|0|3"_s);
        {
            Transaction outer(album_->database);
            set.MoveFirst();
            setRemark(set, u"外"_s);
            {
                const Transaction inner(album_->database);
                setRemark(set, u"内"_s);
            }
            QCOMPARE(set.Fields(remark).Value().toText(), u"外"_s);
            outer.commit();
        }
        QCOMPARE(album_->remark(1), u"外"_s);
    }

    void failureWithinATransactionLeavesItsOtherChanges() {
        Recordset set = album_->open(u"tc01"_s);
        Transaction transaction(album_->database);
        setRemark(set, u"一"_s);
        QVERIFY(fails([&] { album_->database.Execute(u"DROP TABLE tc99"_s); }));
        QVERIFY(fails([&] { album_->database.Execute(u"DELETE FROM tc01 WHERE 没有 = 1"_s); }));
        transaction.commit();
        QCOMPARE(album_->remark(1), u"一"_s);
    }

    void replacedFileIsOpenedAnew() {
        const Database before = OpenDatabase(album_->path());
        const QString copy = write(u"copy.mdb"_s, contentOf(album_->path()));
        OpenDatabase(copy).Execute(u"DELETE FROM tc01"_s);
        QVERIFY(QFile::remove(album_->path()) && QFile::rename(copy, album_->path()));
        QCOMPARE(OpenDatabase(album_->path()).OpenRecordset(u"tc01"_s).rowCount(), 0);
        QCOMPARE(before.OpenRecordset(u"tc01"_s).rowCount(), 3);
    }
};

static Registered<FilesTest> registered;

}  // namespace

#include "files_test.moc"
