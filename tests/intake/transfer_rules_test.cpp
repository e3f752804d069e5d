#include "intake/transfer_rules.h"

#include "../support/disk_faults.h"
#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/mektp.h"
#include "intake/picture_export.h"
#include "platform/base/error.h"

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
    record.Fields(u"图片"_s).SetValue(bytes.isNull() ? Variant() : Variant(bytes));
    record.Update();
    return record;
}

class TestTransferRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void defaultNames() {
        QCOMPARE(defaultPictureName(Variant(), 7), u"07.jpg"_s);
        QCOMPARE(defaultPictureName(QString(), 7), u"07.jpg"_s);
        QCOMPARE(defaultPictureName(u" "_s, 7), u"7.jpg"_s);
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

    void namesThatLeadElsewhere() {
        QVERIFY(isUsableFileName(u"图 1.jpg"_s));
        for (const QString& name : {u".jpg"_s, u"a/b.jpg"_s, u"/b.jpg"_s}) QVERIFY(!isUsableFileName(name));
    }

    void reasonsAreTold() {
        NotDone notDone;
        QVERIFY(notDone.isEmpty());
        notDone.add(u"没有图片，序号"_s, u"3"_s);
        notDone.add(u"同名文件已存在。"_s, u"07.jpg"_s);
        notDone.add(u"没有图片，序号"_s, u"5"_s);
        QCOMPARE(notDone.text(u"有 %1 张。"_s), u"有 3 张。\n\n没有图片，序号：3、5\n同名文件已存在：07.jpg"_s);
        for (int i = 0; i < 20; ++i) notDone.add(u"原因%1"_s.arg(i), QString::number(i));
        QCOMPARE(notDone.text({}).count(u'\n'), 8);
        QVERIFY(notDone.text({}).contains(u"其他原因：4、5"_s));
    }

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

    void aGroupHasItsNamesAtOnce() {
        const SampleCatalogue catalogue;
        const auto files = [&] { return QDir(catalogue.folder()).entryList({u"*.jpg"_s, u"*.tmp"_s}); };
        Recordset record = recordWith("picture");
        QString a = catalogue.file(u"a"_s), b = catalogue.file(u"b"_s);
        {
            PictureGroup group(catalogue.folder());
            QCOMPARE(group.write(record, a), Exported::written);
            QCOMPARE(group.write(record, b), Exported::written);
            QCOMPARE(group.write(record, a), Exported::nameTaken);
            QCOMPARE(files(), (QStringList{u"ls.tmp"_s, u"ls1.tmp"_s}));
            writeBytes(b, "mine");
            const auto unnamed = group.giveNames();
            QVERIFY(unnamed.size() == 1 && unnamed[0].name == b && unnamed[0].reason.isEmpty());
            QCOMPARE(files(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
            QCOMPARE(bytesOf(a) + bytesOf(b), QByteArray("picturemine"));
            QVERIFY(group.giveNames().empty());
            for (int i = 0; !group.isFull(); ++i) {
                QString name = catalogue.file(QString::number(i));
                QCOMPARE(group.write(record, name), Exported::written);
            }
            QCOMPARE(files().size(), 66);
        }
        QCOMPARE(files().size(), 2);  // given up, it leaves nothing
    }

    void aBadNameCostsOnlyItsOwnFile() {
        const SampleCatalogue catalogue;
        Recordset record = recordWith("picture");
        PictureGroup group(catalogue.folder());
        QString a = catalogue.file(u"a"_s), bad = catalogue.file(QString(300, u'b')), c = catalogue.file(u"c"_s);
        for (QString* const name : {&a, &bad, &c}) QCOMPARE(group.write(record, *name), Exported::written);
        const auto unnamed = group.giveNames();
        QVERIFY(unnamed.size() == 1 && unnamed[0].name == bad && unnamed[0].reason.contains(u"名称太长"_s));
        QCOMPARE(QDir(catalogue.folder()).entryList({u"*.jpg"_s, u"*.tmp"_s}), (QStringList{u"a.jpg"_s, u"c.jpg"_s}));
        QCOMPARE(bytesOf(c), QByteArray("picture"));
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
        QCOMPARE(QDir(catalogue.folder()).entryList({u"ls*"_s, u"a*"_s}), QStringList());
    }
};

const Registered<TestTransferRules> registered;

}  // namespace

#include "transfer_rules_test.moc"
