#include "catalogue/conversion/conversion.h"

#include "../../platform/database/jet_files.h"
#include "../../support/disk_faults.h"
#include "../../support/failing_disk.h"
#include "../../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/conversion/conversion_files.h"
#include "catalogue/conversion/joining.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/table_shape.h"
#include "old_catalogues.h"

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// No file gets a second name while this is set, as on disks that know no links.
bool knowsNoLinks = false;

}  // namespace

extern "C" int link(const char* from, const char* to) noexcept {
    if (!knowsNoLinks) return ::linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
    errno = EPERM;
    return -1;
}

namespace {

class TestConversion : public SampleTest {
    Q_OBJECT

    std::unique_ptr<JetFiles> files_;
    RunReport report_;

    QString path(const QString& name) const { return files_->folder.filePath(name); }

    /// The new catalogue that an old one becomes.
    Database converted(const QByteArray& old) {
        const QString from = files_->write(u"old.mdb"_s, old), to = path(u"new.mdb"_s);
        QFile::remove(to);
        RunWatch watch;
        report_ = convertCatalogue({from, sample_->file(u"lunq.mdb"_s), to}, watch);
        return OpenDatabase(to);
    }
    Database converted(const QList<jet::Table>& tables, const jet::Form& form = {}) {
        return converted(jet::database(tables, form));
    }

    QStringList notes() const {
        QStringList notes;
        for (const RunItem& item : report_.items)
            if (!item.reason.isEmpty()) notes << item.name + u'：' + item.reason;
        return notes;
    }

    static QStringList textsOf(const Database& database, const QString& source, const QString& column) {
        QStringList texts;
        for (Recordset rows = database.OpenRecordset(source); !rows.Eof(); rows.MoveNext())
            texts << rows.Fields(column).Value().textOr(u"NULL"_s);
        return texts;
    }

    /// Every field of a table is what the old one had.
    static void compare(const Database& database, const jet::Table& old) {
        Recordset rows = database.OpenRecordset(old.name);
        QCOMPARE(rows.rowCount(), int(old.rows.size()));
        for (const jet::Row& row : old.rows) {
            for (qsizetype i = 0; i < row.size(); ++i) {
                const Field field = rows.Fields(old.columns[i].name);
                const QString place = old.name + u' ' + row[0].toString() + u' ' + old.columns[i].name;
                if (old.columns[i].type == jet::Type::ole)
                    QVERIFY2(
                        row[i].isNull() ? field.isNull() : field.Value().toBytes() == unwrapped(row[i].toByteArray()),
                        qPrintable(place));
                else if (old.columns[i].type == jet::Type::date)
                    QCOMPARE(field.Value().toDate(), row[i].toDateTime());
                else if (old.columns[i].type == jet::Type::single)
                    QCOMPARE(float(field.Value().toDouble()), row[i].toFloat());
                else
                    QVERIFY2(field.Value().textOr() == row[i].toString(), qPrintable(place));
            }
            rows.MoveNext();
        }
    }

  private Q_SLOTS:
    void init() {
        files_ = std::make_unique<JetFiles>();
        SampleTest::init();
        addRow(u"tcbz"_s, {{u"编号"_s, u"001"_s}, {u"标题"_s, u"新"_s}});
        changeRow(u"tcsz"_s, {{u"帮助"_s, u"新的手册"_s}, {u"处理提示"_s, true}});
        mekTp::catalogue = {};
    }
    void cleanup() {
        const QStringList left = files_->copies();
        SampleTest::cleanup();
        files_.reset();
        QCOMPARE(left, QStringList());
    }

    void everythingIsTaken_data() {
        QTest::addColumn<jet::Version>("version");
        QTest::addColumn<int>("codePage");
        QTest::addColumn<quint32>("key");
        QTest::addRow("jet 3") << jet::Version::jet3 << 936 << 0U;
        QTest::addRow("jet 3 under a western name") << jet::Version::jet3 << 1252 << 0U;
        QTest::addRow("jet 4") << jet::Version::jet4 << 936 << 0U;
        QTest::addRow("jet 4, encoded") << jet::Version::jet4 << 936 << 4711U;
    }
    void everythingIsTaken() {
        QFETCH(jet::Version, version);
        QFETCH(int, codePage);
        QFETCH(quint32, key);
        QList<jet::Table> tables = jet::oldCatalogueTables(wholeCatalogue());
        jet::tableOf(tables, u"tc01"_s).movedRows = {0, 3};
        QByteArray bytes = jet::database(tables, {.version = version, .key = key});
        constexpr qsizetype place = 0x3C;
        if (codePage == 1252)
            for (const qsizetype at : {0, 1}) bytes[place + at] = char(bytes[place + at] ^ (936 ^ 1252) >> 8 * at);
        const Database made = converted(bytes);
        QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
        QCOMPARE(notes(), QStringList());
        QCOMPARE(report_.count, 10);
        QCOMPARE(report_.verified, 9);
        QCOMPARE(contentOf(path(u"old.mdb"_s)), bytes);
        for (const QString& table : {u"tcbm"_s, u"tcan"_s, u"pmtp"_s, u"tc00"_s, u"tc01"_s, u"tc02"_s, u"tc03"_s})
            compare(made, jet::tableOf(tables, table));

        const Recordset settings = made.OpenRecordset(u"tcsz"_s);
        for (const auto& [column, value] : {std::pair{u"像册标题"_s, u"我的老像册"_s},
                                            {u"当前像册"_s, u"01"_s},
                                            {u"显示标签"_s, u"True"_s},
                                            {u"幻灯延时"_s, u"1500"_s},
                                            {u"颜色"_s, u"5"_s},
                                            {u"备份路径"_s, u"D:\\备份\\lunq.mdb"_s},
                                            {u"帮助"_s, u"新的手册"_s},
                                            {u"处理提示"_s, u"True"_s}})
            QCOMPARE(settings.Fields(column).Value().toText(), value);
        const QStringList schemes = textsOf(made, u"tcys"_s, u"方案名"_s);
        QVERIFY(!schemes.contains(u"旧方案"_s) && schemes.count(u"自己的方案"_s) == 1);
        const QStringList contents = textsOf(made, u"tcbz"_s, u"标题"_s);
        QVERIFY(!contents.contains(u"旧"_s) && contents.contains(u"新"_s));
        QVERIFY(made.isOurs());
        int hashed = 0;
        ValueHashes(made).each(u"tc01"_s, u"图片"_s, [&](qint64, const QByteArray&) { ++hashed; });
        QCOMPARE(hashed, 6);
    }

    /// Nothing takes the place of albums that are there, but cannot be read.
    void albumsAreNotLostInSilence() {
        QList<jet::Table> whole = jet::oldCatalogueTables({}), lost = whole, garbled = whole;
        jet::tableOf(lost, u"tcbm"_s).rows << jet::Row{1, u"tc01"_s, u"旅行"_s, QVariant()};
        jet::tableOf(garbled, u"tcbm"_s).columns[1].name = u"±íÃû"_s;
        converted(whole);
        QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
        for (const auto& tables : {lost, garbled})
            QVERIFY(failureOf([&] { converted(tables); }).contains(u"没有一个图册能够读取"_s));
    }

    /// The picture of a short binary column, and a name that is a number.
    void unusualAlbumsAreTaken() {
        QList<jet::Table> tables = jet::oldCatalogueTables(wholeCatalogue());
        jet::Table& album = jet::tableOf(tables, u"tc03"_s);
        const auto pictures = std::ranges::find(album.columns, u"图片"_s, &jet::Column::name);
        const qsizetype place = pictures - album.columns.begin();
        *pictures = {u"图片"_s, jet::Type::binary, 100};
        album.rows[0][place] = QByteArray("BM of a few bytes\0\0", 19);
        album.rows[1][place] = QVariant();
        album.name = u"2003"_s;
        jet::tableOf(tables, u"tcbm"_s).rows[3][1] = u"2003"_s;
        const Database made = converted(tables);
        QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
        QVERIFY(notes().join(u'\n').contains(u"2003：这个表名不能使用，改为 tc03"_s));
        QVERIFY(made.OpenRecordset(u"tc03"_s).Fields(u"图片"_s).Value().toBytes().startsWith("BM of a few bytes"));
        QCOMPARE(report_.verified, 8);
    }

    /// A record that fails is passed over; the others are compared with their own.
    void joiningPassesOver() {
        const FailingDisk disk;
        struct Watch : RunWatch {
            explicit Watch(FailingDisk& disk) : disk_(disk) {}
            bool progress(const RunProgress& progress) override {
                if (progress.done == 1 && !std::exchange(hasFailed_, true))
                    disk_.writing = {.code = SQLITE_FULL, .reason = ENOSPC, .calls = 2};
                return true;
            }
            bool passesOver(const RunItem&) override { return true; }

          private:
            FailingDisk& disk_;
            bool hasFailed_ = false;
        } watch(const_cast<FailingDisk&>(disk));
        const QString from = files_->write(u"old.mdb"_s, jet::database(jet::oldCatalogueTables(wholeCatalogue())));
        report_ = joinCatalogue({from, sample_->file(u"lunq.mdb"_s)}, watch);
        QVERIFY(report_.has(Fate::failed));
        QVERIFY2(report_.cameToEnd && report_.failure.isEmpty(), qPrintable(report_.failure));
        QCOMPARE(report_.verified, 7);
    }

    /// What it did not reach can be tried once more, and comes in once.
    void stoppedJoiningLeavesNoEmptyAlbums() {
        struct : RunWatch {
            bool progress(const RunProgress&) override { return false; }
        } stopping;
        const QString from = files_->write(u"old.mdb"_s, jet::database(jet::oldCatalogueTables(wholeCatalogue())));
        const QString ours = sample_->file(u"lunq.mdb"_s);
        const QStringList before = textsOf(OpenDatabase(ours), u"tcbm"_s, u"标题"_s);
        report_ = joinCatalogue({from, ours}, stopping);
        QVERIFY(report_.stopped && !report_.cameToEnd);
        const Database database = OpenDatabase(ours);
        const QStringList titles = textsOf(database, u"tcbm"_s, u"标题"_s).mid(before.size());
        QCOMPARE(titles, (QStringList{u"旅行2"_s, u"空册2"_s}));  // one picture, and that which has none
        QVERIFY(notes().join(u'\n').contains(u"tc03：没有做到，图册没有建立"_s));
        const QStringList albums = albumTables(database);
        for (const QString& offered : textsOf(database, u"tcan"_s, u"图册"_s))
            for (const QString& name : tablesOfButton(offered == u"NULL"_s ? QString() : offered))
                QVERIFY2(albums.contains(name), qPrintable(name));
    }

    /// What was stopped goes on: nothing is there twice, and what a person has changed meanwhile stays as it is.
    void joiningGoesOn_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QStringList>("titles");
        QTest::newRow("as it was stopped") << QString() << QStringList{u"空册2"_s, u"旅行2"_s, u"编码和名称"_s};
        QTest::newRow("with a caption of its own")
            << u"我写的"_s << QStringList{u"旅行2"_s, u"空册2"_s, u"旅行3"_s, u"编码和名称"_s};
    }
    void joiningGoesOn() {
        QFETCH(const QString, caption);
        struct : RunWatch {
            bool progress(const RunProgress&) override { return false; }
        } stopping;
        const QString from = files_->write(u"old.mdb"_s, jet::database(jet::oldCatalogueTables(wholeCatalogue())));
        const QString ours = sample_->file(u"lunq.mdb"_s);
        const Database old = OpenDatabase(from), database = OpenDatabase(ours);
        const qsizetype before = textsOf(database, u"tcbm"_s, u"标题"_s).size();
        QCOMPARE(joinedAlbums(old, database).size(), 1U);  // there is an empty one of that title
        report_ = joinCatalogue({from, ours}, stopping);
        const std::vector<JoinedAlbum> begun = joinedAlbums(old, database);
        QCOMPARE(begun.size(), 2U);
        QVERIFY(!begun[0].isWhole && begun[0].records == 1 && begun[1].isWhole);
        if (!caption.isEmpty()) {
            Recordset own = database.OpenRecordset(begun[0].album);
            own.Edit();
            own.Fields(u"备注"_s).SetValue(caption);
            own.Update();
        }
        RunWatch watch;
        for (int i = 0; i < 2; ++i) {  // the second time there is nothing left to be done
            report_ = joinCatalogue({.old = from, .ours = ours, .joined = joinedAlbums(old, database)}, watch);
            QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
            QTEST(textsOf(database, u"tcbm"_s, u"标题"_s).mid(before), "titles");
        }
        for (const JoinedAlbum& album : joinedAlbums(old, database)) QVERIFY(album.isWhole);
        QCOMPARE(textsOf(database, u"tcan"_s, u"名称"_s).count(u"家人"_s), 1);
    }

    /// Titles that differ by a number only, and records that differ by their pictures only.
    void likeAlbumsAreToldApart() {
        const auto write = [&](const QString& name, const QList<jet::OldAlbum>& albums) {
            return files_->write(name, jet::database(jet::oldCatalogueTables({.albums = albums})));
        };
        const jet::OldAlbum first{u"tc01"_s, u"照片1"_s, {largePicture(1)}};
        const QString ours = sample_->file(u"lunq.mdb"_s);
        RunWatch watch;
        QVERIFY(joinCatalogue({write(u"one.mdb"_s, {first}), ours}, watch).cameToEnd);
        const QList<QList<QByteArray>> others{{largePicture(2)}, {largePicture(1), largePicture(2)}};
        for (const QList<QByteArray>& pictures : others) {
            const QString from = write(u"two.mdb"_s, {first, {u"tc02"_s, u"照片2"_s, pictures}});
            const std::vector<JoinedAlbum> joined = joinedAlbums(OpenDatabase(from), OpenDatabase(ours));
            QCOMPARE(joined.size(), 1U);
            QVERIFY(joined[0].table == u"tc01" && joined[0].title == u"照片1" && joined[0].isWhole);
        }
    }

    void oddTablesAreTakenAsFarAsTheyGo() {
        using jet::Type;
        QList<jet::Table> tables = jet::oldCatalogueTables(wholeCatalogue());
        const QByteArray jpeg = pictureBytes({40, 30}, Qt::blue);
        const QString caption(80, u'长');
        // Fewer columns, other types, longer texts, and numbers that come twice or are missing.
        jet::tableOf(tables, u"tc03"_s) = {
            u"tc03"_s,
            {{u"序号"_s, Type::text, 10}, {u"日期"_s, Type::text, 20}, {u"图片"_s, Type::ole}, {u"备注"_s, Type::memo}},
            {{u"7"_s, u"2003-10-01"_s, jpeg, caption},
             {u"7"_s, u"去年夏天"_s, QByteArray("no picture at all"), QVariant()},
             {QVariant(), QVariant(), jpeg.left(jpeg.size() / 2), QVariant()}}};
        tables << jet::Table{
            u"tc09"_s, jet::tableOf(tables, u"tc01"_s).columns, {jet::tableOf(tables, u"tc01"_s).rows[0]}};
        for (const QString& name : {u"相片库"_s, u"from"_s})
            tables << jet::Table{
                name, jet::tableOf(tables, u"tc01"_s).columns, {jet::tableOf(tables, u"tc01"_s).rows[1]}};
        jet::tableOf(tables, u"tcbm"_s).rows << jet::Row{5, u"tc08"_s, u"丢了"_s, QVariant()}
                                             << jet::Row{6, u"相片库"_s, u"相片"_s, QVariant()}
                                             << jet::Row{7, u"from"_s, u"来自"_s, QVariant()};
        jet::tableOf(tables, u"tcan"_s).rows[1][2] = u"风景"_s;
        const Database made = converted(tables);
        QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
        QCOMPARE(textsOf(made, u"tc03"_s, u"序号"_s), (QStringList{u"7"_s, u"7"_s, u"NULL"_s}));
        QCOMPARE(textsOf(made, u"tc03"_s, u"备注"_s).first(), caption);
        QCOMPARE(textsOf(made, u"tc03"_s, u"日期"_s), (QStringList{u"2003-10-01"_s, u"NULL"_s, u"NULL"_s}));
        QCOMPARE(textsOf(made, u"tcbm"_s, u"表名"_s),
                 (QStringList{u"tc00"_s, u"tc01"_s, u"tc02"_s, u"tc03"_s, u"tc08"_s, u"tc04"_s, u"tc05"_s, u"tc09"_s}));
        QCOMPARE(made.OpenRecordset(u"tc08"_s).rowCount(), 0);
        QCOMPARE(made.OpenRecordset(u"tc04"_s).rowCount(), 1);
        QCOMPARE(made.OpenRecordset(u"tc09"_s).rowCount(), 1);
        const QString told = notes().join(u'\n');
        for (const QString& part :
             {u"tc08：图册目录中有"_s, u"相片库：这个表名不能使用，改为 tc04"_s, u"from：这个表名不能使用，改为 tc05"_s,
              u"tc09：原来的图册目录中没有列出"_s, u"序号与前面的记录重复"_s, u"“日期”原来是“去年夏天”"_s,
              u"不是 BMP 或 JPEG"_s, u"tc03 序号＝（空）：图片不完整"_s})
            QVERIFY2(told.contains(part), qPrintable(part + u"\n\n"_s + told));
        QVERIFY(textsOf(made, u"tcan"_s, u"图册"_s).first().endsWith(u"tc08tc04tc05tc09"_s));
    }

    void missingPartsComeFromTheFreshCatalogue() {
        QList<jet::Table> tables = jet::oldCatalogueTables(wholeCatalogue());
        for (const QString& name : {u"tcbm"_s, u"tcan"_s, u"tcsz"_s, u"tcys"_s, u"pmtp"_s, u"tc00"_s})
            tables.removeIf([&](const jet::Table& table) { return table.name == name; });
        const Database made = converted(tables);
        QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
        QCOMPARE(textsOf(made, u"tcbm"_s, u"表名"_s), (QStringList{u"tc01"_s, u"tc02"_s, u"tc03"_s}));
        QCOMPARE(textsOf(made, u"tcan"_s, u"编号"_s), QStringList(u"v"_s));
        QCOMPARE(textsOf(made, u"tcsz"_s, u"帮助"_s), QStringList(u"新的手册"_s));
        QVERIFY(made.OpenRecordset(u"tc00"_s).rowCount() > 0);
        QVERIFY(made.OpenRecordset(u"pmtp"_s).rowCount() > 0);
    }

    /// A damaged page costs what it holds: whatever it is, the rest comes over, or the reason is told.
    void everyPageMayBeDamaged_data() {
        QTest::addColumn<jet::Version>("version");
        QTest::addRow("jet 3") << jet::Version::jet3;
        QTest::addRow("jet 4") << jet::Version::jet4;
    }
    void everyPageMayBeDamaged() {
        QFETCH(jet::Version, version);
        const qsizetype page = version == jet::Version::jet3 ? 2048 : 4096;
        jet::OldCatalogue small{.albums = {{u"tc01"_s, u"旅行"_s, {largePicture(1), largePicture(2)}},
                                           {u"tc02"_s, u"空册"_s, {largePicture(3)}}}};
        const QByteArray whole = jet::database(jet::oldCatalogueTables(small), {.version = version});
        const QList<QByteArray> originals{largePicture(1), largePicture(2), largePicture(3)};
        int taken = 0, refused = 0;
        for (qsizetype at = page; at < whole.size(); at += page) {
            QByteArray bytes = whole;
            bytes.replace(at, page, QByteArray(page, '\x5A'));
            try {
                const Database made = converted(bytes);
                QVERIFY2(report_.cameToEnd, qPrintable(report_.failure));
                int kept = 0;
                for (const QString& album : albumTables(made))
                    for (Recordset rows = made.OpenRecordset(album); !rows.Eof(); rows.MoveNext())
                        kept += originals.contains(rows.Fields(u"图片"_s).Value().isNull()
                                                       ? QByteArray()
                                                       : rows.Fields(u"图片"_s).Value().toBytes())
                                    ? 1
                                    : 0;
                if (kept < 3) QVERIFY2(kept > 0 && !notes().isEmpty(), qPrintable(u"page %1"_s.arg(at / page)));
                ++taken;
            } catch (const Error& failure) {
                QVERIFY2(failure.text().contains(u"old.mdb"), qPrintable(failure.text()));
                ++refused;
            }
            QCOMPARE(contentOf(path(u"old.mdb"_s)), bytes);
        }
        QVERIFY2(taken > 5 * refused, qPrintable(u"%1 taken, %2 refused"_s.arg(taken).arg(refused)));
    }

    void stopAndFailureLeaveTheOldFile() {
        const QByteArray bytes = jet::database(jet::oldCatalogueTables(wholeCatalogue()));
        const QString from = files_->write(u"old.mdb"_s, bytes);
        struct : RunWatch {
            bool progress(const RunProgress& progress) override { return progress.done < 4; }
        } stopping;
        const RunReport stopped = convertCatalogue({from, sample_->file(u"lunq.mdb"_s), path(u"a.mdb"_s)}, stopping);
        QVERIFY(stopped.stopped && !stopped.cameToEnd);
        RunWatch watch;
        QVERIFY_THROWS_EXCEPTION(Error, convertCatalogue({from, path(u"none.mdb"_s), path(u"b.mdb"_s)}, watch));
        QVERIFY_THROWS_EXCEPTION(Error,
                                 convertCatalogue({from, sample_->file(u"lunq.mdb"_s), u"/proc/b.mdb"_s}, watch));
        const FullDisk disk(QFileInfo(sample_->file(u"lunq.mdb"_s)).size() + 50'000);
        QString told;
        try {
            const RunReport full = convertCatalogue({from, sample_->file(u"lunq.mdb"_s), path(u"c.mdb"_s)}, watch);
            told = full.cameToEnd ? QString() : full.failure;
        } catch (const Error& failure) {
            told = failure.text();
        }
        QVERIFY2(told.contains(path(u"c.mdb"_s)), qPrintable(told));
        QCOMPARE(contentOf(from), bytes);
    }

    /// On a disk without second names the old file is never without a name, nor is the whole new one removed then.
    void failedRenamingTakesNothingAway() {
        const QString catalogue = files_->write(u"lunq.mdb"_s, "old");
        const ConversionFiles files(catalogue);
        knowsNoLinks = true;
        const auto links = qScopeGuard([] { knowsNoLinks = false; });
        QVERIFY_THROWS_EXCEPTION(Error, files.exchange());  // there is no new one
        QCOMPARE(contentOf(catalogue), QByteArray("old"));
        QVERIFY(QFile::rename(catalogue, files.whole()));
        QVERIFY_THROWS_EXCEPTION(Error, files.begin());
        QCOMPARE(contentOf(files.whole()), QByteArray("old"));
    }

    /// Where a kill may leave the folder, and what the next start makes of it.
    void filesAreNeverLost() {
        const QString catalogue = files_->write(u"lunq.mdb"_s, "old");
        const ConversionFiles files(catalogue);
        const auto names = [this] { return QDir(files_->folder.path()).entryList(QDir::Files, QDir::Name); };
        files_->write(u"lunq-旧.mdb"_s, "another");
        files_->write(u"lunq-转换中.mdb"_s, "left");
        files.begin();
        QCOMPARE(names(), (QStringList{u"lunq-旧.mdb"_s, u"lunq.mdb"_s}));
        files_->write(u"lunq-转换中.mdb"_s, "new");
        files.close();
        QCOMPARE(contentOf(catalogue), QByteArray("old"));
        // Killed behind the giving of the second name: it is not given another one.
        QVERIFY(::link(QFile::encodeName(catalogue).constData(),
                       QFile::encodeName(path(u"lunq-旧2.mdb"_s)).constData()) == 0);
        QCOMPARE(files.exchange(), path(u"lunq-旧2.mdb"_s));
        QCOMPARE(contentOf(catalogue), QByteArray("new"));
        QCOMPARE(contentOf(path(u"lunq-旧2.mdb"_s)), QByteArray("old"));
        QCOMPARE(contentOf(path(u"lunq-旧.mdb"_s)), QByteArray("another"));
        // Where the disk knows no second names there is none of the first for a moment.
        QVERIFY(QFile::rename(catalogue, path(u"lunq-转换好.mdb"_s)));
        files.resume();
        QCOMPARE(contentOf(catalogue), QByteArray("new"));
        files.resume();
        files_->write(u"lunq.mdb-journal"_s, "not empty");
        QVERIFY_THROWS_EXCEPTION(Error, files.begin());
    }
};

const Registered<TestConversion> registered;

}  // namespace

#include "conversion_test.moc"
