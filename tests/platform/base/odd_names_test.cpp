#include "platform/base/odd_names.h"

#include "../../support/failure_of.h"
#include "../../support/run_all.h"
#include "platform/base/files.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// 照片 in the encoding of old Chinese systems.
const QByteArray oldName = "\xD5\xD5\xC6\xAC";

class OddNamesTest : public QObject {
    Q_OBJECT

    static void write(const QTemporaryDir& folder, const QByteArray& name, const QByteArray& bytes) {
        QFile file(folder.filePath(u"new"_s));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        const QByteArray from = QFile::encodeName(file.fileName()), to = QFile::encodeName(folder.path()) + '/' + name;
        QVERIFY(rename(from.constData(), to.constData()) == 0);
    }

    static QStringList namesIn(const QTemporaryDir& folder, bool standIns) {
        QStringList names;
        for (const FolderEntry& entry : filesIn(folder.path(), {u"*.jpg"_s}))
            if (entry.isStandIn == standIns) names << entry.name;
        names.sort();
        return names;
    }

  private Q_SLOTS:
    void everyStandInLeadsToItsFile() {
        const std::pair<QByteArray, QString> cases[] = {
            {oldName + "1.jpg", u"照片1.jpg"_s},
            {"caf\xE9.JPG", u"caf‹E9›.JPG"_s},
            {"\xE5\xB1\xB1\xFF\xFE.jpg", u"山‹FF›‹FE›.jpg"_s},  // text but for two bytes
            {"\xC3(.jpg", u"‹C3›(.jpg"_s},
            {"a\x01\xE9.jpg", u"a\x01‹E9›.jpg"_s},
            {"\x80.jpg", u"‹80›.jpg"_s},
        };
        for (const auto& [name, standIn] : cases) {
            const QTemporaryDir folder;
            write(folder, name, name);
            QCOMPARE(namesIn(folder, true), QStringList{standIn});
            QCOMPARE(namesIn(folder, false), QStringList());
            const QString path = folder.filePath(standIn);
            QVERIFY(isStandIn(path));
            QFile file;
            QVERIFY(openForReading(file, path));
            QCOMPARE(file.readAll(), name);
            QCOMPARE(FileLen(path), name.size());
            QVERIFY(std::abs(FileDateTime(path).secsTo(QDateTime::currentDateTime())) < 60);
        }
    }

    void aFileWithTheNameItselfIsNotMistaken() {
        const QTemporaryDir folder;
        write(folder, oldName + ".jpg", "old");
        write(folder, "照片.jpg", "new");
        QCOMPARE(namesIn(folder, false), QStringList{u"照片.jpg"_s});
        QCOMPARE(namesIn(folder, true), QStringList{u"‹D5›‹D5›Ƭ.jpg"_s});
        for (const auto& [name, bytes] : {std::pair{u"照片.jpg"_s, "new"}, std::pair{u"‹D5›‹D5›Ƭ.jpg"_s, "old"}}) {
            QFile file;
            QVERIFY(openForReading(file, folder.filePath(name)));
            QCOMPARE(file.readAll(), QByteArray(bytes));
        }
        QVERIFY(!isStandIn(folder.filePath(u"照片.jpg"_s)));
    }

    void whatIsNotThereStandsForNothing() {
        const QTemporaryDir folder;
        for (const QString& name : {u"照片.jpg"_s, u"a.jpg"_s, u"‹E9›.jpg"_s, u"‹2F›a.jpg"_s}) {
            const QString path = folder.filePath(name);
            QVERIFY2(!isStandIn(path), qPrintable(name));
            QFile file;
            QVERIFY(!openForReading(file, path));
            QVERIFY(failureOf([&] { FileLen(path); }).contains(path));
        }
    }

    void onlyFilesAreFiles() {
        const QTemporaryDir folder;
        const QByteArray place = QFile::encodeName(folder.path()) + '/';
        write(folder, "a.jpg", "x");
        QVERIFY(mkfifo((place + "pipe.jpg").constData(), 0600) == 0);
        QVERIFY(mkdir((place + "folder.jpg").constData(), 0700) == 0);
        QVERIFY(mkdir((place + oldName + ".jpg").constData(), 0700) == 0);
        for (const auto& [target, link] : {std::pair{"a.jpg", "to file.jpg"}, std::pair{"pipe.jpg", "to pipe.jpg"},
                                           std::pair{"/dev/zero", "to device.jpg"}, std::pair{"no", "to nothing.jpg"}})
            QVERIFY(symlink(target, (place + link).constData()) == 0);
        write(folder, ".hidden.jpg", "x");
        QCOMPARE(namesIn(folder, false), (QStringList{u"a.jpg"_s, u"to file.jpg"_s}));
        QCOMPARE(namesIn(folder, true), QStringList());
        QCOMPARE(oddFoldersIn(folder.path()), QStringList{u"照片.jpg"_s});
        QVERIFY(!isStandIn(folder.filePath(u"照片.jpg"_s)));
    }
};

const Registered<OddNamesTest> registered;

}  // namespace

#include "odd_names_test.moc"
