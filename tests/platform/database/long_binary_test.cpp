#include "platform/database/records/field_device.h"
#include "platform/database/records/values_ahead.h"
#include "test_album.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString picture = u"图片"_s;

QByteArray someBytes(qsizetype count, int seed = 1) {
    QByteArray bytes(count, Qt::Uninitialized);
    for (qsizetype i = 0; i < count; ++i) bytes[i] = char((i * 31 + i / 251 + seed) & 0xff);
    return bytes;
}

QByteArray readInChunks(const Field& field, qint64 chunk = 16384) {
    QByteArray bytes = field.GetChunk(0, chunk);
    for (qint64 offset = chunk; offset < field.FieldSize(); offset += chunk) bytes += field.GetChunk(offset, chunk);
    return bytes;
}

/// Gives `length` bytes, of which only the first `readable` can be had.
class Bytes : public ValueSource {
  public:
    Bytes(qint64 length, qint64 readable) : length_(length), readable_(readable) {}
    qint64 size() const override { return length_; }
    void read(char* to, qint64 count) override {
        readable_ -= count;
        if (readable_ < 0) throw Error(u"读到这里为止。"_s);
        std::fill_n(to, count, 's');
    }

  private:
    qint64 length_, readable_;
};

class LongBinaryTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestAlbum> album_;

  private Q_SLOTS:
    void init() { album_ = std::make_unique<TestAlbum>(); }

    /// Also values and files that are not there. Writers pass.
    void canBeAskedForAhead() {
        const QByteArray bytes = someBytes(3000001);
        album_->add(1, u"1"_s, u"2003-10-01"_s, bytes);
        album_->add(2, u"1"_s, u"2003-10-01"_s, "small");
        Recordset set = album_->open(u"tc01"_s);
        const qint64 large = set.storedAt(0, picture).id(), small = set.storedAt(1, picture).id();
        ValuesAhead ahead;
        for (int i = 0; i < 20; ++i) {
            ahead.ask(album_->path(), {large, 77, small});
            if (i % 5 == 0) ahead.ask(album_->folder.filePath(u"none.mdb"_s), {large});
            changeRow(set, {{u"备注"_s, QString::number(i)}});
            QCOMPARE(set.Fields(picture).Value().toBytes(), bytes);
        }
    }

    void comesBackByteForByte() {
        for (const int length : {1, 16383, 16384, 16385, 32768, 40000, 1 << 20, (1 << 20) + 1, 3000001}) {
            const QByteArray bytes = someBytes(length);
            Recordset set = album_->open(u"tc01"_s);
            set.AddNew();
            for (int at = 0; at < length; at += 16385) set.Fields(picture).AppendChunk(bytes.mid(at, 16385));
            QCOMPARE(set.Fields(picture).FieldSize(), length);
            set.Update();
            set.MoveLast();
            const Field field = set.Fields(picture);
            QCOMPARE(field.FieldSize(), length);
            QCOMPARE(readInChunks(field), bytes);
            QCOMPARE(field.Value().toBytes(), bytes);
            QVERIFY(field.GetChunk(length, 16384).isEmpty() && field.GetChunk(length + 1, 1).isEmpty());
            QCOMPARE(field.GetChunk(length - 1, 16384), bytes.right(1));
            QVERIFY(fails([&] { field.GetChunk(-1, 1); }));
        }
    }

    void firstChunkBeginsTheValueAnew() {
        album_->add(1, u""_s, u"2003-10-01"_s, "old");
        Recordset set = album_->open(u"tc01"_s);
        QVERIFY(fails([&] { set.Fields(picture).AppendChunk("x"); }));
        QVERIFY(fails([&] { set.Fields(u"备注"_s).FieldSize(); }));
        set.Edit();
        set.Fields(picture).AppendChunk("ne");
        set.Fields(picture).AppendChunk("w");
        QCOMPARE(set.Fields(picture).Value().toBytes(), QByteArray("new"));
        set.Update();
        QCOMPARE(set.Fields(picture).Value().toBytes(), QByteArray("new"));
        QCOMPARE(album_->keptPictures(), u"1"_s);
        change(set, picture, {});
        QVERIFY(set.Fields(picture).isNull() && set.Fields(picture).Value().isNull());
        QCOMPARE(set.Fields(picture).FieldSize(), 0);
        QVERIFY(set.Fields(picture).GetChunk(0, 16384).isEmpty());
        QCOMPARE(album_->keptPictures(), u"0"_s);
    }

    void goesWithItsRow() {
        using Removal = std::function<void(TestAlbum&)>;
        const auto statement = [](const QString& sql) {
            return [sql](TestAlbum& album) { album.database.Execute(sql); };
        };
        const auto shell = [](const QString& sql) { return [sql](TestAlbum& album) { album.shell(sql); }; };
        for (const auto& [removal, left] :
             {std::pair{Removal([](TestAlbum& album) { album.open(u"tc01"_s).Delete(); }), u"2"_s},
              {statement(u"DELETE FROM [tc01] WHERE 序号 > 1"_s), u"1"_s},
              {statement(u"DELETE FROM tc01"_s), u"0"_s},
              {statement(u"DROP TABLE [tc01]"_s), u"0"_s},
              {shell(u"DELETE FROM tc01 WHERE 序号 = 2"_s), u"2"_s},
              {shell(u"UPDATE tc01 SET 图片 = NULL WHERE 序号 < 3"_s), u"1"_s}}) {
            TestAlbum album;
            for (int i = 1; i <= 3; ++i) album.add(i, u""_s, u"2003-10-01"_s, someBytes(50000, i));
            readInChunks(album.open(u"tc01"_s).Fields(picture));
            removal(album);
            QCOMPARE(album.keptPictures(), left);
        }
    }

    void openValueIsNotInTheWayOfItsOwnProgram() {
        album_->add(1, u""_s, u"2003-10-01"_s, someBytes(50000));
        const Recordset set = album_->open(u"tc01"_s);
        set.Fields(picture).GetChunk(0, 10);
        album_->add(2, u""_s, u"2003-10-01"_s, someBytes(60000));
        QCOMPARE(set.Fields(picture).GetChunk(10, 10), someBytes(50000).mid(10, 10));
        album_->database.Execute(u"DROP TABLE tc01"_s);
        QVERIFY(fails([&] { set.Fields(picture).GetChunk(20, 10); }));
    }

    void isReadAsADeviceThatFreesTheFile() {
        album_->add(1, u""_s, u"2003-10-01"_s, someBytes(50000));
        const Recordset set = album_->open(u"tc01"_s);
        const QString change = u"UPDATE tc01 SET 备注 = 'x'"_s;
        {
            FieldDevice device(set.Fields(picture));
            QCOMPARE(device.size(), 50000);
            QCOMPARE(device.read(20000), someBytes(50000).left(20000));
            QVERIFY(album_->shell(change).contains(u"locked"));
            QVERIFY(device.seek(10));
            QCOMPARE(device.readAll(), someBytes(50000).mid(10));
            QVERIFY(device.atEnd() && device.seek(0) && device.read(100).size() == 100);
        }
        QCOMPARE(album_->shell(change), QString());
        // Nor does a value that was read in chunks keep other programs from writing.
        readInChunks(set.Fields(picture));
        QCOMPARE(album_->shell(change), QString());
    }

    /// However it was read, and however little of it: what has been read is in nobody's way.
    void readValueKeepsNobodyFromWriting() {
        album_->add(1, u""_s, u"2003-10-01"_s, someBytes(50000));
        const Recordset set = album_->open(u"tc01"_s);
        const StoredValue value = set.storedAt(0, picture);
        const std::function<void()> readings[] = {
            [&] { QCOMPARE(value.size(), 50000); },
            [&] { QCOMPARE(value.read(0, 100), someBytes(50000).left(100)); },
            [&] { QCOMPARE(value.read(20000, 100).size(), 100); },
            [&] { QCOMPARE(set.Fields(picture).FieldSize(), 50000); },
            [&] { QCOMPARE(set.Fields(picture).Value().toBytes(), someBytes(50000)); },
        };
        for (const auto& reading : readings) {
            reading();
            QCOMPARE(album_->shell(u"UPDATE tc01 SET 备注 = 'x'"_s), QString());
        }
    }

    void comesFromASourceWhenItIsStored() {
        album_->add(1, u""_s, u"2003-10-01"_s, "old");
        Recordset set = album_->open(u"tc01"_s);
        const qint64 length = 3000001;  // many pieces, and a short one
        set.Edit();
        set.Fields(picture).TakeFrom(std::make_unique<Bytes>(length, length));
        QCOMPARE(set.Fields(picture).FieldSize(), length);
        QVERIFY(fails([&] { set.Fields(picture).GetChunk(0, 1); }));
        QVERIFY(fails([&] { set.Fields(picture).AppendChunk("x"); }));
        set.Update();
        QCOMPARE(set.Fields(picture).Value().toBytes(), QByteArray(length, 's'));

        set.Edit();
        set.Fields(u"备注"_s).SetValue(u"half"_s);
        set.Fields(picture).TakeFrom(std::make_unique<Bytes>(length, 2000000));
        QVERIFY(failsSaying([&] { set.Update(); }, {u"读到这里为止"_s}));
        QVERIFY(set.Fields(u"备注"_s).isNull());
        QCOMPARE(set.Fields(picture).Value().toBytes(), QByteArray(length, 's'));
        QCOMPARE(album_->shell(u"SELECT count(*) FROM long_binary"_s), u"1"_s);
    }

    void keysAreNeverUsedAgain() {
        album_->add(1, u""_s, u"2003-10-01"_s, "one");
        const QString key = album_->shell(u"SELECT 图片 FROM tc01"_s);
        album_->open(u"tc01"_s).Delete();
        album_->database = {};
        album_->database = OpenDatabase(album_->path());
        album_->add(2, u""_s, u"2003-10-01"_s, "two");
        QVERIFY(album_->shell(u"SELECT 图片 FROM tc01"_s).toInt() > key.toInt());
        QCOMPARE(album_->database.TableDefs(), (QStringList{u"tc01"_s}));
    }

    void otherColumnsLeaveThePictureAlone() {
        album_->add(1, u""_s, u"2003-10-01"_s, someBytes(50000));
        const QString key = album_->shell(u"SELECT 图片 FROM tc01"_s);
        Recordset set = album_->open(u"tc01"_s);
        QCOMPARE(set.Fields(picture).GetChunk(0, 100), someBytes(50000).left(100));
        change(set, u"备注"_s, u"x"_s);
        QCOMPARE(set.Fields(picture).GetChunk(100, 16384), someBytes(50000).mid(100, 16384));
        QCOMPARE(album_->shell(u"SELECT 图片 FROM tc01"_s), key);
    }

    void copiesByValueBetweenFiles() {
        album_->add(1, u"q"_s, u"2003-10-01"_s, someBytes(70000));
        const Database other = createDatabase(album_->folder.filePath(u"other.mdb"_s));
        other.Execute(u"CREATE TABLE pmtp ([序号] LONG, [图片] LONGBINARY)"_s);
        Recordset source = album_->open(u"tc01"_s);
        Recordset target = other.OpenRecordset(u"pmtp"_s);
        addRow(target, {{picture, source.Fields(picture).Value()}});
        source.Delete();
        target.MoveFirst();
        QCOMPARE(target.Fields(picture).Value().toBytes(), someBytes(70000));
    }

    void givesFreedSpaceBack() {
        for (int i = 1; i <= 12; ++i) album_->add(i, u""_s, u"2003-10-01"_s, someBytes(1500000, i));
        const qint64 full = QFileInfo(album_->path()).size();
        QVERIFY(full > 18000000);
        album_->database.Execute(u"DELETE FROM tc01 WHERE 序号 < 12"_s);
        QTRY_VERIFY_WITH_TIMEOUT(
            ([&] {
                album_->database.Execute(
                    u"DELETE FROM tc01 WHERE 序号 < 0"_s);  // every change gives back a little more
                return QFileInfo(album_->path()).size() < full / 2;
            }()),
            5000);
        QCOMPARE(album_->open(u"tc01"_s).Fields(picture).Value().toBytes(), someBytes(1500000, 12));
        QCOMPARE(album_->shell(u"PRAGMA integrity_check"_s), u"ok"_s);
    }
};

static Registered<LongBinaryTest> registered;

}  // namespace

#include "long_binary_test.moc"
