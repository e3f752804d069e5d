#include "start/first_catalogue.h"

#include "../support/run_all.h"
#include "../support/test_files.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

using namespace Qt::Literals::StringLiterals;

/// The shipped catalogue comes where none is, and never in the place of another one.
class TestFirstCatalogue : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder_;

    QString file(const QString& name) const { return folder_->filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const { writeFile(file(name), bytes); }
    QByteArray catalogue() const { return contentOf(file(u"lunq.mdb"_s), "(none)"); }

  private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        setProgramFolder(folder_->path());
        QVERIFY(QDir(folder_->path()).mkdir(u"fresh"_s));
        write(u"fresh/lunq.mdb"_s, "fresh");
    }
    void cleanup() { setProgramFolder({}); }

    void comesWhereNoneIs() {
        QFile::setPermissions(file(u"fresh/lunq.mdb"_s), QFile::ReadOwner);
        write(u"lunq.mdb.part"_s, "somebody's");
        placeFirstCatalogue();
        QCOMPARE(catalogue(), QByteArray("fresh"));
        QVERIFY(QFileInfo(file(u"lunq.mdb"_s)).permissions() & QFile::WriteOwner);
        QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), (QStringList{u"lunq.mdb"_s, u"lunq.mdb.part"_s}));
    }

    void leavesTheOneThatIsThere() {
        write(u"lunq.mdb"_s, "mine");
        placeFirstCatalogue();
        QCOMPARE(catalogue(), QByteArray("mine"));
    }

    void leavesALinkToAnotherDiskThatIsNotMounted() {
        QVERIFY(QFile::link(file(u"away/lunq.mdb"_s), file(u"lunq.mdb"_s)));
        placeFirstCatalogue();
        QVERIFY(QFileInfo(file(u"lunq.mdb"_s)).isSymLink());
        QVERIFY(!QFile::exists(file(u"away/lunq.mdb"_s)));
    }

    void staysAwayFromAJournal() {
        write(u"lunq.mdb-journal"_s, "the way back");
        QVERIFY_THROWS_EXCEPTION(Error, placeFirstCatalogue());
        QCOMPARE(catalogue(), QByteArray("(none)"));
        write(u"lunq.mdb-journal"_s, "");
        placeFirstCatalogue();
        QCOMPARE(catalogue(), QByteArray("fresh"));
    }

    void needsNoShippedOne() {
        QVERIFY(QFile::remove(file(u"fresh/lunq.mdb"_s)));
        placeFirstCatalogue();
        QCOMPARE(catalogue(), QByteArray("(none)"));
    }
};

const Registered<TestFirstCatalogue> registered;

#include "first_catalogue_test.moc"
