#include "../../support/run_all.h"
#include "test_album.h"

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString remark = u"备注"_s;

/// Takes the rights of the superuser away, who could write everywhere.
class PlainUser {
  public:
    PlainUser() { changed_ = geteuid() == 0 && seteuid(65534) == 0; }
    ~PlainUser() {
        if (changed_ && seteuid(0) != 0) qFatal("the rights of the superuser did not come back");
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

  private:
    bool changed_ = false;
};

/// Lets no file grow beyond a size: what a full disk does to a write.
class FullDisk {
  public:
    explicit FullDisk(qint64 size) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = static_cast<rlim_t>(size);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

void setRemark(Recordset& set, const QString& text) {
    set.Edit();
    set.Fields(remark).SetValue(text);
    set.Update();
}

class FilesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestAlbum> album_;

    QString writeFile(const QString& name, const QByteArray& content) const {
        QFile file(album_->folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) return {};
        return file.fileName();
    }

    QByteArray fileContent() const {
        QFile file(album_->path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        const QByteArray whole = fileContent();
        const QStringList paths{writeFile(u"empty.mdb"_s, {}),
                                writeFile(u"garbage.mdb"_s, QByteArray(50000, '?')),
                                writeFile(u"halved.mdb"_s, whole.left(whole.size() / 2)),
                                writeFile(u"header.mdb"_s, whole.left(100)),
                                writeFile(u"spoilt.mdb"_s, QByteArray(whole).replace(100, 3000, QByteArray(3000, '?'))),
                                album_->folder.filePath(u"missing.mdb"_s),
                                album_->folder.path()};
        for (const QString& path : paths) {
            const QString failure = failureOf([&] { OpenDatabase(path); });
            QVERIFY2(failure.contains(path), qPrintable(path + failure));
        }
    }

    void damagedPageFailsAlone() {
        const QString spoilt = writeFile(u"spoilt.mdb"_s, fileContent().replace("2003-10-01", "\xff\xfe\xfd?-10-0?"));
        const Database database = OpenDatabase(spoilt);
        Recordset set = database.OpenRecordset(u"tc01"_s);
        QCOMPARE(set.rowCount(), 3);
        QVERIFY(std::holds_alternative<QString>(set.Fields(u"日期"_s).Value().storage()));
    }

    void readOnlyFileCanBeRead() {
        QVERIFY(QFile::setPermissions(album_->folder.path(), QFile::Permissions(0x7755)));
        const QString copy = writeFile(u"copy.mdb"_s, fileContent());
        QVERIFY(QFile::setPermissions(copy, QFile::Permissions(0x4444)));
        const PlainUser user;
        Recordset set = OpenDatabase(copy).OpenRecordset(u"tc01"_s);
        QCOMPARE(set.Fields(u"图片"_s).FieldSize(), 100000);
        const QString failure = failureOf([&] { setRemark(set, u"x"_s); });
        QVERIFY2(failure.contains(u"只读") && failure.contains(copy), qPrintable(failure));
        QVERIFY(set.Fields(remark).isNull());
    }

    void fullDiskLeavesTheFileAsItWas() {
        Recordset set = album_->open(u"tc01"_s);
        {
            const FullDisk disk(QFileInfo(album_->path()).size() + 200000);
            set.Edit();
            for (int i = 0; i < 8; ++i) set.Fields(u"图片"_s).AppendChunk(QByteArray(100000, 'n'));
            const QString failure = failureOf([&] { set.Update(); });
            QVERIFY2(failure.contains(album_->path()), qPrintable(failure));
        }
        QCOMPARE(set.Fields(u"图片"_s).Value().toBytes(), QByteArray(100000, 'p'));
        QCOMPARE(album_->shell(u"PRAGMA integrity_check"_s), u"ok"_s);
        QCOMPARE(album_->shell(u"SELECT count(*) FROM long_binary"_s), u"3"_s);
        setRemark(set, u"后"_s);
        QCOMPARE(album_->shell(u"SELECT 备注 FROM tc01 WHERE 序号 = 1"_s), u"后"_s);
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
        QCOMPARE(album_->shell(u"SELECT 备注 FROM tc01 WHERE 序号 = 1"_s), u"外"_s);
    }

    void failureWithinATransactionLeavesItsOtherChanges() {
        Recordset set = album_->open(u"tc01"_s);
        Transaction transaction(album_->database);
        setRemark(set, u"一"_s);
        QVERIFY(fails([&] { album_->database.Execute(u"DROP TABLE tc99"_s); }));
        QVERIFY(fails([&] { album_->database.Execute(u"DELETE FROM tc01 WHERE 没有 = 1"_s); }));
        transaction.commit();
        QCOMPARE(album_->shell(u"SELECT 备注 FROM tc01 WHERE 序号 = 1"_s), u"一"_s);
    }

    void replacedFileIsOpenedAnew() {
        const Database before = OpenDatabase(album_->path());
        const QString copy = writeFile(u"copy.mdb"_s, fileContent());
        OpenDatabase(copy).Execute(u"DELETE FROM tc01"_s);
        QVERIFY(QFile::remove(album_->path()) && QFile::rename(copy, album_->path()));
        QCOMPARE(OpenDatabase(album_->path()).OpenRecordset(u"tc01"_s).rowCount(), 0);
        QCOMPARE(before.OpenRecordset(u"tc01"_s).rowCount(), 3);
    }
};

static Registered<FilesTest> registered;

}  // namespace

#include "files_test.moc"
