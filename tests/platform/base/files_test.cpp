#include "platform/base/files.h"

#include "../../support/disk_faults.h"
#include "../../support/failure_of.h"
#include "../../support/run_all.h"
#include "../../support/test_files.h"
#include "platform/base/odd_names.h"
#include "platform/base/processes.h"
#include "platform/base/system_reason.h"
#include "platform/base/twips.h"

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

class FilesTest : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;

  private Q_SLOTS:
    void filesAndFoldersComeAndGo() {
        const QString folder = joinedPath(folder_.path(), u"相册"_s);
        MkDir(folder);
        const QString path = joinedPath(folder, u"图 1.jpg"_s);
        QFile file(path);
        const QDateTime written(QDate(2003, 10, 1), QTime(12, 30, 59, 700));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("12345") == 5 && file.flush());
        QVERIFY(file.setFileTime(written, QFile::FileModificationTime));
        file.close();
        QVERIFY(folderExists(folder) && !folderExists(path) && fileExists(path) && !fileExists(folder));
        QCOMPARE(FileLen(path), 5);
        QCOMPARE(FileDateTime(path), QDateTime(QDate(2003, 10, 1), QTime(12, 30, 59)));
        QVERIFY(failureOf([&] { MkDir(folder); }).contains(folder));
        QVERIFY(failureOf([&] { RmDir(folder); }).contains(folder));
        Kill(path);
        RmDir(folder);
        QVERIFY(!folderExists(folder));
        for (const auto& step : std::vector<std::function<void()>>{[&] { FileLen(path); }, [&] { FileDateTime(path); },
                                                                   [&] { Kill(path); }, [&] { MkDir(path); }}) {
            QVERIFY(failureOf(step).contains(path));
        }
    }

    void whyAFileCannotBeWritten() {
        const PlainUser user;
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath(u"夹"_s) && QDir(folder.path()).mkpath(u"锁"_s));
        QFile locked(folder.filePath(u"锁.jpg"_s));
        QVERIFY(locked.open(QIODevice::WriteOnly) && locked.setPermissions(QFile::ReadOwner));
        QVERIFY(QFile::setPermissions(folder.filePath(u"锁"_s), QFile::ReadOwner | QFile::ExeOwner));
        const std::pair<QString, QString> cases[] = {
            {u"没有/图.jpg"_s, u"文件夹不存在"_s},
            {u"夹"_s, u"那里有一个同名的文件夹"_s},
            {u"锁.jpg"_s, u"文件是只读的"_s},
            {u"锁/图.jpg"_s, u"文件夹不能写入"_s},
        };
        for (const auto& [name, reason] : cases) {
            QFile file(folder.filePath(name));
            QVERIFY2(!file.open(QIODevice::WriteOnly), qPrintable(name));
            QCOMPARE(writeFailure(file), reason);
        }
    }

    void nameThatNobodyHas() {
        const auto path = [&](const QString& name) { return folder_.filePath(name); };
        const auto content = [&](const QString& name) { return contentOf(path(name), "none"); };
        writeFile(path(u"新"_s), "new");
        writeFile(path(u"旧"_s), "old");
        QVERIFY(!renameNew(path(u"新"_s), path(u"旧"_s)));
        QCOMPARE(content(u"新"_s) + content(u"旧"_s), QByteArray("newold"));
        QVERIFY(renameNew(path(u"新"_s), path(u"另"_s)));
        QCOMPARE(content(u"新"_s) + content(u"另"_s), QByteArray("nonenew"));
        const QString endless = path(QString(300, u'a'));
        QVERIFY(failureOf([&] { renameNew(path(u"另"_s), endless); }).contains(u"名称太长"_s));
        QVERIFY(failureOf([&] { renameNew(path(u"另"_s), path(u"无/另"_s)); }).contains(u"不存在"_s));
        QCOMPARE(content(u"另"_s), QByteArray("new"));
    }

    /// Lists of files leave out what the program would wait at for ever.
    void listsHoldFilesAlone() {
        const QTemporaryDir folder;
        const auto path = [&](const QString& name) { return folder.filePath(name); };
        QFile file(path(u"图.mdb"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && QDir(folder.path()).mkdir(u"夹.mdb"_s));
        QCOMPARE(mkfifo(qPrintable(path(u"管.mdb"_s)), 0600), 0);
        QVERIFY(QFile::link(file.fileName(), path(u"链.MDB"_s)));
        for (const auto& [name, target] : {std::pair{u"a.mdb"_s, path(u"管.mdb"_s)},
                                           {u"b.mdb"_s, u"/dev/zero"_s},
                                           {u"c.mdb"_s, path(u"夹.mdb"_s)},
                                           {u"d.mdb"_s, path(u"无"_s)}})
            QVERIFY(QFile::link(target, path(name)));
        QStringList names;
        for (const FolderEntry& entry : filesIn(folder.path(), {u"*.mdb"_s})) names.append(entry.name);
        names.sort();
        QCOMPARE(names, (QStringList{u"图.mdb"_s, u"链.MDB"_s}));
        QVERIFY(filesIn(folder.path(), {u"*.jpg"_s}).isEmpty());
        QVERIFY(fileExists(path(u"链.MDB"_s)) && !fileExists(path(u"a.mdb"_s)) && !fileExists(path(u"b.mdb"_s)));
    }

    void reasonsAreTold() {
        QCOMPARE(systemReason(ETIMEDOUT), systemReason(EIO));
        QCOMPARE(systemReason(u"No space left on device"_s), u"磁盘空间不足"_s);
        QCOMPARE(systemReason(u"another failure"_s), u"another failure"_s);
        QFile file(folder_.filePath(u"无/图.jpg"_s));
        QVERIFY(!file.open(QIODevice::ReadOnly));
        QCOMPARE(systemReason(file.errorString()), u"文件或文件夹不存在"_s);
    }

    /// The last bytes may still be in memory: only the flush finds out that the disk has no room for them.
    void bytesThatFindNoRoom() {
        QFile file(folder_.filePath(u"满.jpg"_s));
        const FullDisk full(1000);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(QByteArray(1001, 'x')), 1001);
        QVERIFY(failureOf([&] { syncToDisk(file); }).contains(file.fileName()));
        QVERIFY(!writeFailure(file).isEmpty());
    }

    void pathsAreJoinedWithOneSeparator() {
        QCOMPARE(joinedPath(u"/a"_s, u"b"_s), u"/a/b"_s);
        QCOMPARE(joinedPath(u"/"_s, u"b"_s), u"/b"_s);
        setProgramFolder(folder_.path());
        QCOMPARE(programFolder(), folder_.path());
        setProgramFolder({});
        QCOMPARE(programFolder(), QCoreApplication::applicationDirPath());
    }

    void programsAreFoundAndStarted() {
        const QString shell = findProgram({u"no-such-program"_s, u"sh"_s});
        QVERIFY(shell.endsWith(u"/sh"));
        const QString made = folder_.filePath(u"made"_s);
        Shell(shell, {u"-c"_s, u"touch '%1'"_s.arg(made)});
        QTRY_VERIFY(fileExists(made));
        QVERIFY(findProgram({u"no-such-program"_s}).isEmpty());
        QVERIFY(failureOf([] { Shell(u"no-such-program"_s); }).contains(u"no-such-program"));
    }

    void twipsBecomePixels() {
        QCOMPARE(pixelsFromTwips(22), 1);
        QCOMPARE(pixelsFromTwips(23), 2);
        QCOMPARE(roundHalfEven(0.5), 0);
        QCOMPARE(roundHalfEven(1.5), 2);
        QCOMPARE(roundHalfEven(-2.5), -2);
        QCOMPARE(twipsFromPixels(-3), -45);
        // Neighbours that touch in twips touch in pixels.
        QCOMPARE(rectFromTwips(8, 0, 22, 15).right() + 1, rectFromTwips(30, 0, 22, 15).left());
    }
};

static Registered<FilesTest> registered;

#include "files_test.moc"
