#include "catalogue/picture_hashes.h"

#include "../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/picture_field.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Fingerprint byTheToolkit(const QByteArray& bytes) {
    return {bytes.size(), QCryptographicHash::hash(bytes, QCryptographicHash::Sha256)};
}

/// Asks the file itself, in a process of its own.
QString shell(const QString& sql) {
    QProcess sqlite;
    sqlite.start(u"sqlite3"_s, {mekTp::cataloguePath(), sql});
    sqlite.waitForFinished();
    return QString::fromUtf8(sqlite.readAllStandardOutput() + sqlite.readAllStandardError()).trimmed();
}

QString hashes() {
    return shell(u"SELECT count(*) FROM lunq_hashes"_s);
}

QString missing(const QString& album) {
    return QString::number(ValueHashes(mekTp::catalogue).without(album, u"图片"_s).size());
}

/// Notes the pictures of an album.
void noteAll(const QString& album) {
    PictureHashes prints(mekTp::catalogue);
    for (const StoredValue& picture : ValueHashes(mekTp::catalogue).without(album, u"图片"_s))
        prints.note(picture, fingerprintOf(picture));
}

class TestPictureHashes : public OpenedSampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void zerosAtTheEndDoNotCount() {
        const QByteArray gap = "ab" + QByteArray(10000, '\0') + "c";
        const QByteArray large(600000, 'x');
        const QByteArray zeros(70000, '\0');
        for (const QByteArray& content : {QByteArray(), QByteArray("a"), gap, large, QByteArray("\0a", 2)}) {
            const Fingerprint print = byTheToolkit(content);
            for (const QByteArray& bytes : {content, content + '\0', content + zeros}) {
                QVERIFY(fingerprintOf(bytes) == print);
                QBuffer file;
                file.setData(bytes);
                QVERIFY(file.open(QIODevice::ReadOnly));
                QVERIFY(fingerprintOf(file) == print);
                QCOMPARE(lengthWithoutZeros(file), content.size());
                for (const qsizetype step : {1, 3, 9999, 10002}) {
                    FingerprintMaker maker;
                    for (qsizetype at = 0; at < bytes.size(); at += step)
                        maker.add(QByteArrayView(bytes).sliced(at, std::min(step, bytes.size() - at)));
                    QVERIFY(maker.finish() == print);
                }
            }
        }
        QVERIFY(fingerprintOf("a") != fingerprintOf("b"));
    }

    void storedPictureIsThatOfItsFile() {
        const QByteArray bytes = pictureBytes({900, 700}, Qt::red, "BMP");
        Recordset album = mekTp::catalogue.OpenRecordset(u"tc02"_s);
        album.AddNew();
        QCOMPARE(storePictureBytes(album.Fields(u"图片"_s), bytes), bytes.size());
        album.Update();
        const StoredValue picture = album.storedAt(album.rowCount() - 1, u"图片"_s);
        QVERIFY(picture.size() > bytes.size());
        QVERIFY(fingerprintOf(picture) == byTheToolkit(bytes));
        QCOMPARE(lengthWithoutZeros(picture), bytes.size());
        bool goesOn = true;
        const auto once = [&] { return std::exchange(goesOn, false); };
        QVERIFY(fingerprintOf(picture, once).sha256.isEmpty());
    }

    void hashesGoWithTheirPictures() {
        mekTp::catalogue.Execute(createAlbumSql(u"tc03"_s));
        addRow(u"tc03"_s, {{u"序号"_s, 1}, {u"图片"_s, QByteArray("one")}});
        QCOMPARE(missing(u"tc01"_s), u"10"_s);
        noteAll(u"tc01"_s);
        noteAll(u"tc03"_s);
        QCOMPARE(missing(u"tc01"_s), u"0"_s);
        QCOMPARE(hashes(), u"11"_s);
        QCOMPARE(shell(u"SELECT length, hex(sha256), checked = date('now', 'localtime') FROM tc03, lunq_hashes "
                       "WHERE id = 图片"_s),
                 u"3|7692C3AD3540BB803C020B3AEE66CD8887123234EA0C6E7143C0ADD73FF431ED|1"_s);

        mekTp::catalogue.Execute(u"DROP TABLE tc03"_s);
        QCOMPARE(hashes(), u"10"_s);
        Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        album.Delete();
        QCOMPARE(hashes(), u"9"_s);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"图片"_s, QByteArray("new")}});
        QCOMPARE(hashes(), u"8"_s);
        QCOMPARE(missing(u"tc01"_s), u"1"_s);
        mekTp::catalogue.Execute(u"DELETE FROM tc01"_s);
        QCOMPARE(hashes(), u"0"_s);
    }

    /// A fingerprint may be noted long after its picture was read.
    void pictureThatIsGoneGetsNone() {
        const auto pictures = ValueHashes(mekTp::catalogue).without(u"tc01"_s, u"图片"_s);
        const Fingerprint print = fingerprintOf(pictures.front());
        mekTp::catalogue.Execute(u"DELETE FROM tc01"_s);
        PictureHashes(mekTp::catalogue).note(pictures.front(), print);
        QCOMPARE(hashes(), u"0"_s);
    }

    void changeTakenBackTakesTheHashes() {
        {
            const Transaction together(mekTp::catalogue);
            noteAll(u"tc01"_s);
        }
        QCOMPARE(hashes(), u"0"_s);
    }

    /// Other files, and a catalogue that has lost the table, are read as before.
    void filesWithoutTheTable() {
        const QString path = sample_->file(u"other.mdb"_s);
        const Database other = createDatabase(path);
        other.Execute(createAlbumSql(u"tc01"_s));
        QCOMPARE(shell(u"DROP TABLE lunq_hashes; DROP TRIGGER lunq_hashes_deleted"_s), QString());
        for (const Database& database : {other, mekTp::catalogue}) {
            Recordset album = database.OpenRecordset(u"tc01"_s);
            addRow(album, {{u"图片"_s, QByteArray("one")}});
            PictureHashes(database).note(album.storedAt(album.rowCount() - 1, u"图片"_s), fingerprintOf("one"));
            QVERIFY(KnownPictures(database, u"tc01"_s).has(fingerprintOf("one")));
            QVERIFY(!KnownPictures(database, u"tc01"_s).has(fingerprintOf("two")));
            database.Execute(u"DELETE FROM tc01"_s);
        }
        mekTp::openCatalogue();
        addRow(u"tc01"_s, {{u"图片"_s, QByteArray("one")}});
        noteAll(u"tc01"_s);
        QCOMPARE(hashes(), u"1"_s);
    }

    void albumKnowsItsPictures() {
        addRow(u"tc01"_s, {{u"序号"_s, 11}, {u"图片"_s, QByteArray("hashed\0\0", 8)}});
        addRow(u"tc02"_s, {{u"序号"_s, 1}, {u"图片"_s, QByteArray("elsewhere")}});
        noteAll(u"tc01"_s);
        noteAll(u"tc02"_s);
        addRow(u"tc01"_s, {{u"序号"_s, 12}, {u"图片"_s, QByteArray("without\0", 8)}});
        addRow(u"tc01"_s, {{u"序号"_s, 13}});
        struct Case {
            QByteArray picture;
            bool hasLength, has;
        };
        const Case cases[] = {{"hashed", true, true},   {"hasheD", true, false},     {"without", true, true},
                              {"withouT", true, false}, {"elsewhere", false, false}, {"", false, false},
                              {"hashed\n", true, false}};
        KnownPictures together(mekTp::catalogue, u"tc01"_s);
        for (const auto& [picture, hasLength, has] : cases) {
            const Fingerprint print = fingerprintOf(picture);
            QCOMPARE(together.hasLength(print.length), hasLength);
            QCOMPARE(together.has(print), has);
            QCOMPARE(KnownPictures(mekTp::catalogue, u"tc01"_s).has(print), has);
        }
    }
};

const Registered<TestPictureHashes> registered;

}  // namespace

#include "picture_hashes_test.moc"
