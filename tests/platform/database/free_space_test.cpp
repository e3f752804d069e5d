#include "platform/database/file/free_space.h"

#include "../../support/failing_disk.h"
#include "platform/database/file/connection.h"
#include "test_album.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 pictureLength = 3000000;
constexpr int pictures = 10;

QByteArray picture(int number) {
    return QByteArray(pictureLength, char('a' + number));
}

/// What deleted pictures took is the disk's again.
class FreeSpaceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestAlbum> album_;

    qint64 length() const { return QFileInfo(album_->path()).size(); }
    bool isShort() const { return length() < 2 * pictureLength; }
    FreeSpace space() const { return freeSpace(Connection::open(album_->path())->handle()); }

  private Q_SLOTS:
    void init() {
        album_ = std::make_unique<TestAlbum>();
        Transaction together(album_->database);
        for (int i = 0; i < pictures; ++i) album_->add(100 + i, u"p"_s, u"2003-10-02"_s, picture(i));
        together.commit();
        QVERIFY(length() > pictures * pictureLength);
    }

    void droppedAlbumAtTheEndOfAChange() {
        Transaction together(album_->database);
        album_->database.Execute(u"DROP TABLE tc01"_s);
        QVERIFY(!isShort());
        together.commit();
        QVERIFY(isShort());
        QCOMPARE(album_->shell(u"PRAGMA auto_vacuum; PRAGMA integrity_check"_s), u"2\nok"_s);
    }

    void singleRecordsInTheNextPause() {
        Recordset set = album_->database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 >= 100 ORDER BY [序号]"_s);
        for (; !set.Eof(); set.MoveNext())
            if (set.Fields(u"序号"_s).Value().toInteger() != 100 + pictures - 1) set.Delete();
        QVERIFY(!isShort());
        QVERIFY(space().pages > space().pagesToMove && space().pagesToMove >= pictureLength / 16384);
        QTRY_VERIFY(isShort());  // the last picture has moved to the front
        QCOMPARE(album_->database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(99 + pictures))
                     .Fields(u"图片"_s)
                     .Value()
                     .toBytes(),
                 picture(pictures - 1));
        QCOMPARE(album_->shell(u"PRAGMA integrity_check"_s), u"ok"_s);
    }

    /// Small pages, so that there are many. More used pages are behind the free ones than are moved in one go.
    void muchIsMovedInSteps() {
        album_->database = {};
        album_->shell(u"PRAGMA page_size = 512; VACUUM"_s);
        album_->database = OpenDatabase(album_->path());
        album_->database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = 100"_s).Delete();
        QVERIFY(space().pagesToMove > 4096 && space().pages > 256);
        for (int pause = 0; pause < 50 && space().pages > 256; ++pause)
            Connection::open(album_->path())->giveBackSpace();
        QVERIFY(length() < (pictures - 1) * pictureLength + pictureLength / 2);
        QCOMPARE(album_->database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = 109"_s)
                     .Fields(u"图片"_s)
                     .Value()
                     .toBytes(),
                 picture(9));
        QCOMPARE(album_->shell(u"PRAGMA auto_vacuum; PRAGMA integrity_check"_s), u"2\nok"_s);
    }

    /// Without room for what the engine keeps meanwhile, all stays as it is until there is.
    void diskThatFailsMeanwhile() {
        album_->database = {};
        FailingDisk disk;
        const auto closed = qScopeGuard([this] { album_.reset(); });
        album_->database = OpenDatabase(album_->path());
        Recordset set = album_->database.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 >= 101"_s);
        for (; !set.Eof(); set.MoveNext()) set.Delete();
        const auto connection = Connection::open(album_->path());
        disk.writing = {SQLITE_FULL, ENOSPC};
        QVERIFY(failsSaying([&] { connection->giveBackSpace(); }, {u"磁盘已满"_s}));
        QVERIFY(!isShort());
        disk.writing = {};
        connection->giveBackSpace();
        QTRY_VERIFY(isShort());
        QCOMPARE(album_->shell(u"PRAGMA auto_vacuum; PRAGMA integrity_check"_s), u"2\nok"_s);
    }

    void endedWhileTheFileWasMadeShorter() {
        album_->database = {};
        album_->shell(u"PRAGMA auto_vacuum = FULL"_s);
        album_->database = OpenDatabase(album_->path());
        album_->database.Execute(u"DELETE FROM tc01 WHERE 序号 = 100"_s);
        QCOMPARE(album_->shell(u"PRAGMA auto_vacuum"_s), u"2"_s);
    }

    void filesThatKeepNoMap() {
        const QString path = album_->folder.filePath(u"other.mdb"_s);
        album_->shell(
            u"ATTACH '%1' AS o; CREATE TABLE o.t (a BLOB); INSERT INTO o.t VALUES (zeroblob(9000000)); DELETE FROM o.t"_s
                .arg(path));
        const FreeSpace other = freeSpace(Connection::open(path)->handle());
        QVERIFY(other.pages == 0 && other.pagesToMove == 0);
    }
};

const Registered<FreeSpaceTest> registered;

}  // namespace

#include "free_space_test.moc"
