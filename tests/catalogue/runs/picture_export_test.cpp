#include "catalogue/runs/picture_export.h"

#include "../../support/disk_faults.h"
#include "../../support/failure_of.h"
#include "../../support/sample_catalogue.h"
#include "catalogue/runs/picture_names.h"
#include "platform/base/error.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The first record of tc01 with a picture of that many bytes.
Recordset recordWith(const QByteArray& bytes) {
    Recordset record = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = 1"_s);
    changeRow(record, {{u"图片"_s, bytes.isNull() ? FieldValue() : FieldValue(bytes)}});
    return record;
}

/// As long as it lives, the disk gives back other bytes of each picture that begins so.
const char* spoiled = nullptr;
struct SpoilingDisk {
    explicit SpoilingDisk(const char* beginning) { spoiled = beginning; }
    ~SpoilingDisk() { spoiled = nullptr; }
};

class TestPictureExport : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void exportedBytes() {
        for (const int size : {1, 16384, 16385, 40003}) {
            QByteArray bytes(size, 'x');
            bytes.back() = '\0';
            Recordset record = recordWith(bytes);
            QString path = sample_->file(u"图%1"_s.arg(size));
            QCOMPARE(dctb(record, path), Exported::written);
            QCOMPARE(path, sample_->file(u"图%1.jpg"_s.arg(size)));
            QCOMPARE(contentOf(path), bytes);
            QVERIFY(QFile::permissions(path).testFlag(QFile::ReadOther));
        }
    }

    void whatStandsThereStays() {
        Recordset record = recordWith("picture");
        QString taken = sample_->file(u"a.jpg"_s);
        writeFile(taken, "mine");
        writeFile(sample_->file(u"ls.tmp"_s), "a longer one, also mine");
        QCOMPARE(dctb(record, taken), Exported::nameTaken);
        QCOMPARE(contentOf(taken), QByteArray("mine"));
        QString free = sample_->file(u"b.jpg"_s);
        QCOMPARE(dctb(record, free), Exported::written);
        QCOMPARE(contentOf(free), QByteArray("picture"));
        QCOMPARE(contentOf(sample_->file(u"ls.tmp"_s)), QByteArray("a longer one, also mine"));
        QCOMPARE(QDir(sample_->folder()).entryList({u"ls*"_s}), QStringList{u"ls.tmp"_s});
    }

    void noPictureNoFile() {
        for (const QByteArray& nothing : {QByteArray(), QByteArray("")}) {
            Recordset record = recordWith(nothing);
            QString path = sample_->file(u"a.jpg"_s);
            QCOMPARE(dctb(record, path), Exported::noPicture);
            QVERIFY(!QFile::exists(path));
        }
    }

    /// What is stored has zeros behind the bytes of the file that it came from.
    void theSamePictureIsThereAlready() {
        const QByteArray picture = QByteArray(20000, 'x') + "end", zeros(7, '\0');
        struct Case {
            QByteArray stored, there;
            Exported outcome;
        };
        const Case cases[]{{picture + zeros, picture, Exported::alreadyThere},
                           {picture, picture + zeros, Exported::alreadyThere},
                           {picture, picture, Exported::alreadyThere},
                           {picture + zeros, picture + "!", Exported::nameTaken},
                           {picture, picture.chopped(1), Exported::nameTaken},
                           {picture, zeros + picture, Exported::nameTaken},
                           {zeros, {}, Exported::nameTaken}};
        QString path = sample_->file(u"a.jpg"_s);
        for (const auto& [storedBytes, there, outcome] : cases) {
            Recordset record = recordWith(storedBytes);
            QFile::remove(path);
            writeFile(path, there);
            QCOMPARE(dctb(record, path), outcome);
            PictureGroup group(sample_->folder());
            QCOMPARE(group.write(storedBytes, path), outcome);
            QVERIFY(group.giveNames().empty());
            QCOMPARE(contentOf(path), there);
        }
    }

    /// A move would delete the record for a link, and wait for ever at a pipe.
    void whatIsNoFileIsNotThePicture() {
        Recordset record = recordWith("picture");
        QString link = sample_->file(u"link.jpg"_s), pipe = sample_->file(u"pipe.jpg"_s);
        writeFile(sample_->file(u"real"_s), "picture");
        QVERIFY(QFile::link(sample_->file(u"real"_s), link));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        for (QString* const path : {&link, &pipe}) QCOMPARE(dctb(record, *path), Exported::nameTaken);
    }

    void aGroupHasItsNamesAtOnce() {
        const auto files = [&] { return QDir(sample_->folder()).entryList({u"*.jpg"_s, u"ls*"_s}); };
        QString a = sample_->file(u"a"_s), b = sample_->file(u"b"_s);
        {
            PictureGroup group(sample_->folder());
            for (QString* const name : {&a, &b}) QCOMPARE(group.write("picture", *name), Exported::written);
            QCOMPARE(files(), QStringList());
            writeFile(b, "mine");
            const auto failed = group.giveNames();
            QVERIFY(failed.size() == 1 && failed[0].name == b && failed[0].reason.isEmpty());
            QCOMPARE(files(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
            QCOMPARE(contentOf(a) + contentOf(b), QByteArray("picturemine"));
            QVERIFY(group.giveNames().empty());
            QString c = sample_->file(u"c"_s), d = sample_->file(u"d"_s);
            QCOMPARE(group.write("picture", c), Exported::written);
            group.giveUp();
            QVERIFY(group.giveNames().empty());
            QCOMPARE(group.write("picture", d), Exported::written);
        }
        QCOMPARE(QDir(sample_->folder()).entryList({u"*.jpg"_s, u"*.part"_s}), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
    }

    void twoOfAGroupWithOneName() {
        QString name = sample_->file(u"a.jpg"_s);
        PictureGroup group(sample_->folder());
        for (const auto& [bytes, outcome] : {std::pair{"picture", Exported::written},
                                             {"picture", Exported::alreadyThere},
                                             {"another", Exported::nameTaken}})
            QCOMPARE(group.write(bytes, name), outcome);
        QVERIFY(group.giveNames().empty());
        QCOMPARE(contentOf(name), QByteArray("picture"));
    }

    void aBadNameCostsOnlyItsOwnFile() {
        PictureGroup group(sample_->folder());
        QString a = sample_->file(u"a"_s), bad = sample_->file(QString(300, u'b')), c = sample_->file(u"c"_s);
        for (QString* const name : {&a, &bad, &c}) QCOMPARE(group.write("picture", *name), Exported::written);
        const auto failed = group.giveNames();
        QVERIFY(failed.size() == 1 && failed[0].name == bad && failed[0].reason.contains(u"名称太长"_s));
        QCOMPARE(QDir(sample_->folder()).entryList({u"*.jpg"_s, u"*.part"_s}), (QStringList{u"a.jpg"_s, u"c.jpg"_s}));
        QCOMPARE(contentOf(c), QByteArray("picture"));
    }

    /// A move would delete the only one that is whole.
    void whatTheDiskGivesBackIsCompared() {
        const SpoilingDisk disk("bad");
        Recordset record = recordWith("bad picture");
        QString alone = sample_->file(u"alone.jpg"_s), bad = sample_->file(u"bad.jpg"_s),
                good = sample_->file(u"good.jpg"_s);
        QVERIFY(failureOf([&] { dctb(record, alone); }).contains(alone));
        PictureGroup group(sample_->folder());
        QCOMPARE(group.write("bad picture", bad), Exported::written);
        QCOMPARE(group.write("good picture", good), Exported::written);
        const auto failed = group.giveNames();
        QVERIFY(failed.size() == 1 && failed[0].name == bad && failed[0].reason.contains(u"读回"_s));
        QCOMPARE(QDir(sample_->folder()).entryList({u"*.jpg"_s, u"*.part"_s}), QStringList{u"good.jpg"_s});
    }

    void failuresLeaveNothing() {
        Recordset record = recordWith(QByteArray(100000, 'x'));
        QString nowhere = sample_->file(u"missing/a.jpg"_s);
        QVERIFY_THROWS_EXCEPTION(Error, dctb(record, nowhere));
        QString path = sample_->file(u"a.jpg"_s);
        for (const qint64 room : {50000, 99999}) {
            const FullDisk full(room);
            QVERIFY_THROWS_EXCEPTION(Error, dctb(record, path));
        }
        QString endless = sample_->file(QString(300, u'a'));
        QVERIFY_THROWS_EXCEPTION(Error, dctb(record, endless));
        QCOMPARE(QDir(sample_->folder()).entryList({u"*.part"_s, u"ls*"_s, u"a*"_s}), QStringList());
    }

    /// One reason for all files of a folder: a message has room for few.
    void aFullDiskIsOneReason() {
        PictureGroup group(sample_->folder());
        QSet<QString> reasons;
        const FullDisk full(50000);
        for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s})
            reasons << failureOf([&] {
                QString path = sample_->file(name);
                group.write(QByteArray(100000, 'x'), path);
            });
        QCOMPARE(reasons.size(), 1);
        QVERIFY(reasons.begin()->contains(u'“' + sample_->folder() + u'”'));
    }

    // Names -----------------------------------------------------------------------------------------------------------

    void replaceNumber() {
        const QList<std::pair<QString, int>> cases{{u"12.jpg"_s, 12},  {u"1.5.jpg"_s, 1},   {u"007.bmp"_s, 7},
                                                   {u" 3 .jpg"_s, 3},  {u"&H10.jpg"_s, 16}, {u"12a.jpg"_s, 12},
                                                   {u"photo.jpg"_s, 0}};
        for (const auto& [name, number] : cases) QCOMPARE(numberOfFile(name), number);
        QVERIFY_THROWS_EXCEPTION(Error, numberOfFile(u"99999999999.jpg"_s));
    }

    void namesThatStandForNumbers() {
        for (const QString& name : {u"12.jpg"_s, u"1.5.jpg"_s, u" 3 .jpg"_s, u"007.bmp"_s})
            QVERIFY2(standsForNumber(name), qPrintable(name));
        for (const QString& name : {u"1,234.jpg"_s, u"12a.jpg"_s, u"photo.jpg"_s, u"1 2.jpg"_s, u".jpg"_s})
            QVERIFY2(!standsForNumber(name), qPrintable(name));
    }

    void defaultNames() {
        QCOMPARE(defaultPictureName(FieldValue(), 7), u"07.jpg"_s);
        QCOMPARE(defaultPictureName(QString(), 7), u"07.jpg"_s);
        for (const QString& blanks : {u" "_s, u"  \u3000"_s}) QCOMPARE(defaultPictureName(blanks, 7), u"07.jpg"_s);
        QCOMPARE(defaultPictureName(u" ab "_s, 12), u"ab12.jpg"_s);
        QCOMPARE(defaultPictureName(u"/a"_s, 3), u"_a3.jpg"_s);
    }

    void completedNames() {
        const QList<std::pair<QString, QString>> cases{{u"photo"_s, u"photo.jpg"_s},
                                                       {u"photo.jpg"_s, u"photo.jpg"_s},
                                                       {u"photo.bmp"_s, u"photo.jpg"_s},
                                                       {u"photo.JPG"_s, u"photo.jpg"_s},
                                                       {u"a.b.jpg"_s, u"a.b.jpg"_s},
                                                       {u"a.b.bmp"_s, u"a.jpg"_s},
                                                       {QString(), QString()}};
        for (const auto& [typed, completed] : cases) QCOMPARE(completedPictureName(typed), completed);
    }

    void namesThatStandForNoFile() {
        for (const QString& name : {u"图 1.jpg"_s, u"a\\b.jpg"_s}) QCOMPARE(objectionToFileName(name), QString());
        for (const QString& name : {u".jpg"_s, u" \u3000.jpg"_s, QString()})
            QCOMPARE(objectionToFileName(name), u"请填写文件名！"_s);
        for (const QString& name : {u"a/b.jpg"_s, u"/b.jpg"_s}) QVERIFY(objectionToFileName(name).contains(u"“/”"_s));
        QVERIFY(!objectionToFileName(u"a\0b.jpg"_s).isEmpty());
    }
};

const Registered<TestPictureExport> registered;

}  // namespace

/// Takes the place of the system's call, with which the program asks the disk for what it has written.
extern "C" int posix_fadvise(int file, off_t, off_t, int) noexcept {
    QByteArray beginning(spoiled != nullptr ? qsizetype(qstrlen(spoiled)) : 0, '\0');
    const bool isWhole = pread(file, beginning.data(), std::size_t(beginning.size()), 0) == beginning.size();
    if (spoiled != nullptr && isWhole && beginning == spoiled) pwrite(file, "!", 1, beginning.size());
    return 0;
}

#include "picture_export_test.moc"
