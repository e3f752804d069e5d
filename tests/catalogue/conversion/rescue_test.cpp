#include "catalogue/conversion/rescue.h"

#include "../../support/damage.h"
#include "../../support/failure_of.h"
#include "../../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/picture_proof.h"
#include "platform/database/records/own_values.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pageSize = 16384, records = 600, largest = 7;
const QString album = u"tc07"_s;

QString remarkOf(int number) {
    return u"第%1张"_s.arg(number, 4, 10, QChar(u'0')) + QString(40, u'记');
}

/// One of noise takes many pages.
QByteArray pictureOf(int number) {
    if (number % 100 != largest) return pictureBytes({8, 6}, QColor::fromHsv(number % 360, 200, 1 + number % 250));
    QRandomGenerator random(number);
    QImage image(200, 150, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, random.generate());
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", 98);
    return bytes;
}

/// Real damage of a file of pages, and what is taken out of it.
class TestRescue : public SampleTest {
    Q_OBJECT

    QByteArray whole_;  ///< The file before its damage.
    QHash<int, QByteArray> pictures_;

    QString damaged() const { return sample_->file(u"lunq.mdb"_s); }
    QString target() const { return sample_->file(u"new.mdb"_s); }

    void fillAlbum() {
        mekTp::openCatalogue();
        Transaction together(mekTp::catalogue);
        mekTp::catalogue.Execute(createAlbumSql(album));
        addRow(u"tcbm"_s, {{u"序号"_s, 7}, {u"表名"_s, album}, {u"标题"_s, u"孩子"_s}});
        Recordset rows = mekTp::catalogue.OpenRecordset(album);
        PictureHashes hashes(mekTp::catalogue);
        for (int number = 1; number <= records; ++number) {
            addRow(rows, {{u"序号"_s, number},
                          {u"备注"_s, remarkOf(number)},
                          {u"图片"_s, pictures_[number] = pictureOf(number)}});
            hashes.note(rows.storedAt(number - 1, u"图片"_s), fingerprintOf(pictures_[number]));
        }
        together.commit();
        OwnValues(mekTp::catalogue).setValue(u"catalogue.id"_s, u"the same"_s);
        changeRow(u"tcsz"_s, {{u"像册标题"_s, u"我家"_s}});
    }

    qsizetype placeOf(const QByteArray& bytes) const {
        const qsizetype place = whole_.lastIndexOf(bytes);
        if (place < 0) qFatal("no such bytes in the file");
        return place;
    }
    void zeroPage(QByteArray& file, qsizetype place) const {
        file.replace(place / pageSize * pageSize, pageSize, QByteArray(pageSize, '\0'));
    }
    qsizetype rootOf(const QString& table) const {
        const QString root = behindTheBack(sample_->file(u"good.mdb"_s),
                                           u"SELECT rootpage FROM sqlite_schema WHERE name = '%1'"_s.arg(table));
        return (root.toLongLong() - 1) * pageSize;
    }

    RunReport rescued() {
        QFile::remove(target());
        RunWatch watch;
        RunReport report;
        report.failure = failureOf([&] {
                             report = rescueCatalogue({damaged(), sample_->file(u"fresh.mdb"_s), target()}, watch);
                         }) +
                         report.failure;
        return report;
    }

    static bool tells(const RunReport& report, const QString& name, const QString& reason) {
        return std::ranges::any_of(report.items, [&](const RunItem& item) {
            return item.name.startsWith(name) && item.reason.contains(reason);
        });
    }

    /// How many records of the album came with their own pictures. None has got that of another, or another remark.
    int wholeRecords(const Database& fresh, const QList<int>& changed = {}) const {
        int count = 0;
        for (Recordset rows = fresh.OpenRecordset(album); !rows.Eof(); rows.MoveNext()) {
            const int number = rows.Fields(u"序号"_s).Value().toInteger();
            if (rows.Fields(u"图片"_s).isNull() || changed.contains(number)) continue;
            if (!rows.Fields(u"图片"_s).Value().toBytes().startsWith(pictures_[number])) return -number;
            if (rows.Fields(u"备注"_s).Value().toText() != remarkOf(number)) return -number;
            ++count;
        }
        return count;
    }

  private Q_SLOTS:
    void init() {
        SampleTest::init();
        mekTp::catalogue = {};
        QVERIFY(QFile::copy(damaged(), sample_->file(u"fresh.mdb"_s)));
        fillAlbum();
        mekTp::catalogue = {};
        QVERIFY(QFile::copy(damaged(), sample_->file(u"good.mdb"_s)));
        whole_ = contentOf(damaged());
    }

    /// Page and byte damage in tables and long values: what is elsewhere comes whole, and what is lost is named.
    void whatIsWholeIsTakenOut() {
        const QByteArray large = pictureOf(300 + largest);
        const qsizetype inValue = placeOf(large.mid(20'000, 64)), inRows = placeOf(remarkOf(250).toUtf8());
        struct Case {
            QString name;
            std::function<void(QByteArray&)> damage;
            int least;                ///< Records with their pictures.
            QString part, lost = {};  ///< What the report says, of which part.
            QList<int> changed = {};  ///< Records that came with another picture.
        };
        const Case cases[] = {
            {u"nothing"_s, [](QByteArray&) {}, records, {}},
            {u"page of the album"_s, [&](QByteArray& file) { zeroPage(file, inRows); }, 400, album,
             u"之间的记录已损坏"_s},
            {u"page inside a long value"_s, [&](QByteArray& file) { zeroPage(file, inValue); }, records - 1,
             album + u" 序号＝307"_s, u"“图片”损坏"_s},
            {u"bit of a long value"_s,
             [&](QByteArray& file) { file[inValue] = char(file[inValue] ^ 4); },
             records - 1,
             album + u" 序号＝307"_s,
             u"指纹不同"_s,
             {307}},
            {u"directory"_s, [&](QByteArray& file) { zeroPage(file, rootOf(u"tcbm"_s)); }, records, album,
             u"标题已损坏"_s},
            {u"buttons"_s, [&](QByteArray& file) { zeroPage(file, rootOf(u"tcan"_s)); }, records, u"tcan"_s, u"损坏"_s},
            {u"settings"_s, [&](QByteArray& file) { zeroPage(file, rootOf(u"tcsz"_s)); }, records, u"tcsz"_s,
             u"损坏"_s},
            {u"fingerprints"_s, [&](QByteArray& file) { zeroPage(file, rootOf(u"lunq_hashes"_s)); }, records, {}},
            {u"cut off"_s, [](QByteArray& file) { file.truncate(file.size() * 9 / 10 + 77); }, 300, album, u"损坏"_s},
        };
        for (const Case& one : cases) {
            QByteArray bytes = whole_;
            one.damage(bytes);
            writeFile(damaged(), bytes);
            const RunReport report = rescued();
            const QByteArray name = one.name.toUtf8();
            QVERIFY2(report.cameToEnd, (name + ' ' + report.failure.toUtf8()).constData());
            QVERIFY2(one.lost.isEmpty() || tells(report, one.part, one.lost), name.constData());
            QVERIFY2(contentOf(damaged()) == bytes, name.constData());
            const Database fresh = OpenDatabase(target());
            const int count = wholeRecords(fresh, one.changed);
            QVERIFY2(count >= one.least, (name + ' ' + QByteArray::number(count)).constData());
            QCOMPARE(behindTheBack(target(), u"PRAGMA integrity_check"_s), u"ok"_s);
            QCOMPARE(fresh.OpenRecordset(u"tc01"_s).rowCount(), 10);
            QVERIFY(!fresh.OpenRecordset(u"SELECT * FROM tcbm WHERE 表名 = 'tc07'"_s).Eof());
            QVERIFY(!fresh.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = 'v'"_s).Eof());
            QCOMPARE(fresh.OpenRecordset(u"tcsz"_s).rowCount(), 1);
            QCOMPARE(OwnValues(fresh).value(u"catalogue.id"_s).value_or(QString()), u"the same"_s);
            QVERIFY2(unprintedPictures(fresh).empty(), name.constData());
        }
    }

    /// The disk changes a picture of the new catalogue when all are stored and the comparing has begun.
    void whatDoesNotComeBackAsItWasIsToldOf() {
        class RottingDisk : public RunWatch {
          public:
            explicit RottingDisk(QString file) : file_(std::move(file)) {}
            bool progress(const RunProgress& now) override {
                if (now.done < last_) rot(file_, album, 12);
                last_ = now.done;
                return true;
            }

          private:
            QString file_;
            qsizetype last_ = 0;
        };
        RottingDisk disk(target());
        const RunReport report = rescueCatalogue({damaged(), sample_->file(u"fresh.mdb"_s), target()}, disk);
        QVERIFY(!report.cameToEnd);
        QVERIFY2(report.failure.startsWith(u"核对时发现：表 tc07 第 12 条记录的图片与原来的不同。"),
                 qPrintable(report.failure));
    }

    /// So the proof of the new catalogue finds it, and heals it from a backup.
    void changedPictureKeepsItsFingerprint() {
        rot(damaged(), album, 12);
        QVERIFY(rescued().cameToEnd);
        const Database fresh = OpenDatabase(target());
        const Recordset rows = fresh.OpenRecordset(u"SELECT * FROM tc07 WHERE 序号 = 12"_s);
        const StoredValue value = rows.storedAt(0, u"图片"_s);
        QCOMPARE(PictureHashes(fresh).of(value), fingerprintOf(pictures_[12]));
        QVERIFY(fingerprintOf(value) != fingerprintOf(pictures_[12]));
    }

    /// The shell stands in for itself where it cannot recover here: its statements come from the whole file.
    void whatCannotBeOpenedIsRecovered() {
        QByteArray bytes = whole_;
        bytes.replace(0, 100, QByteArray(100, '\0'));
        writeFile(damaged(), bytes);
        const QByteArray path = qgetenv("PATH");
        const auto back = qScopeGuard([&] { qputenv("PATH", path); });
        qputenv("PATH", "/nowhere");
        QVERIFY2(rescued().failure.contains(u"没有能读取的") && rescued().failure.contains(u"没有安装 sqlite3"),
                 qPrintable(rescued().failure));

        QVERIFY(QDir(sample_->folder()).mkdir(u"bin"_s));
        const QString shell = sample_->file(u"bin/sqlite3"_s);
        const QString real = QStandardPaths::findExecutable(u"sqlite3"_s, QString::fromLocal8Bit(path).split(u':'));
        QVERIFY2(!real.isEmpty(), "the shell sqlite3 is not installed");
        writeFile(shell, "#!/bin/sh\nexit 1\n");
        QVERIFY(QFile::setPermissions(shell, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
        qputenv("PATH", sample_->file(u"bin"_s).toLocal8Bit());
        QVERIFY2(rescued().failure.contains(u"不能执行 .recover"), qPrintable(rescued().failure));
        writeFile(shell, (u"#!/bin/sh\ncase \"$*\" in *\" .recover\") echo 'PRAGMA application_id=1819635313; "
                          "PRAGMA user_version=2;'; exec %1 '%2' .dump;; *) exec %1 \"$@\";; esac\n"_s)
                             .arg(real, sample_->file(u"good.mdb"_s))
                             .toUtf8());
        const RunReport report = rescued();
        QVERIFY2(report.cameToEnd && tells(report, u"sqlite3"_s, u".recover"_s), qPrintable(report.failure));
        QCOMPARE(wholeRecords(OpenDatabase(target())), records);
        QVERIFY(contentOf(damaged()) == bytes);
        QCOMPARE(QDir(sample_->folder()).entryList({u"*.recover*"_s}).size(), 0);
    }
};

const Registered<TestRescue> registered;

}  // namespace

#include "rescue_test.moc"
