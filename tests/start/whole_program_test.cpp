#include "../support/sample_catalogue.h"
#include "platform/base/file_lock.h"

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

/// The program itself, beside a catalogue in a folder of its own; a hand works in it (see working_hand.cpp).
class TestWholeProgram : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;

    QString file(const QString& name) const { return folder_.filePath(name); }

    void putCatalogue(const QString& name) const {
        QDir().mkpath(QFileInfo(file(name)).path());
        SampleCatalogue sample;
        mekTp::catalogue = {};
        QVERIFY(QFile::copy(sample.file(u"lunq.mdb"_s), file(name)));
    }

    void start(QProcess& program) const { program.start(file(u"lunq"_s), {}); }

    /// The next line that the hand prints.
    static QString lineOf(QProcess& program) {
        while (!program.canReadLine() && program.waitForReadyRead()) {
        }
        return QString::fromUtf8(program.readLine()).trimmed();
    }

    QString shell(const QString& sql) const {
        QProcess shell;
        shell.start(u"sqlite3"_s, {file(u"lunq.mdb"_s), sql});
        shell.waitForFinished();
        return QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError()).trimmed();
    }

  private Q_SLOTS:
    void initTestCase() {
        const QString program = qEnvironmentVariable("LUNQ_WORKED");
        QVERIFY2(QFileInfo(program).isExecutable(), "LUNQ_WORKED names no program");
        // A program takes the folder of its file for its own: no link but a second name will do.
        if (::link(qPrintable(program), qPrintable(file(u"lunq"_s))) != 0)
            QVERIFY(QFile::copy(program, file(u"lunq"_s)));
    }
    void cleanup() {
        for (const QString& name : {u"lunq.mdb"_s, u"fresh/lunq.mdb"_s}) QFile::remove(file(name));
    }

    /// Its own lock on the catalogue is not in the way of the engine, and is there until it ends.
    void readsAndWritesUnderItsOwnLock() {
        putCatalogue(u"lunq.mdb"_s);
        QCOMPARE(shell(u"SELECT 显示标签 FROM tcsz"_s), u"0"_s);
        QProcess program;
        start(program);
        const QString read = lineOf(program);
        QVERIFY2(read.startsWith(u"read: 全部 共10张"), qPrintable(read));
        QCOMPARE(shell(u"SELECT 显示标签 FROM tcsz"_s), u"1"_s);
        QCOMPARE(FileLock().take(file(u"lunq.mdb"_s)), FileLock::Outcome::heldByAnother);

        QProcess second;
        start(second);
        QVERIFY(lineOf(second).contains(u"已在运行"));
        QVERIFY(second.waitForFinished());

        program.closeWriteChannel();
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(program.readAll()), QString());
        QCOMPARE(FileLock().take(file(u"lunq.mdb"_s)), FileLock::Outcome::taken);
        QCOMPARE(shell(u"PRAGMA integrity_check"_s), u"ok"_s);
    }

    void tellsWhyItHasNoWindows() {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"no-such-platform"_s);
        program.setProcessEnvironment(environment);
        start(program);
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitCode(), 69);
        QVERIFY(QString::fromUtf8(program.readAllStandardError()).contains(u"览忆集苑不能打开窗口"));
    }

    /// One that was not there before.
    void locksTheCatalogueThatItHasPlaced() {
        putCatalogue(u"fresh/lunq.mdb"_s);
        QProcess program;
        start(program);
        const QString read = lineOf(program);
        QVERIFY2(read.startsWith(u"read: "), qPrintable(read));
        QCOMPARE(FileLock().take(file(u"lunq.mdb"_s)), FileLock::Outcome::heldByAnother);
        program.closeWriteChannel();
        QVERIFY(program.waitForFinished());
    }
};

const Registered<TestWholeProgram> registered;

#include "whole_program_test.moc"
