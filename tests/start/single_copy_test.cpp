#include "start/single_copy.h"

#include "../support/run_all.h"
#include "../support/test_files.h"
#include "platform/base/file_lock.h"

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Done once, when somebody locks a file as `QLockFile` does.
std::function<void()> beforeNextLock;

}  // namespace

/// In the place of the system's own.
extern "C" int flock(int file, int operation) noexcept {
    static const auto real = reinterpret_cast<int (*)(int, int)>(dlsym(RTLD_NEXT, "flock"));
    if (const auto step = std::exchange(beforeNextLock, {})) step();
    return real(file, operation);
}

namespace {

QString ownName() {
    return QFileInfo(QCoreApplication::applicationFilePath()).fileName();
}

QByteArray lockOf(qint64 process, const QString& program, const QString& computer) {
    return u"%1\n%2\n%3\n"_s.arg(process).arg(program, computer).toUtf8();
}

class TestSingleCopy : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder_;

    QString file(const QString& name) const { return folder_->filePath(name); }

  private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        writeFile(file(u"lunq.mdb"_s), "catalogue");
    }

    void secondCopyIsNoticed() {
        auto first = std::make_unique<SingleCopy>(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(first->isOnly() && first->isOnly());
        SingleCopy second(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(!second.isOnly());
        first.reset();
        QVERIFY(second.isOnly());
        QVERIFY(QFile::exists(file(u"lunq.lock"_s)));
    }

    void everyWayToTheFileLeadsToTheLock() {
        QVERIFY(QDir(folder_->path()).mkdir(u"other"_s));
        QVERIFY(QFile::link(file(u"lunq.mdb"_s), file(u"other/symbolic.mdb"_s)));
        QCOMPARE(::link(qPrintable(file(u"lunq.mdb"_s)), qPrintable(file(u"other/hard.mdb"_s))), 0);
        SingleCopy first(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(first.isOnly());
        for (const QString& name : {u"other/symbolic.mdb"_s, u"other/hard.mdb"_s}) {
            SingleCopy second(file(name), file(u"other/lunq.lock"_s));
            QVERIFY2(!second.isOnly(), qPrintable(name));
            QVERIFY(!QFile::exists(file(u"other/lunq.lock"_s)));
        }
    }

    void catalogueThatComesLaterIsLockedToo() {
        QVERIFY(QFile::remove(file(u"lunq.mdb"_s)));
        SingleCopy first(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(first.isOnly());
        for (const char* const content : {"placed", "a backup in its place"}) {
            writeFile(file(u"new"_s), content);
            QCOMPARE(::rename(qPrintable(file(u"new"_s)), qPrintable(file(u"lunq.mdb"_s))), 0);
            QVERIFY(first.isOnly());
            FileLock second;
            QCOMPARE(second.take(file(u"lunq.mdb"_s)), FileLock::Outcome::heldByAnother);
        }
    }

    /// Between the lock on the catalogue and the one beside it.
    void catalogueThatIsReplacedMeanwhileIsLocked() {
        bool isReplaced = false;
        beforeNextLock = [&] {
            writeFile(file(u"new"_s), "a backup in its place");
            isReplaced = ::rename(qPrintable(file(u"new"_s)), qPrintable(file(u"lunq.mdb"_s))) == 0;
        };
        SingleCopy copy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(copy.isOnly() && isReplaced);
        QCOMPARE(FileLock().take(file(u"lunq.mdb"_s)), FileLock::Outcome::heldByAnother);
    }

    void replacedCatalogueIsStillTaken() {
        SingleCopy first(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(first.isOnly());
        writeFile(file(u"new"_s), "a backup in its place");
        QCOMPARE(::rename(qPrintable(file(u"new"_s)), qPrintable(file(u"lunq.mdb"_s))), 0);
        QVERIFY(!SingleCopy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s)).isOnly());
        QVERIFY(first.isOnly());
    }

    void folderWithoutALockIsNoObstacle() {
        SingleCopy copy(file(u"missing/lunq.mdb"_s), file(u"missing/lunq.lock"_s));
        QVERIFY(copy.isOnly());
    }

    void lockLeftBehind() {
        const qint64 own = QCoreApplication::applicationPid();
        const QString here = QSysInfo::machineHostName();
        for (const QByteArray& left : {lockOf(own, ownName(), u"elsewhere"_s), lockOf(0x3fffffff, ownName(), here),
                                       lockOf(own, ownName(), here), lockOf(own, u"another"_s, here), QByteArray()}) {
            writeFile(file(u"lunq.lock"_s), left);
            SingleCopy copy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
            QVERIFY2(copy.isOnly(), left.constData());
            SingleCopy second(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
            QVERIFY2(!second.isOnly(), left.constData());
        }
    }

    /// As on a disc that was written while the program ran: a folder has the name of the lock file.
    void lockThatCannotBeRemovedIsNoObstacle() {
        QVERIFY(QDir(folder_->path()).mkpath(u"lunq.lock/full"_s));
        SingleCopy copy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(copy.isOnly());
        SingleCopy second(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(!second.isOnly());
    }

    /// The script that brings a backup back holds the lock file alone.
    void aRestoreIsWaitedFor() {
        QProcess script;
        script.start(u"sleep"_s, {u"60"_s});
        QVERIFY(script.waitForStarted());
        writeFile(file(u"lunq.lock"_s), lockOf(script.processId(), u"sleep"_s, QSysInfo::machineHostName()));
        SingleCopy copy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(!copy.isOnly());
        script.kill();
        QVERIFY(script.waitForFinished());
        QVERIFY(copy.isOnly());
    }

    void killedCopyLeavesNothingInTheWay() {
        const pid_t child = fork();
        if (child == 0) {
            SingleCopy copy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
            if (copy.isOnly()) raise(SIGKILL);
            _exit(1);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status) && QFile::exists(file(u"lunq.lock"_s)));
        SingleCopy copy(file(u"lunq.mdb"_s), file(u"lunq.lock"_s));
        QVERIFY(copy.isOnly());
    }

    /// Who can only look shares the catalogue with others who look, not with one who writes.
    void readers() {
        if (geteuid() == 0) QCOMPARE(seteuid(65534), 0);
        const auto back = qScopeGuard([] { seteuid(getuid()); });
        QTemporaryDir folder;
        const QString path = folder.filePath(u"lunq.mdb"_s);
        writeFile(path, "catalogue");
        auto writer = std::make_unique<FileLock>();
        QCOMPARE(writer->take(path), FileLock::Outcome::taken);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
        FileLock first, second;
        QCOMPARE(first.take(path), FileLock::Outcome::heldByAnother);
        writer.reset();
        QCOMPARE(first.take(path), FileLock::Outcome::taken);
        QCOMPARE(second.take(path), FileLock::Outcome::taken);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        FileLock late;
        QCOMPARE(late.take(path), FileLock::Outcome::heldByAnother);
        QVERIFY(QFile::setPermissions(path, {}));
        QCOMPARE(FileLock().take(path), FileLock::Outcome::impossible);
    }
};

const Registered<TestSingleCopy> registered;

}  // namespace

#include "single_copy_test.moc"
