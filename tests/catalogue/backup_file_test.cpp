#include "catalogue/backup_file.h"

#include "../support/damage.h"
#include "../support/sample_catalogue.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList pathsOf(const QList<BackupFile>& files) {
    QStringList paths;
    for (const BackupFile& one : files) paths << one.path;
    return paths;
}

class TestBackupFile : public QObject {
    Q_OBJECT

    /// Five of one catalogue, numbered against their dates; one of another, one of nobody knows which.
    const QList<BackupFile> older{{u"e"_s, u"mine"_s, 5, QDateTime({2020, 1, 1}, {}), 10},
                                  {u"x"_s, u"other"_s, 1, {}, 100},
                                  {u"b"_s, u"mine"_s, 2, QDateTime({2031, 1, 1}, {}), 20},
                                  {u"a"_s, u"mine"_s, 1, QDateTime({2026, 1, 1}, {}), 30},
                                  {u"?"_s, {}, 0, {}, 100},
                                  {u"c"_s, u"mine"_s, 3, {}, 10},
                                  {u"d"_s, u"mine"_s, 4, {}, 10}};

  private Q_SLOTS:
    void surplus() {
        for (const auto& [catalogue, keep, gone] : {std::tuple{u"mine"_s, 3, u"a,b"_s},
                                                    {u"mine"_s, 5, u""_s},
                                                    {u"mine"_s, 0, u"a,b,c,d,e"_s},
                                                    {u"other"_s, 3, u""_s},
                                                    {u""_s, 0, u""_s}})
            QCOMPARE(pathsOf(surplusBackups(older, catalogue, keep)).join(u','),
                     catalogue.isEmpty() ? QString() : gone);
    }

    /// The oldest first, no more than needed, and none where it would be for nothing.
    void room() {
        for (const auto& [needed, free, gone] : {std::tuple{50, 60, u""_s},
                                                 {50, 50, u""_s},
                                                 {50, 49, u"a"_s},
                                                 {80, 40, u"a,b"_s},
                                                 {120, 40, u"a,b,c,d,e"_s},
                                                 {121, 40, u""_s}})
            QCOMPARE(pathsOf(makingWay(older, u"mine"_s, needed, free)).join(u','), gone);
    }

    void filesInAFolder() {
        const SampleCatalogue sample;
        mekTp::openCatalogue();
        giveIdentity(mekTp::catalogue);
        const QString id = identityOf(mekTp::catalogue), newest = sample.file(u"bak/lunq.mdb"_s);
        giveIdentity(mekTp::catalogue);
        QVERIFY(!id.isEmpty() && identityOf(mekTp::catalogue) == id);
        QVERIFY(QDir(sample.folder()).mkdir(u"bak"_s));
        behindTheBack(mekTp::cataloguePath(), u"VACUUM INTO '%1'"_s.arg(newest));
        QVERIFY(QFile::setPermissions(newest, QFile::ReadOwner));
        QFile(sample.file(u"bak/lunq-2026-01-01-0000.mdb"_s)).open(QIODevice::WriteOnly);  // not a catalogue
        const QDateTime time({2026, 3, 4}, {5, 6});
        const QString dated = datedPath(newest, time);
        QCOMPARE(dated, sample.file(u"bak/lunq-2026-03-04-0506.mdb"_s));
        QVERIFY(QFile::copy(newest, dated));
        QCOMPARE(datedPath(newest, time), sample.file(u"bak/lunq-2026-03-04-0506-2.mdb"_s));
        const QList<BackupFile> all = backupsBeside(newest, true);
        QCOMPARE(pathsOf(all), QStringList({newest, dated}));
        QCOMPARE(all.first().catalogue, id);
        QCOMPARE(all.first().albums, 3);
        QCOMPARE(all.first().pictures, 13);
    }
};

const Registered<TestBackupFile> registered;

}  // namespace

#include "backup_file_test.moc"
