#include "../support/sample_catalogue.h"
#include "platform/base/files.h"
#include "settings/backup/backup_files.h"

#include <SQLiteCpp/Database.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Outcome {
    int status;
    QString said;
};

Outcome outcomeOf(QProcess& process) {
    process.waitForFinished(60000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardError() + process.readAllStandardOutput())};
}

Outcome run(const QString& script, const QStringList& arguments = {}) {
    QProcess process;
    process.start(u"/bin/sh"_s, QStringList{script} + arguments);
    return outcomeOf(process);
}

/// A record of tc02 that tells in 备注 how long its picture is.
void addPicture(int number, int bytes) {
    addRow(u"tc02"_s, {{u"序号"_s, number},
                       {u"图片"_s, QByteArray(bytes, char('a' + number % 26))},
                       {u"备注"_s, QString::number(bytes)}});
}

/// What is wrong with a copy; nothing when it is sound and each of its records is whole.
QString faultOf(const QString& path) {
    const std::string check = SQLite::Database(path.toStdString()).execAndGet("PRAGMA integrity_check").getString();
    if (check != "ok") return QString::fromStdString(check);
    int expected = 1;
    for (Recordset album = OpenDatabase(path).OpenRecordset(u"SELECT * FROM tc02 ORDER BY [序号]"_s); !album.Eof();
         album.MoveNext(), ++expected) {
        const Field picture = album.Fields(u"图片"_s);
        const qint64 length = album.Fields(u"备注"_s).Value().toInteger();
        const char letter = char('a' + expected % 26);
        if (album.Fields(u"序号"_s).Value().toInteger() != expected) return u"record %1 is missing"_s.arg(expected);
        if (picture.FieldSize() != length || picture.GetChunk(length - 1, 1) != QByteArray(1, letter))
            return u"picture %1 is not whole"_s.arg(expected);
    }
    return {};
}

int picturesIn(const QString& path) {
    return OpenDatabase(path).OpenRecordset(u"tc02"_s).rowCount();
}

/// A catalogue with its two scripts. `name` is that of the backup folder.
class Backup {
  public:
    explicit Backup(const QString& name = u"bak"_s) : places(placesOfBackup(sample.file(name + u"/lunq.mdb"_s))) {
        makeBackupFolders(places.backup);
        writeBackupScripts(places);
    }

    Outcome bf() const { return run(backupScriptPath()); }
    Outcome hf() const { return run(restoreScriptPath(places.backup)); }

    /// Restores with an `mv` that first does something of its own.
    Outcome hfWithMv(const QByteArray& first) const {
        const QString folder = sample.file(u"commands"_s);
        const QString mv = folder + u"/mv"_s;
        QDir().mkpath(folder);
        writeFile(mv, "#!/bin/sh\nfor to; do :; done\n" + first + "\nexec /bin/mv \"$@\"\n");
        QFile::setPermissions(mv, QFile::ReadOwner | QFile::ExeOwner);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, folder + u':' + environment.value(u"PATH"_s));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(u"/bin/sh"_s, {restoreScriptPath(places.backup)});
        return outcomeOf(process);
    }

    void closeCatalogue() { mekTp::catalogue = {}; }

    /// Makes a backup of the catalogue, which then takes in a picture more and is closed.
    bool makeAndGoOn() const {
        const bool done = bf().status == 0;
        addPicture(1, 1000);
        mekTp::catalogue = {};
        return done;
    }
    QStringList filesBesideBackup() const { return QFileInfo(places.backup).dir().entryList(QDir::Files); }

    SampleCatalogue sample;
    BackupPlaces places;
};

const QStringList copyAndScript{u"hf.sh"_s, u"lunq.mdb"_s};

/// Whether a script has ended well; tells what it has said otherwise.
bool succeeds(const Outcome& outcome) {
    if (outcome.status != 0) qWarning("%s", qPrintable(outcome.said));
    return outcome.status == 0;
}

/// Whether a script has refused its work with these words.
bool refuses(const Outcome& outcome, const QString& words) {
    const bool refused = outcome.status == 1 && outcome.said.contains(words);
    if (!refused) qWarning("%d %s", outcome.status, qPrintable(outcome.said));
    return refused;
}

class TestBackupRun : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void manyBackupsWhilePicturesComeIn() {
        Backup backup;
        // Large enough for several steps of a copy, so that some of them begin anew.
        int number = 0;
        while (number < 8) addPicture(++number, 1'000'000);
        int growing = 0, before = 0;
        for (int i = 0; i < 20; ++i) {
            QProcess process;
            process.start(u"/bin/sh"_s, {backupScriptPath()});
            do addPicture(number + 1, 2'000 + 1'919 * (number % 13)), ++number;
            while (!process.waitForFinished(0) && process.state() != QProcess::NotRunning);
            QVERIFY(succeeds(outcomeOf(process)));
            QCOMPARE(faultOf(backup.places.backup), QString());
            const int now = picturesIn(backup.places.backup);
            QVERIFY(now >= before && now <= number);
            growing += now > before ? 1 : 0;
            before = now;
        }
        QVERIFY(growing > 10);
        QCOMPARE(backup.filesBesideBackup(), copyAndScript);
    }

    void restoreBringsTheAlbumBack() {
        for (const QString& folder : {u"bak"_s, u"我的 \"备份\" it's $HOME `id` \\n *"_s, u"-n"_s}) {
            Backup backup(folder);
            addPicture(1, 50'000);
            QCOMPARE(backup.bf().status, 0);
            addPicture(2, 50'000);
            mekTp::catalogue.Execute(u"DROP TABLE [tc01]"_s);
            backup.closeCatalogue();
            QVERIFY(succeeds(backup.hf()));
            QCOMPARE(picturesIn(backup.places.catalogue), 1);
            QCOMPARE(faultOf(backup.places.catalogue), QString());
            QCOMPARE(OpenDatabase(backup.places.catalogue).OpenRecordset(u"tc01"_s).rowCount(), 10);
            QVERIFY(!QFile::exists(backup.places.lock));

            // Also when the catalogue is lost altogether.
            QVERIFY(QFile::remove(backup.places.catalogue));
            QCOMPARE(backup.hf().status, 0);
            QCOMPARE(faultOf(backup.places.catalogue), QString());
        }
    }

    void programInAnAwkwardFolder() {
        const SampleCatalogue sample;
        const QString folder = sample.file(u"程序 it's \"$HOME\" `id`"_s);
        QVERIFY(QDir().mkpath(folder + u"/bak"_s));
        mekTp::catalogue = {};
        QVERIFY(QFile::copy(mekTp::cataloguePath(), folder + u"/lunq.mdb"_s));
        QVERIFY(QFile::link(QCoreApplication::applicationDirPath() + u"/lunq-backup"_s, folder + u"/copier"_s));
        const BackupPlaces places{folder + u"/copier"_s, folder + u"/lunq.mdb"_s, folder + u"/lunq.lock"_s,
                                  folder + u"/bak/lunq.mdb"_s};
        for (const QString& script : {backupScript(places), restoreScript(places)}) {
            const QString path = sample.file(u"script.sh"_s);
            writeFile(path, script.toUtf8());
            QVERIFY(succeeds(run(path)));
        }
        QCOMPARE(faultOf(places.catalogue), QString());
        QCOMPARE(faultOf(places.backup), QString());
    }

    void withoutItsOwnCopierTheShellOfTheEngineCopies() {
        Backup backup(u"it's $HOME"_s);
        backup.places.copier += u"-missing"_s;
        writeBackupScripts(backup.places);
        addPicture(1, 50'000);
        QVERIFY(succeeds(backup.bf()));
        QCOMPARE(faultOf(backup.places.backup), QString());
        QCOMPARE(picturesIn(backup.places.backup), 1);
        QCOMPARE(backup.filesBesideBackup(), copyAndScript);
    }

    void failedBackupKeepsTheOlderOne() {
        for (const bool ownCopier : {true, false}) {
            Backup backup;
            if (!ownCopier) backup.places.copier += u"-missing"_s;
            writeBackupScripts(backup.places);
            QCOMPARE(backup.bf().status, 0);
            backup.closeCatalogue();
            writeFile(backup.places.catalogue, QByteArray(100'000, 'x'));
            QVERIFY(refuses(backup.bf(), backup.places.backup));
            QVERIFY(QFile::remove(backup.places.catalogue));
            QVERIFY(refuses(backup.bf(), u"不存在，没有备份"_s));
            QCOMPARE(faultOf(backup.places.backup), QString());
            QCOMPARE(backup.filesBesideBackup(), copyAndScript);
            QVERIFY(!QFile::exists(backup.places.catalogue));
        }
    }

    void goodBackupDoesNotMakeWayForADamagedCatalogue() {
        for (const bool ownCopier : {true, false}) {
            Backup backup;
            if (!ownCopier) backup.places.copier += u"-missing"_s;
            writeBackupScripts(backup.places);
            addPicture(1, 100'000);
            QVERIFY(succeeds(backup.bf()));
            backup.closeCatalogue();
            QFile catalogue(backup.places.catalogue);
            QVERIFY(catalogue.open(QIODevice::ReadWrite) && catalogue.seek(catalogue.size() - 3 * 16384));
            catalogue.write(QByteArray(3 * 16384, '\xff'));
            catalogue.close();
            QVERIFY(refuses(backup.bf(), u"有损坏的地方，没有备份"_s));
            QCOMPARE(picturesIn(backup.places.backup), 1);
            QCOMPARE(faultOf(backup.places.backup), QString());
            QCOMPARE(backup.filesBesideBackup(), copyAndScript);
        }
    }

    void backupsTakeTurns() {
        const Backup backup;
        QLockFile other(backup.places.backup + u".lock"_s);
        QVERIFY(other.tryLock());
        QVERIFY(refuses(backup.bf(), u"另一次备份正在进行"_s));
        other.unlock();
        // What a backup that was cut off has left behind is in nobody's way.
        writeFile(backup.places.backup + u".new"_s, QByteArray(1000, 'x'));
        QCOMPARE(backup.bf().status, 0);
        QCOMPARE(backup.filesBesideBackup(), copyAndScript);
    }

    void catalogueIsNeverItsOwnBackup() {
        Backup backup;
        backup.places.backup = backup.sample.file(u"bak/../lunq.mdb"_s);
        writeFile(backupScriptPath(), backupScript(backup.places).toUtf8());
        QVERIFY(refuses(backup.bf(), u"图册数据库本身"_s));
        addPicture(1, 1000);
        backup.closeCatalogue();
        QCOMPARE(picturesIn(backup.places.catalogue), 1);
    }

    void noRestoreWhileTheProgramRuns() {
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        QLockFile lock(backup.places.lock);
        QVERIFY(lock.tryLock());
        QVERIFY(refuses(backup.hf(), u"软件正在运行"_s));
        QCOMPARE(picturesIn(backup.places.catalogue), 1);
        lock.unlock();
        QCOMPARE(backup.hf().status, 0);
        QCOMPARE(picturesIn(backup.places.catalogue), 0);
    }

    void lockLeftBehindIsNoObstacle() {
        const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
        const QByteArray here = QSysInfo::machineHostName().toLocal8Bit();
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        for (const QByteArray& lock : {"1073741823\nlunq\n" + here + '\n',  // of a program that has ended
                                       own + "\nlunq\n" + here + '\n',      // whose number another one has by now
                                       own + "\ntest_settings\nelsewhere\n", QByteArray("\n\n"), QByteArray()}) {
            writeFile(backup.places.lock, lock);
            QVERIFY(succeeds(backup.hf()));
            QVERIFY(!QFile::exists(backup.places.lock));
        }
    }

    void journalOfTheReplacedCatalogueGoes() {
        Backup backup;
        QCOMPARE(backup.bf().status, 0);
        addPicture(1, 300'000);
        // The journal of a change that was cut off: it would undo that change in whatever stands beside it.
        QByteArray journal;
        {
            const Transaction cutOff(mekTp::catalogue);
            addPicture(2, 30'000'000);
            QFile file(backup.places.catalogue + u"-journal"_s);
            QVERIFY(file.open(QIODevice::ReadOnly));
            journal = file.readAll();
        }
        backup.closeCatalogue();
        QVERIFY(journal.size() > 512);
        writeFile(backup.places.catalogue + u"-journal"_s, journal);
        QCOMPARE(backup.hf().status, 0);
        QCOMPARE(faultOf(backup.places.catalogue), QString());
        QCOMPARE(picturesIn(backup.places.catalogue), 0);
        QVERIFY(!QFile::exists(backup.places.catalogue + u"-journal.old"_s));
    }

    void badBackupIsNotRestored() {
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        QFile copy(backup.places.backup);
        QVERIFY(copy.resize(copy.size() - 1));
        QVERIFY(refuses(backup.hf(), u"不完整，没有恢复"_s));
        for (const QByteArray& content : {QByteArray(100'000, 'x'), QByteArray("")}) {
            writeFile(backup.places.backup, content);
            QVERIFY(refuses(backup.hf(), u"不是图册数据库，没有恢复"_s));
        }
        QVERIFY(copy.remove());
        QVERIFY(refuses(backup.hf(), u"不是图册数据库，没有恢复"_s));
        QCOMPARE(picturesIn(backup.places.catalogue), 1);
        QCOMPARE(faultOf(backup.places.catalogue), QString());
        QVERIFY(!QFile::exists(backup.places.lock));
    }

    void restoredFromAReadOnlyMedium() {
        Backup backup;
        QCOMPARE(backup.bf().status, 0);
        backup.closeCatalogue();
        QVERIFY(QFile::setPermissions(backup.places.backup, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
        QCOMPARE(backup.hf().status, 0);
        QVERIFY(QFile::permissions(backup.places.catalogue).testFlag(QFile::WriteOwner));
    }

    // A restore that is cut off before the catalogue is replaced leaves it its journal.
    void interruptedRestoreKeepsTheJournal() {
        for (const auto& [signal, replaced] :
             {std::pair{QByteArray("case $to in *lunq.mdb) kill -TERM $PPID; exit 1 ;; esac"), false},
              {QByteArray("case $to in *lunq.mdb) kill -TERM $PPID ;; esac"), true}}) {
            Backup backup;
            QVERIFY(backup.makeAndGoOn());
            const QString journal = backup.places.catalogue + u"-journal"_s;
            writeFile(journal, "left");
            QCOMPARE(backup.hfWithMv(signal).status, 1);
            QCOMPARE(QFile::exists(journal), !replaced);
            QVERIFY(!QFile::exists(backup.places.lock) && !QFile::exists(backup.places.catalogue + u".restore"_s));
            QFile::remove(journal);
            QCOMPARE(picturesIn(backup.places.catalogue), replaced ? 0 : 1);
        }
    }

    // Between the look at a lock that was left behind and its removal the program is opened.
    void lockTakenAtTheLastMomentStays() {
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        const QByteArray here = QSysInfo::machineHostName().toLocal8Bit();
        const QByteArray own =
            QByteArray::number(QCoreApplication::applicationPid()) + "\\ntest_settings\\n" + here + "\\n";
        writeFile(backup.places.lock, "1073741823\nlunq\n" + here + '\n');
        const Outcome outcome = backup.hfWithMv("case $to in *lunq.lock.*) printf '" + own + "' >\"$2\" ;; esac");
        QVERIFY2(outcome.status == 1 && outcome.said.contains(u"软件正在运行"_s), qPrintable(outcome.said));
        QFile lock(backup.places.lock);
        QVERIFY(lock.open(QIODevice::ReadOnly) && lock.readAll().contains("test_settings"));
        QCOMPARE(picturesIn(backup.places.catalogue), 1);
    }

    void restoreAfterFoldersWereMoved() {
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        QDir folder(backup.sample.folder());
        QVERIFY(folder.rename(u"bak"_s, u"搬家"_s) && folder.mkdir(u"程序"_s));
        const QString script = folder.filePath(u"搬家/hf.sh"_s), program = folder.filePath(u"程序"_s);
        QVERIFY(succeeds(run(script)));
        QCOMPARE(picturesIn(backup.places.catalogue), 0);

        // Another folder for the program, named as people name it; its lock counts.
        QVERIFY(QFile::copy(backup.places.catalogue, program + u"/lunq.mdb"_s));
        for (const QString& named : {program, program + u'/', QDir::current().relativeFilePath(program)}) {
            QVERIFY(QFile::remove(program + u"/lunq.mdb"_s));
            QVERIFY(succeeds(run(script, {named})));
            QCOMPARE(faultOf(program + u"/lunq.mdb"_s), QString());
        }
        QLockFile lock(program + u"/lunq.lock"_s);
        QVERIFY(lock.tryLock());
        QVERIFY(refuses(run(script, {program}), u"软件正在运行"_s));
        QVERIFY(refuses(run(script, {program + u"-"_s}), u"“%1-”不存在"_s.arg(program)));

        // A script that was copied beside the catalogue does not take that for its backup.
        QVERIFY(QFile::copy(script, folder.filePath(u"hf.sh"_s)));
        QVERIFY(refuses(run(folder.filePath(u"hf.sh"_s)), u"不存在，或不是图册数据库"_s));
        QCOMPARE(faultOf(backup.places.catalogue), QString());
    }

    void missingProgramFolderIsNamed() {
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        const QString catalogue = std::exchange(backup.places.catalogue, backup.sample.file(u"gone/lunq.mdb"_s));
        backup.places.lock = backup.sample.file(u"gone/lunq.lock"_s);
        writeBackupScripts(backup.places);
        QVERIFY(refuses(backup.hf(), u"软件的文件夹“%1/”不存在，没有恢复"_s.arg(backup.sample.file(u"gone"_s))));
        QVERIFY(succeeds(run(restoreScriptPath(backup.places.backup), {backup.sample.folder()})));
        QCOMPARE(picturesIn(catalogue), 0);
    }

    void resultStandsInTheScript() {
        for (const bool ownCopier : {true, false}) {
            Backup backup;
            if (!ownCopier) backup.places.copier += u"-missing"_s;
            writeBackupScripts(backup.places);
            const auto result = [] { return resultInScript(textOfScript(backupScriptPath())); };
            QCOMPARE(result(), QString());
            for (int i = 0; i < 2; ++i) {
                QVERIFY(succeeds(backup.bf()));
                QVERIFY(tellsOfGoodCopy(result()));
            }
            QCOMPARE(textOfScript(backupScriptPath()), backupScript(backup.places, result()));
            QVERIFY(QFileInfo(backupScriptPath()).isExecutable());
            QVERIFY(QDir(QFileInfo(backup.places.backup).path()).removeRecursively());
            QVERIFY(refuses(backup.bf(), u"不存在，没有备份"_s));
            QVERIFY(!tellsOfGoodCopy(result()) && result().contains(u"不存在，没有备份"_s));
            QCOMPARE(QDir(backup.sample.folder()).entryList({u"bf*"_s}), QStringList(u"bf.sh"_s));
        }
    }

    void killedCopyIsNoGoodOne() {
        Backup backup;
        backup.places.copier = backup.sample.file(u"copier"_s);
        writeFile(backup.places.copier, "#!/bin/sh\nkill -KILL $PPID\n");
        QFile::setPermissions(backup.places.copier, QFile::ReadOwner | QFile::ExeOwner);
        writeBackupScripts(backup.places);
        run(backupScriptPath());
        QVERIFY(resultInScript(textOfScript(backupScriptPath())).endsWith(u"没有做完"_s));
    }

    void failedRestoreKeepsTheCatalogue() {
        Backup backup;
        QVERIFY(backup.makeAndGoOn());
        writeFile(backup.places.catalogue + u"-journal"_s, "left");
        QVERIFY(QDir().mkpath(backup.places.catalogue + u".restore/lunq.mdb"_s));  // in the way of the copy
        QVERIFY(refuses(backup.hf(), u"没有恢复，现有的图册数据库不变"_s));
        QVERIFY(QFile::exists(backup.places.catalogue + u"-journal"_s));
        QVERIFY(QFile::remove(backup.places.catalogue + u"-journal"_s));
        QCOMPARE(picturesIn(backup.places.catalogue), 1);
    }
};

const Registered<TestBackupRun> registered;

}  // namespace

#include "backup_run_test.moc"
