#include "../support/run_all.h"
#include "../support/test_files.h"

using namespace Qt::Literals::StringLiterals;

/// The step that puts the catalogue beside the program, run as the build runs it.
class TestPlaceBeside : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void putsTheCatalogueWhereNoneIs() {
        const QTemporaryDir home;
        const QString folder = place(home);
        QCOMPARE(contentOf(folder + u"/lunq.mdb"_s), QByteArray("fresh"));
        QCOMPARE(contentOf(folder + u"/s1.ico"_s), QByteArray("hand"));
        QCOMPARE(QDir(folder).entryList(QDir::Files).size(), 2);

        // The next time it renews the cursor only.
        writeFile(folder + u"/lunq.mdb"_s, "mine now");
        writeFile(folder + u"/s1.ico"_s, "old hand");
        QCOMPARE(place(home), folder);
        QCOMPARE(contentOf(folder + u"/lunq.mdb"_s), QByteArray("mine now"));
        QCOMPARE(contentOf(folder + u"/s1.ico"_s), QByteArray("hand"));
    }

    void leavesAnExistingCatalogueAlone() {
        for (const QByteArray& bytes : {QByteArray("years of photographs"), QByteArray()}) {
            const QTemporaryDir home;
            const QString path = home.filePath(u"我的 album's/lunq.mdb"_s);
            QVERIFY(QDir(home.path()).mkdir(u"我的 album's"_s));
            writeFile(path, bytes);
            const QDateTime written = QDateTime::currentDateTime().addDays(-400);
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(written, QFileDevice::FileModificationTime));
            file.close();

            QVERIFY(!place(home).isEmpty());
            QCOMPARE(contentOf(path), bytes);
            QCOMPARE(QFileInfo(path).lastModified().toSecsSinceEpoch(), written.toSecsSinceEpoch());
        }
    }

    void stopsWhereAJournalWaitsForItsCatalogue() {
        const QTemporaryDir home;
        const QString path = home.filePath(u"我的 album's/lunq.mdb"_s);
        const QString journal = path + u"-journal"_s;
        QVERIFY(QDir(home.path()).mkdir(u"我的 album's"_s));
        writeFile(journal, "what it needs to be whole");
        QVERIFY(place(home).isEmpty());
        QVERIFY2(said_.contains(path + u" 不见了"_s) && said_.contains(journal), qPrintable(said_));
        QVERIFY(!QFile::exists(path));
        QCOMPARE(contentOf(journal), QByteArray("what it needs to be whole"));

        writeFile(journal, {});
        QVERIFY(!place(home).isEmpty());
        QCOMPARE(contentOf(path), QByteArray("fresh"));
    }

  private:
    /// Runs the step on a folder whose name is as awkward as a user's may be; returns that folder.
    QString place(const QTemporaryDir& home) {
        writeFile(home.filePath(u"fresh.mdb"_s), "fresh");
        writeFile(home.filePath(u"hand.ico"_s), "hand");
        const QString folder = home.filePath(u"我的 album's"_s);
        QProcess process;
        process.start(qEnvironmentVariable("LUNQ_CMAKE"),
                      {u"-DCATALOGUE="_s + home.filePath(u"fresh.mdb"_s), u"-DCURSOR="_s + home.filePath(u"hand.ico"_s),
                       u"-DFOLDER="_s + folder, u"-P"_s, qEnvironmentVariable("LUNQ_PLACE_BESIDE")});
        const bool ended = process.waitForFinished();
        said_ = QString::fromUtf8(process.readAllStandardError()).simplified();
        const bool done = ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        return done ? folder : QString();
    }

    QString said_;  ///< What the step has said.
};

const Registered<TestPlaceBeside> registered;

#include "place_beside_test.moc"
