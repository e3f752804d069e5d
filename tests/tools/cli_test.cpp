#include "../support/failure_of.h"
#include "../support/sample_catalogue.h"
#include "catalogue/backup_file.h"
#include "catalogue/picture_hashes.h"
#include "cli/order.h"
#include "cli/tasks.h"
#include "platform/base/files.h"
#include "platform/database/records/own_values.h"

#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::Literals::StringLiterals;

class TestCli : public OpenedSampleTest {
    Q_OBJECT

    QString said_;

    QString catalogue() const { return sample_->file(u"lunq.mdb"_s); }

    template <typename Task, typename... Words>
    int run(Task task, const Words&... words) {
        said_.clear();
        QTextStream out(&said_);
        return int(task(catalogue(), words..., out));
    }

    void changeFile(const char* sql) const {
        SQLite::Database file(catalogue().toStdString(), SQLite::OPEN_READWRITE);
        file.exec(sql);
    }

  private Q_SLOTS:
    void init() {
        OpenedSampleTest::init();
        PictureHashes hashes(mekTp::catalogue);
        const Recordset rows = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        for (int row = 0; row < 9; ++row)
            hashes.note(rows.storedAt(row, u"图片"_s), fingerprintOf(rows.storedAt(row, u"图片"_s)));
    }

    void words_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("task");
        QTest::addColumn<QString>("rest");
        using enum Order::Task;
        QTest::newRow("help") << u"check --help"_s << int(help) << u"||"_s;
        QTest::newRow("check") << u"--album a.mdb check"_s << int(check) << u"a.mdb||"_s;
        QTest::newRow("option behind") << u"backup b.mdb --album=a=.mdb"_s << int(backup) << u"a=.mdb|b.mdb|"_s;
        QTest::newRow("export") << u"--album a export tc01 dir"_s << int(exportAlbum) << u"a|dir|tc01"_s;
        for (const QString& wrong : {u""_s, u"chek"_s, u"check x"_s, u"backup"_s, u"export tc01"_s, u"check --album"_s})
            QTest::newRow(qPrintable(u"wrong: "_s + wrong)) << wrong << -1 << QString();
    }
    void words() {
        QFETCH(QString, words);
        QFETCH(int, task);
        QFETCH(QString, rest);
        Order order;
        const QString failure = failureOf([&] { order = orderFrom(words.split(u' ', Qt::SkipEmptyParts)); });
        QCOMPARE(failure.isEmpty(), task >= 0);
        if (task < 0) return;
        QCOMPARE(int(order.task), task);
        QCOMPARE((QStringList{order.catalogue, order.target, order.album}).join(u'|'), rest);
    }

    void theAlbumOfTheUserComesFirst() {
        const QByteArray home = qgetenv("HOME");
        const QTemporaryDir folder;
        qputenv("HOME", folder.path().toUtf8());
        QCOMPARE(usualCatalogue(), joinedPath(programFolder(), u"lunq.mdb"_s));
        const QString own = folder.filePath(u"览忆集苑/lunq.mdb"_s);
        QDir().mkpath(QFileInfo(own).path());
        QVERIFY(QFile::copy(catalogue(), own));
        QCOMPARE(usualCatalogue(), own);
        qputenv("HOME", home);
    }

    /// The catalogue is open in this process all the while.
    void checkFindsWhatHasChanged() {
        QCOMPARE(run(checkCatalogue), 0);
        QVERIFY2(said_.contains(u"9 张与收进来时一样，0 张不同或不能读取，4 张还没有登记"), qPrintable(said_));
        changeFile("UPDATE long_binary SET bytes = x'FFD8FF' WHERE id = (SELECT 图片 FROM tc01 WHERE 序号 = 7)");
        QCOMPARE(run(checkCatalogue), 1);
        QVERIFY2(said_.contains(u"《旅行》7：图片变了") && said_.contains(u"8 张与收进来时一样，1 张不同"),
                 qPrintable(said_));
        // One without a fingerprint that cannot be read.
        changeFile("DELETE FROM long_binary WHERE id = (SELECT 图片 FROM tc01 WHERE 序号 = 10)");
        QCOMPARE(run(checkCatalogue), 1);
        QVERIFY2(said_.contains(u"《旅行》10：图片不能读出") && said_.contains(u"2 张不同或不能读取，3 张还没有登记"),
                 qPrintable(said_));
    }

    /// Whatever is left of it.
    void damagedFileIsToldAsDamaged() {
        mekTp::catalogue = {};
        for (const qint64 left : {QFileInfo(catalogue()).size() / 2, qint64(5000)}) {
            QVERIFY(QFile::resize(catalogue(), left));
            QCOMPARE(run(checkCatalogue), 1);
            QVERIFY2(said_.contains(u"有损坏的地方"), qPrintable(said_));
        }
    }

    /// A program that waits to store something gets its turn.
    void checkMakesWayForAWriter() {
        changeFile("INSERT INTO long_binary (bytes) VALUES (zeroblob(200000000))");
        QProcess checking;
        checking.start(qEnvironmentVariable("LUNQ_CLI"), {u"--album"_s, catalogue(), u"check"_s});
        QVERIFY(checking.waitForStarted());
        int stored = 0;
        while (checking.state() != QProcess::NotRunning && stored < 5) {
            changeRow(u"tc01"_s, {{u"备注"_s, QString::number(++stored)}});
            checking.waitForFinished(20);
        }
        QVERIFY(checking.waitForFinished());
        QCOMPARE(checking.exitCode(), 0);
        QVERIFY(stored > 0);
    }

    void backupIsTheWholeAlbum() {
        const QString copy = sample_->file(u"copy.mdb"_s);
        QCOMPARE(run(backUp, copy), 0);
        QCOMPARE(OpenDatabase(copy).OpenRecordset(u"tc01"_s).rowCount(), 10);
        QVERIFY(!failureOf([&] { run(backUp, sample_->file(u"no folder/copy.mdb"_s)); }).isEmpty());
        QCOMPARE(run(backUp, copy), 0);
        QCOMPARE(datedBeside(copy, false).size(), 1);
    }

    void exportWritesWhatIsStored() {
        const QString folder = sample_->file(u"out"_s);
        QCOMPARE(run(exportAlbum, u"旅行"_s, folder), 0);
        const QDir made(folder);
        QCOMPARE(made.entryList(QDir::Files).size(), 10);
        // Once more: all are there. Then one of another content is in the way.
        QCOMPARE(run(exportAlbum, u"tc01"_s, folder), 0);
        writeFile(made.filePath(made.entryList(QDir::Files).first()), "something else");
        QCOMPARE(run(exportAlbum, u"tc01"_s, folder), 1);
        QVERIFY2(said_.contains(u"同名文件已存在") && said_.contains(u"有 10 张图片，9 张"), qPrintable(said_));
        QVERIFY(failureOf([&] { run(exportAlbum, u"没有"_s, folder); }).contains(u"tc01 旅行"));
    }
};

const Registered<TestCli> registered;

#include "cli_test.moc"
