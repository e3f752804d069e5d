#include "catalogue/runs/picture_export.h"

#include "../../support/disk_faults.h"
#include "../../support/failure_of.h"
#include "../../support/run_all.h"
#include "../../support/sample_catalogue.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// The first record of tc01 with a picture of that many bytes.
Recordset recordWith(const QByteArray& bytes) {
    Recordset record = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = 1"_s);
    record.Edit();
    record.Fields(u"图片"_s).SetValue(bytes.isNull() ? FieldValue() : FieldValue(bytes));
    record.Update();
    return record;
}

/// As long as it lives, the disk gives back other bytes of each picture that begins so.
const char* spoiled = nullptr;
struct SpoilingDisk {
    explicit SpoilingDisk(const char* beginning) { spoiled = beginning; }
    ~SpoilingDisk() { spoiled = nullptr; }
};

class TestPictureExport : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void exportedBytes() {
        const SampleCatalogue catalogue;
        for (const int size : {1, 16384, 16385, 40003}) {
            QByteArray bytes(size, 'x');
            bytes.back() = '\0';
            Recordset record = recordWith(bytes);
            QString path = catalogue.file(u"图%1"_s.arg(size));
            QCOMPARE(dctb(record, path), Exported::written);
            QCOMPARE(path, catalogue.file(u"图%1.jpg"_s.arg(size)));
            QCOMPARE(bytesOf(path), bytes);
            QVERIFY(QFile::permissions(path).testFlag(QFile::ReadOther));
        }
    }

    void whatStandsThereStays() {
        const SampleCatalogue catalogue;
        Recordset record = recordWith("picture");
        QString taken = catalogue.file(u"a.jpg"_s);
        writeBytes(taken, "mine");
        writeBytes(catalogue.file(u"ls.tmp"_s), "a longer one, also mine");
        QCOMPARE(dctb(record, taken), Exported::nameTaken);
        QCOMPARE(bytesOf(taken), QByteArray("mine"));
        QString free = catalogue.file(u"b.jpg"_s);
        QCOMPARE(dctb(record, free), Exported::written);
        QCOMPARE(bytesOf(free), QByteArray("picture"));
        QCOMPARE(bytesOf(catalogue.file(u"ls.tmp"_s)), QByteArray("a longer one, also mine"));
        QCOMPARE(QDir(catalogue.folder()).entryList({u"ls*"_s}), QStringList{u"ls.tmp"_s});
    }

    void noPictureNoFile() {
        const SampleCatalogue catalogue;
        for (const QByteArray& nothing : {QByteArray(), QByteArray("")}) {
            Recordset record = recordWith(nothing);
            QString path = catalogue.file(u"a.jpg"_s);
            QCOMPARE(dctb(record, path), Exported::noPicture);
            QVERIFY(!QFile::exists(path));
        }
    }

    /// What is stored has zeros behind the bytes of the file that it came from.
    void theSamePictureIsThereAlready() {
        const SampleCatalogue catalogue;
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
        QString path = catalogue.file(u"a.jpg"_s);
        for (const auto& [storedBytes, there, outcome] : cases) {
            Recordset record = recordWith(storedBytes);
            QFile::remove(path);
            writeBytes(path, there);
            QCOMPARE(dctb(record, path), outcome);
            PictureGroup group(catalogue.folder());
            QCOMPARE(group.write(storedBytes, path), outcome);
            QVERIFY(group.giveNames().empty());
            QCOMPARE(bytesOf(path), there);
        }
    }

    /// A move would delete the record for a link, and wait for ever at a pipe.
    void whatIsNoFileIsNotThePicture() {
        const SampleCatalogue catalogue;
        Recordset record = recordWith("picture");
        QString link = catalogue.file(u"link.jpg"_s), pipe = catalogue.file(u"pipe.jpg"_s);
        writeBytes(catalogue.file(u"real"_s), "picture");
        QVERIFY(QFile::link(catalogue.file(u"real"_s), link));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        for (QString* const path : {&link, &pipe}) QCOMPARE(dctb(record, *path), Exported::nameTaken);
    }

    void aGroupHasItsNamesAtOnce() {
        const SampleCatalogue catalogue;
        const auto files = [&] { return QDir(catalogue.folder()).entryList({u"*.jpg"_s, u"ls*"_s}); };
        QString a = catalogue.file(u"a"_s), b = catalogue.file(u"b"_s);
        {
            PictureGroup group(catalogue.folder());
            for (QString* const name : {&a, &b}) QCOMPARE(group.write("picture", *name), Exported::written);
            QCOMPARE(files(), QStringList());
            writeBytes(b, "mine");
            const auto failed = group.giveNames();
            QVERIFY(failed.size() == 1 && failed[0].name == b && failed[0].reason.isEmpty());
            QCOMPARE(files(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
            QCOMPARE(bytesOf(a) + bytesOf(b), QByteArray("picturemine"));
            QVERIFY(group.giveNames().empty());
            QString c = catalogue.file(u"c"_s), d = catalogue.file(u"d"_s);
            QCOMPARE(group.write("picture", c), Exported::written);
            group.giveUp();
            QVERIFY(group.giveNames().empty());
            QCOMPARE(group.write("picture", d), Exported::written);
        }
        QCOMPARE(QDir(catalogue.folder()).entryList({u"*.jpg"_s, u"*.part"_s}), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
    }

    void twoOfAGroupWithOneName() {
        const SampleCatalogue catalogue;
        QString name = catalogue.file(u"a.jpg"_s);
        PictureGroup group(catalogue.folder());
        for (const auto& [bytes, outcome] : {std::pair{"picture", Exported::written},
                                             {"picture", Exported::alreadyThere},
                                             {"another", Exported::nameTaken}})
            QCOMPARE(group.write(bytes, name), outcome);
        QVERIFY(group.giveNames().empty());
        QCOMPARE(bytesOf(name), QByteArray("picture"));
    }

    void aBadNameCostsOnlyItsOwnFile() {
        const SampleCatalogue catalogue;
        PictureGroup group(catalogue.folder());
        QString a = catalogue.file(u"a"_s), bad = catalogue.file(QString(300, u'b')), c = catalogue.file(u"c"_s);
        for (QString* const name : {&a, &bad, &c}) QCOMPARE(group.write("picture", *name), Exported::written);
        const auto failed = group.giveNames();
        QVERIFY(failed.size() == 1 && failed[0].name == bad && failed[0].reason.contains(u"名称太长"_s));
        QCOMPARE(QDir(catalogue.folder()).entryList({u"*.jpg"_s, u"*.part"_s}), (QStringList{u"a.jpg"_s, u"c.jpg"_s}));
        QCOMPARE(bytesOf(c), QByteArray("picture"));
    }

    /// A move would delete the only one that is whole.
    void whatTheDiskGivesBackIsCompared() {
        const SampleCatalogue catalogue;
        const SpoilingDisk disk("bad");
        Recordset record = recordWith("bad picture");
        QString alone = catalogue.file(u"alone.jpg"_s), bad = catalogue.file(u"bad.jpg"_s),
                good = catalogue.file(u"good.jpg"_s);
        QVERIFY(failureOf([&] { dctb(record, alone); }).contains(alone));
        PictureGroup group(catalogue.folder());
        QCOMPARE(group.write("bad picture", bad), Exported::written);
        QCOMPARE(group.write("good picture", good), Exported::written);
        const auto failed = group.giveNames();
        QVERIFY(failed.size() == 1 && failed[0].name == bad && failed[0].reason.contains(u"读回"_s));
        QCOMPARE(QDir(catalogue.folder()).entryList({u"*.jpg"_s, u"*.part"_s}), QStringList{u"good.jpg"_s});
    }

    void failuresLeaveNothing() {
        const SampleCatalogue catalogue;
        Recordset record = recordWith(QByteArray(100000, 'x'));
        QString nowhere = catalogue.file(u"missing/a.jpg"_s);
        QVERIFY_THROWS_EXCEPTION(Error, dctb(record, nowhere));
        QString path = catalogue.file(u"a.jpg"_s);
        for (const qint64 room : {50000, 99999}) {
            const FullDisk full(room);
            QVERIFY_THROWS_EXCEPTION(Error, dctb(record, path));
        }
        QString endless = catalogue.file(QString(300, u'a'));
        QVERIFY_THROWS_EXCEPTION(Error, dctb(record, endless));
        QCOMPARE(QDir(catalogue.folder()).entryList({u"*.part"_s, u"ls*"_s, u"a*"_s}), QStringList());
    }

    /// One reason for all files of a folder: a message has room for few.
    void aFullDiskIsOneReason() {
        const SampleCatalogue catalogue;
        PictureGroup group(catalogue.folder());
        QSet<QString> reasons;
        const FullDisk full(50000);
        for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s})
            reasons << failureOf([&] {
                QString path = catalogue.file(name);
                group.write(QByteArray(100000, 'x'), path);
            });
        QCOMPARE(reasons.size(), 1);
        QVERIFY(reasons.begin()->contains(u'“' + catalogue.folder() + u'”'));
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
