#include "settings/backup_rules.h"

#include "../support/run_all.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestBackupRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void completion_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("completed");
        QTest::newRow("folder") << u"/new/sub"_s << u"/new/sub/lunq.mdb"_s;
        QTest::newRow("folder with separator") << u"/bak/"_s << u"/bak/lunq.mdb"_s;
        QTest::newRow("complete") << u"/bak/lunq.mdb"_s << u"/bak/lunq.mdb"_s;
        QTest::newRow("only ends like it") << u"/bak/mylunq.mdb"_s << u"/bak/mylunq.mdb/lunq.mdb"_s;
        QTest::newRow("root") << u"/"_s << u"/lunq.mdb"_s;
        QTest::newRow("blank at the end") << u"/bak "_s << u"/bak /lunq.mdb"_s;
        QTest::newRow("nothing") << u""_s << u""_s;
    }
    void completion() {
        QFETCH(QString, typed);
        QTEST(completedBackupPath(typed), "completed");
    }

    void folders_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("folders");
        QTest::newRow("chain") << u"/a/b/lunq.mdb"_s << QStringList{u"/"_s, u"/a/"_s, u"/a/b/"_s};
        QTest::newRow("root") << u"/lunq.mdb"_s << QStringList{u"/"_s};
        QTest::newRow("none") << u"lunq.mdb"_s << QStringList{};
        QTest::newRow("ten levels") << u"/1/2/3/4/5/6/7/8/9/lunq.mdb"_s << QStringList{u"/"_s,
                                                                                       u"/1/"_s,
                                                                                       u"/1/2/"_s,
                                                                                       u"/1/2/3/"_s,
                                                                                       u"/1/2/3/4/"_s,
                                                                                       u"/1/2/3/4/5/"_s,
                                                                                       u"/1/2/3/4/5/6/"_s,
                                                                                       u"/1/2/3/4/5/6/7/"_s,
                                                                                       u"/1/2/3/4/5/6/7/8/"_s,
                                                                                       u"/1/2/3/4/5/6/7/8/9/"_s};
    }
    void folders() {
        QFETCH(QString, path);
        QTEST(folderPrefixes(path), "folders");
    }

    void faults() {
        QTemporaryDir home;
        const QString catalogue = home.filePath(u"lunq.mdb"_s);
        QVERIFY(QDir(home.path()).mkpath(u"bak/lunq.mdb"_s));
        QVERIFY(QFile::link(home.path(), home.filePath(u"link"_s)));
        QCOMPARE(backupPathFault(home.filePath(u"other/lunq.mdb"_s), catalogue), QString());
        for (const QString& path : {u"bak/lunq.mdb"_s, u"D:\\bak\\lunq.mdb"_s, u"~/bak/lunq.mdb"_s})
            QVERIFY2(backupPathFault(path, catalogue).contains(u"不完整"_s), qPrintable(path));
        QFile file(catalogue);
        QVERIFY(file.open(QIODevice::WriteOnly) && QFile::link(catalogue, home.filePath(u"other.mdb"_s)));
        for (const QString& path : {catalogue, home.filePath(u"other.mdb"_s), home.path() + u"//lunq.mdb"_s,
                                    home.path() + u"/bak/../lunq.mdb"_s, home.filePath(u"link/lunq.mdb"_s)})
            QVERIFY2(backupPathFault(path, catalogue).contains(u"数据库本身"_s), qPrintable(path));
        QVERIFY(backupPathFault(home.filePath(u"bak/lunq.mdb"_s), catalogue).contains(u"是一个文件夹"_s));
    }

    void quoting_data() {
        QTest::addColumn<QString>("text");
        for (const char* text : {"plain", "two blanks  here", "it's", "''", "$HOME `id` $(id)", "a\"b\\c", "-n",
                                 "*?[a]", "图册 备份", "a\nb", "%1 %2", "&;|<>#!"})
            QTest::newRow(text) << QString::fromUtf8(text);
    }
    void quoting() {
        QFETCH(QString, text);
        QProcess shell;
        shell.start(u"/bin/sh"_s, {u"-c"_s, u"printf '%s' "_s + shellQuoted(text)});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), text);
    }
};

const Registered<TestBackupRules> registered;

}  // namespace

#include "backup_rules_test.moc"
