#include "catalogue/picture_field.h"

#include "../support/failure_of.h"
#include "../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/picture_in_hand.h"
#include "platform/base/files.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;

/// Takes the place of an image control.
struct Target {
    QSize targetSize() const { return {8, 6}; }
    void setPicture(const Picture& picture) { shown = picture; }
    Picture shown;
};

QByteArray numberedBytes(qint64 count) {
    QByteArray bytes(count, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i) bytes[i] = char(i % 251 + 1);
    return bytes;
}

/// Stores a file in a new record, which becomes the current one.
qint64 storeInNewRecord(Recordset& album, const QString& path) {
    album.AddNew();
    const qint64 length = PictureInHand(path).storeIn(album.Fields(pictureColumn));
    album.Update();
    album.MoveLast();
    return length;
}

}  // namespace

class TestPictureField : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void storedValueIsLongerThanTheFile() {
        // One byte, less than a chunk, a chunk, two chunks and a rest, more than is read at once.
        for (const auto& [length, stored] :
             {std::pair{1, 2}, {16383, 16384}, {16384, 16386}, {40000, 40003}, {20000000, 20001221}}) {
            const QByteArray bytes = numberedBytes(length);
            Recordset album = mekTp::catalogue.OpenRecordset(u"tc02"_s);
            QCOMPARE(storeInNewRecord(album, writeFile(sample_->file(u"数据"_s), bytes)), qint64(length));
            const Field field = album.Fields(pictureColumn);
            QCOMPARE(field.FieldSize(), qint64(stored));
            QCOMPARE(field.Value().toBytes(), bytes + QByteArray(stored - length, '\0'));

            album.Edit();
            QCOMPARE(storePictureBytes(album.Fields(pictureColumn), bytes.toUpper()), qint64(length));
            album.Update();
            QCOMPARE(field.Value().toBytes(), bytes.toUpper() + QByteArray(stored - length, '\0'));
        }
    }

    void aStoredFileIsReadBack() {
        const QString path = sample_->file(u"大图.jpg"_s);
        QImage image(1600, 1200, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x % 256, y % 256, (x * y) % 256));
        saveJpeg(image, path, 80);
        QVERIFY(FileLen(path) > 2 * pictureChunk);

        Recordset album = mekTp::catalogue.OpenRecordset(u"tc02"_s);
        storeInNewRecord(album, path);
        const auto whole = pictureFromField(album, pictureColumn);
        QVERIFY(whole);
        QCOMPARE(whole->image(), LoadPicture(path).image());
        const auto small = pictureFromField(album, pictureColumn, {200, 150});
        QCOMPARE(small->image().size(), QSize(200, 150));
        QCOMPARE(specOfPicture(*small), u"1600 * 1200"_s);

        QProcess other;
        other.start(u"sqlite3"_s, {mekTp::cataloguePath(), u"UPDATE tc02 SET 备注 = '别的程序'"_s});
        QVERIFY(other.waitForFinished());
        QVERIFY2(other.exitCode() == 0, "a decoder that has not come to the end of the value keeps nothing locked");
    }

    /// Whether the bytes are held or read piece by piece: all is asked first, and then the same file is stored.
    void aFileInHandAnswersAndIsStored() {
        const std::tuple<QByteArray, QSize, bool> cases[] = {{"JPG", {1200, 900}, true}, {"BMP", {3000, 2000}, false}};
        for (const auto& [format, pixels, isJpeg] : cases) {
            const QByteArray bytes = pictureBytes(pixels, Qt::darkGreen, format.constData());
            const QString path = writeFile(sample_->file(QString::fromLatin1(format)), bytes);
            PictureInHand file(path);
            QCOMPARE(file.length(), qint64(bytes.size()));
            QCOMPARE(file.changed(), FileDateTime(path));
            QCOMPARE(file.isJpeg(), isJpeg);
            QCOMPARE(file.pixels(), pixels);
            QCOMPARE(file.fingerprint(), fingerprintOf(bytes));
            QCOMPARE(file.wholeness(), PictureBytes::whole);
            QCOMPARE(file.load().image().size(), pixels);
            Recordset album = mekTp::catalogue.OpenRecordset(u"tc02"_s);
            album.AddNew();
            file.storeIn(album.Fields(pictureColumn));
            album.Update();
            album.MoveLast();
            QVERIFY(album.Fields(pictureColumn).Value().toBytes().startsWith(bytes));

            writeFile(path, bytes.chopped(bytes.size() / 3));
            QCOMPARE(PictureInHand(path).wholeness(), PictureBytes::truncated);
        }
        QVERIFY_THROWS_EXCEPTION(Error, PictureInHand(sample_->folder()));
    }

    /// A large file that is written to between the look at it and its storing.
    void aFileThatChangesIsNotStored() {
        const QByteArray bytes = numberedBytes(20'000'000);
        const QString path = sample_->file(u"大"_s);
        for (const QByteArray& after : {bytes.chopped(5), bytes + "more", bytes.chopped(1) + 'x'}) {
            writeFile(path, bytes);
            PictureInHand file(path);
            file.fingerprint();
            QFile written(path);
            QVERIFY(written.open(QIODevice::ReadWrite) && written.write(after) == after.size() &&
                    written.resize(after.size()));
            // Within the same second, also on a slow machine.
            QVERIFY(written.flush() && written.setFileTime(file.changed(), QFileDevice::FileModificationTime));
            written.close();
            QVERIFY(file.isUnchanged() == (after.size() == bytes.size()));
            Recordset album = mekTp::catalogue.OpenRecordset(u"tc02"_s);
            const int count = album.rowCount();
            album.AddNew();
            const QString failure = failureOf([&] {
                file.storeIn(album.Fields(pictureColumn));
                album.Update();
            });
            QVERIFY2(failure.contains(path + u"”在读取期间被改动"_s), qPrintable(failure));
            QCOMPARE(mekTp::catalogue.OpenRecordset(u"tc02"_s).rowCount(), count);
        }
    }

    void filesWithoutAPicture() {
        Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        const QByteArray before = album.Fields(pictureColumn).Value().toBytes();
        album.Edit();
        QCOMPARE(PictureInHand(writeFile(sample_->file(u"空"_s), {})).storeIn(album.Fields(pictureColumn)), qint64(0));
        try {
            PictureInHand missing(sample_->file(u"没有.jpg"_s));
            QFAIL("a missing file was stored");
        } catch (const Error& error) {
            QVERIFY2(error.text().contains(u"没有.jpg"_s), qPrintable(error.text()));
        }
        album.Update();
        QCOMPARE(album.Fields(pictureColumn).Value().toBytes(), before);
    }

    void theTargetKeepsItsPictureWithoutAnother() {
        Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        Target target;
        QVERIFY(readPictureField(album, pictureColumn, target));
        QCOMPARE(target.shown.pixels(), QSize(40, 30));

        Recordset buttons = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = 'a'"_s);
        QVERIFY(!readPictureField(buttons, pictureColumn, target));
        for (const QByteArray& bytes : {QByteArray(), QByteArray("rubbish"), numberedBytes(20000)}) {
            changeRow(buttons, {{pictureColumn, bytes}});
            QVERIFY(!readPictureField(buttons, pictureColumn, target));
        }
        album.MoveLast();
        album.MoveNext();
        QVERIFY(!readPictureField(album, pictureColumn, target));
        QVERIFY(!readPictureField(buttons, u"没有这列"_s, target));
        QCOMPARE(target.shown.pixels(), QSize(40, 30));
    }

    void theCatalogueIsTheFileBesideTheProgram() {
        QCOMPARE(mekTp::cataloguePath(), sample_->file(u"lunq.mdb"_s));
        const QTemporaryDir elsewhere;
        setProgramFolder(elsewhere.path());
        QVERIFY(!attempt([] { mekTp::openCatalogue(); }));
        QVERIFY(!QFile::exists(mekTp::cataloguePath()));

        setProgramFolder(sample_->folder());
        mekTp::openCatalogue();
        QVERIFY(mekTp::catalogue.isOpen());
    }
};

static Registered<TestPictureField> registered;

#include "picture_field_test.moc"
