#include "platform/base/unnamed_file.h"

#include "../../support/disk_faults.h"
#include "../../support/failure_of.h"
#include "../../support/run_all.h"
#include "../../support/test_files.h"

#include <sys/stat.h>
#include <sys/wait.h>

using namespace Qt::Literals::StringLiterals;

class TestUnnamedFile : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder_;

    QString file(const QString& name) const { return folder_->filePath(name); }
    QStringList entries() const {
        return QDir(folder_->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }
    QByteArray content(const QString& name) const { return contentOf(file(name), "none"); }
    void write(const QString& name, const QByteArray& bytes) const { writeFile(file(name), bytes); }

  private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void nothingIsSeenBeforeItIsWhole() {
        for (const bool replaces : {false, true}) {
            if (replaces) write(u"图"_s, "old");
            const QStringList before = entries();
            {
                UnnamedFile given(file(u"图"_s));
                given.write("half");
                QCOMPARE(entries(), before);
            }
            QCOMPARE(entries(), before);
            UnnamedFile whole(file(u"图"_s));
            whole.write("wh");
            whole.write("ole");
            if (replaces) QVERIFY(!whole.takeNewName());
            if (replaces) whole.replace();
            if (!replaces) QVERIFY(whole.takeNewName());
            QCOMPARE(entries(), QStringList(u"图"_s));
            QCOMPARE(content(u"图"_s), QByteArray("whole"));
            QVERIFY(QFile::remove(file(u"图"_s)));
        }
    }

    void killedProgramLeavesNothing() {
        const pid_t child = fork();
        if (child == 0) {
            UnnamedFile half(file(u"图"_s));
            half.write("half");
            raise(SIGKILL);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(entries(), QStringList());
    }

    void rightsAreThoseOfOtherFiles() {
        const mode_t mask = umask(0027);
        const auto back = qScopeGuard([mask] { umask(mask); });
        UnnamedFile made(file(u"新"_s));
        QVERIFY(made.takeNewName());
        struct stat rights {};
        QCOMPARE(stat(qPrintable(file(u"新"_s)), &rights), 0);
        QCOMPARE(rights.st_mode & 0777, mode_t(0640));
        QCOMPARE(chmod(qPrintable(file(u"新"_s)), 0604), 0);
        UnnamedFile next(file(u"新"_s));
        next.write("next");
        next.replace();
        QCOMPARE(stat(qPrintable(file(u"新"_s)), &rights), 0);
        QCOMPARE(rights.st_mode & 0777, mode_t(0604));
    }

    /// The link stays, and what it leads to is replaced, also when that is missing.
    void linksAreFollowed() {
        QVERIFY(QDir(folder_->path()).mkdir(u"别处"_s));
        QVERIFY(QFile::link(file(u"别处/图"_s), file(u"链"_s)));
        for (const char* const bytes : {"first", "second"}) {
            UnnamedFile given(file(u"链"_s));
            given.write(bytes);
            QVERIFY(!given.takeNewName());
            given.replace();
            QCOMPARE(content(u"别处/图"_s), QByteArray(bytes));
            QVERIFY(QFileInfo(file(u"链"_s)).isSymLink());
        }
        QCOMPARE(QDir(file(u"别处"_s)).entryList(QDir::Files), QStringList(u"图"_s));
    }

    void failuresNameThePlace() {
        const PlainUser user;
        const QTemporaryDir folder;
        const auto place = [&](const QString& name) { return folder.filePath(name); };
        QVERIFY(QDir(folder.path()).mkpath(u"夹"_s) && QDir(folder.path()).mkpath(u"锁"_s));
        QFile readOnly(place(u"锁.jpg"_s));
        QVERIFY(readOnly.open(QIODevice::WriteOnly) && readOnly.setPermissions(QFile::ReadOwner));
        QCOMPARE(mkfifo(qPrintable(place(u"管"_s)), 0600), 0);
        QVERIFY(QFile::setPermissions(place(u"锁"_s), QFile::ReadOwner | QFile::ExeOwner));
        const QStringList before = QDir(folder.path()).entryList(QDir::AllEntries | QDir::System);
        const std::pair<QString, QString> cases[] = {
            {u"无/图.jpg"_s, u"文件夹不存在"_s},   {u"夹"_s, u"同名的文件夹"_s}, {u"锁.jpg"_s, u"文件是只读的"_s},
            {u"锁/图.jpg"_s, u"文件夹不能写入"_s}, {u"管"_s, u"不是文件"_s},     {QString(300, u'a'), u"名称太长"_s},
        };
        for (const auto& [name, reason] : cases) {
            const QString failure = failureOf([&, &name = name] {
                UnnamedFile given(place(name), u"存不了“%1”：%2！"_s);
                given.write("bytes");
                given.replace();
            });
            QCOMPARE(failure, u"存不了“%1”：%2！"_s.arg(place(name), failure.section(u'：', 1).chopped(1)));
            QVERIFY2(failure.contains(reason), qPrintable(failure));
        }
        const FullDisk full(1000);
        QVERIFY(!failureOf([&] { UnnamedFile(place(u"满"_s)).write(QByteArray(1001, 'x')); }).isEmpty());
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::System), before);
    }

    void othersFilesOfLikeNamesStay() {
        write(u"ls.tmp"_s, "mine");
        write(u"lunq-000000.part"_s, "mine too");
        UnnamedFile given(file(u"图"_s));
        given.replace();
        QCOMPARE(entries(), (QStringList{u"ls.tmp"_s, u"lunq-000000.part"_s, u"图"_s}));
        QCOMPARE(content(u"ls.tmp"_s) + content(u"lunq-000000.part"_s), QByteArray("minemine too"));
    }
};

const Registered<TestUnnamedFile> registered;

#include "unnamed_file_test.moc"
