#include "jet_files.h"
#include "jet_maker/jet_maker.h"

#include <thread>

using namespace Qt::Literals::StringLiterals;

class ThreadsTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { album_ = std::make_unique<TestAlbum>(); }

    void everyThreadHasAConnectionOfItsOwn() {
        album_->add(1, u""_s, u"2003-10-01"_s, "picture");
        Recordset here = album_->open(u"tc01"_s);
        const StoredValue stored = here.storedAt(0, u"图片"_s);
        QCOMPARE(stored.read(0, 3), QByteArray("pic"));
        QString failure = u"nothing was done"_s;
        std::thread([&] {
            failure = failureOf([&] {
                const Database mine = OpenDatabase(album_->path());
                const Transaction whole(mine);  // never committed
                Recordset there = mine.OpenRecordset(u"tc01"_s);
                changeRow(there, {{u"备注"_s, u"lost"_s}});
            });
        }).join();
        QCOMPARE(failure, QString());
        QVERIFY(here.Fields(u"备注"_s).isNull());
        changeRow(here, {{u"备注"_s, u"kept"_s}});
        QCOMPARE(album_->remark(1), u"kept"_s);
    }

    void aSetSeesWhatAnotherThreadHasStored() {
        album_->add(1, u""_s, u"2003-10-01"_s);
        const Recordset here = album_->open(u"tc01"_s);
        QVERIFY(here.Fields(u"备注"_s).isNull());
        inThread([](Recordset& there) { changeRow(there, {{u"备注"_s, u"new"_s}}); });
        QCOMPARE(here.Fields(u"备注"_s).Value().toText(), u"new"_s);
    }

    /// A record that was read here is deleted and another one added in the thread: neither is taken for the other.
    void identitiesAreGivenOnceInAllThreads() {
        album_->add(1, u""_s, u"2003-10-01"_s);
        album_->add(2, u""_s, u"2003-10-01"_s);
        Recordset here = album_->open(u"SELECT * FROM tc01 ORDER BY 序号"_s);
        here.MoveLast();
        inThread([](Recordset& there) {
            there.MoveLast();
            there.Delete();
        });
        inThread([](Recordset& there) { addRow(there, {{u"序号"_s, 3}}); });
        QVERIFY(failsSaying([&] { here.Fields(u"序号"_s).Value(); }, {u"已被删除"_s}));
    }

    /// The engine's lock of a writer here is not lost while a thread opens the same file, and closes it.
    void aThreadThatOpensTheFileCostsNoLock() {
        const Transaction writing(album_->database);
        std::thread([&] { attempt([&] { OpenDatabase(album_->path()).TableDefs(); }); }).join();
        QVERIFY(album_->shell(u"UPDATE tc01 SET 备注 = 'x'"_s).contains(u"locked"_s));
    }

    void aForeignDatabaseIsReadOnce() {
        const JetFiles files;
        const QString path =
            files.write(u"旧.mdb"_s, jet::database({{u"照片"_s, {{u"Id"_s, jet::Type::longInteger}}, {{1}}}}));
        const Database here = OpenDatabase(path);
        QStringList tables;
        std::thread([&] {
            setJetReader({u"/nothing/reads"_s});
            attempt([&] { tables = OpenDatabase(path).TableDefs(); });
            setJetReader();
        }).join();
        QVERIFY(!tables.isEmpty());
        QCOMPARE(tables, here.TableDefs());
    }

  private:
    void inThread(const std::function<void(Recordset&)>& change) const {
        QString failure;
        std::thread([&] {
            failure = failureOf([&] {
                Recordset there = OpenDatabase(album_->path()).OpenRecordset(u"SELECT * FROM tc01 ORDER BY 序号"_s);
                change(there);
            });
        }).join();
        QCOMPARE(failure, QString());
    }

    std::unique_ptr<TestAlbum> album_;
};

const Registered<ThreadsTest> registered;

#include "threads_test.moc"
