#include "../support/failure_of.h"
#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/album_directory.h"
#include "catalogue/bin_days.h"
#include "catalogue/bin_restoring.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "catalogue/selection_buttons.h"

#include <QtTest/QtTest>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace {

const Database& catalogue() {
    return mekTp::catalogue;
}

Recordset record(const QString& album, int number) {
    return catalogue().OpenRecordset(u"SELECT * FROM %1 WHERE 序号 = %2"_s.arg(album).arg(number));
}

QByteArray picture(const QString& album, int number) {
    return fieldOf(u"SELECT * FROM %1 WHERE 序号 = %2"_s.arg(album).arg(number), u"图片"_s).toBytes();
}

int count(const QString& album) {
    return catalogue().OpenRecordset(album).rowCount();
}

qint64 values() {
    return OwnRows(catalogue()).number(u"SELECT count(*) FROM long_binary"_s);
}

/// All columns of an album in one text, each picture as its id.
QString contents(const QString& album) {
    QStringList lines;
    OwnRows(catalogue())
        .each(u"SELECT 序号, 编号, 大小, 规格, 日期, 备注, 图片 FROM %1 ORDER BY 序号"_s.arg(album), {},
              [&](const OwnRows::Values& row) {
                  QStringList texts;
                  for (const QVariant& value : row) texts << value.toString();
                  lines << texts.join(u'|');
              });
    return lines.join(u'\n');
}

void remove(const QString& album, int number) {
    Recordset found = record(album, number);
    removeIntoBin(catalogue(), album, found);
}

void replace(const QString& album, int number, const QByteArray& bytes) {
    Recordset found = record(album, number);
    found.Edit();
    storePictureBytes(found.Fields(u"图片"_s), bytes);
    found.Fields(u"规格"_s).SetValue(u"9 * 9"_s);
    updateIntoBin(catalogue(), album, found);
}

Restored restoreAll() {
    return restoreFromBin(catalogue(), binItems(catalogue()));
}

class TestBin : public QObject {
    Q_OBJECT

    std::unique_ptr<SampleCatalogue> sample_;

  private Q_SLOTS:
    void init() {
        sample_.reset();
        sample_ = std::make_unique<SampleCatalogue>();
        mekTp::openCatalogue();
    }

    void deletedComesBackAsItWas() {
        const qint64 before = values();
        const QString album = contents(u"tc01"_s);
        remove(u"tc01"_s, 3);
        remove(u"tc01"_s, 10);
        QCOMPARE(count(u"tc01"_s), 8);
        QCOMPARE(values(), before);
        QCOMPARE(binTotals(catalogue()).pictures(), 2);
        QCOMPARE(restoreAll().pictures, 2);
        QCOMPARE(contents(u"tc01"_s), album);
        QVERIFY(isBinEmpty(catalogue()));
        QCOMPARE(values(), before);
        record(u"tc01"_s, 3).Delete();  // its picture goes with it again
        QCOMPARE(values(), before - 1);
    }

    void pictureGoesWithItsItem() {
        const qint64 before = values();
        remove(u"tc01"_s, 1);
        replace(u"tc01"_s, 2, "new");
        QCOMPARE(values(), before + 1);
        removeFromBin(catalogue(), binItems(catalogue()));
        QCOMPARE(values(), before - 1);
        QVERIFY(isBinEmpty(catalogue()));
    }

    void albumComesBackWhole() {
        const QString album = contents(u"tc01"_s);
        const qint64 before = values();
        storeRemark(catalogue(), u"tc01"_s, u"备忘"_s);
        deleteAlbum(catalogue(), u"tc01"_s);
        QCOMPARE(values(), before);
        const auto ids = binItems(catalogue());
        QCOMPARE(ids.size(), 11U);
        QCOMPARE(binItem(catalogue(), ids.front())->kind, BinKind::album);
        const Restored back = restoreFromBin(catalogue(), {ids.front()});
        QCOMPARE(back.albums, 1);
        QCOMPARE(back.pictures, 10);
        QCOMPARE(contents(u"tc01"_s), album);
        const auto directory = findAlbum(catalogue(), u"tc01"_s);
        QCOMPARE(directory->title + directory->remark + directory->number, u"旅行备忘2"_s);
        QCOMPARE(fieldOf(u"SELECT * FROM tcan WHERE 编号 = 'v'"_s, u"图册"_s).toText(), u"tc00tc02tc01"_s);
        QVERIFY(isBinEmpty(catalogue()));
    }

    void recordFindsItsAlbum_data() {
        QTest::addColumn<QString>("made");  // table and title of an album that was made since, in a deleted one's stead
        QTest::addColumn<QString>("into");
        QTest::newRow("made again") << QString() << u"tc01"_s;
        QTest::newRow("the same by name and title") << u"tc01旅行"_s << u"tc01"_s;
        QTest::newRow("same title, other table") << u"tc09旅行"_s << u"tc09"_s;
        QTest::newRow("its table is another album's") << u"tc01新册"_s << u"tc03"_s;
    }

    void recordFindsItsAlbum() {
        QFETCH(const QString, made);
        QFETCH(const QString, into);
        remove(u"tc01"_s, 5);
        const qint64 id = binItems(catalogue()).front();
        deleteAlbum(catalogue(), u"tc01"_s);
        if (!made.isEmpty()) createAlbum(catalogue(), {u"4"_s, made.left(4), made.mid(4), {}});
        QCOMPARE(restoreFromBin(catalogue(), {id}).albums, into == made.left(4) ? 0 : 1);
        QCOMPARE(count(into), 1);
        QCOMPARE(findAlbum(catalogue(), into)->title, u"旅行"_s);
        QCOMPARE(binTotals(catalogue()).items, 10);  // the album's own item stays, with the others
        restoreAll();
        QCOMPARE(count(into), 10);
        QVERIFY(isBinEmpty(catalogue()));
    }

    void takenNumberGetsTheNext() {
        const QByteArray old = picture(u"tc01"_s, 4);
        remove(u"tc01"_s, 4);
        addRow(u"tc01"_s, {{u"序号"_s, 4}});
        remove(u"tc01"_s, 10);
        restoreAll();
        QCOMPARE(count(u"tc01"_s), 11);
        QVERIFY(record(u"tc01"_s, 4).Fields(u"图片"_s).isNull());
        QCOMPARE(picture(u"tc01"_s, 11), old);
        // Two of the same number that both are in the bin.
        addRow(u"tc01"_s, {{u"序号"_s, 7}});
        remove(u"tc01"_s, 7);
        remove(u"tc01"_s, 7);
        restoreAll();
        QCOMPARE(count(u"tc01"_s), 12);
        QVERIFY(record(u"tc01"_s, 7).rowCount() == 1 && record(u"tc01"_s, 12).rowCount() == 1);
    }

    /// With all that was said of it.
    void replacedPictureChangesPlaces() {
        const QString four = u"SELECT * FROM tc01 WHERE 序号 = 4"_s;
        changeRow(four, {{u"编号"_s, u"old"_s}, {u"备注"_s, u"旧"_s}});
        const QString album = contents(u"tc01"_s);
        replace(u"tc01"_s, 4, "new");
        changeRow(four, {{u"编号"_s, u"new"_s}, {u"备注"_s, u"新"_s}});
        const QString changed = contents(u"tc01"_s);
        QCOMPARE(restoreAll().pictures, 1);
        QCOMPARE(contents(u"tc01"_s), album);
        restoreAll();
        QCOMPARE(contents(u"tc01"_s), changed);
        restoreAll();
        QCOMPARE(count(u"tc01"_s), 10);
        restoreAll();  // and back
        QVERIFY(picture(u"tc01"_s, 4).startsWith("new"));
        QCOMPARE(record(u"tc01"_s, 4).Fields(u"规格"_s).Value().toText(), u"9 * 9"_s);

        replace(u"tc01"_s, 4, "newer");
        remove(u"tc01"_s, 4);  // nobody has the place of the older ones any more
        QCOMPARE(restoreAll().pictures, 3);
        QCOMPARE(count(u"tc01"_s), 12);
        QVERIFY(isBinEmpty(catalogue()));
    }

    void buttonAsksForACode() {
        const QByteArray old = fieldOf(u"SELECT * FROM tcan WHERE 编号 = '2'"_s, u"图片"_s).toBytes();
        Recordset button = buttonsWithCode(catalogue(), u"2"_s);
        removeIntoBin(catalogue(), u"tcan"_s, button, BinKind::button);
        addRow(u"tcan"_s, {{u"序号"_s, 3}, {u"编号"_s, u"2"_s}, {u"名称"_s, u"新"_s}});
        const Restored back = restoreAll();
        QCOMPARE(back.buttons, 0);
        QCOMPARE(back.codeTaken.size(), 1U);
        for (const QString& code : {u"2"_s, u"A"_s, u""_s, u" "_s, u"xy"_s})
            QVERIFY(!failureOf([&] { restoreButton(catalogue(), back.codeTaken.front(), code); }).isEmpty());
        restoreButton(catalogue(), back.codeTaken.front(), u"z"_s);
        QCOMPARE(fieldOf(u"SELECT * FROM tcan WHERE 编号 = 'z'"_s, u"图片"_s).toBytes(), old);
        QCOMPARE(fieldOf(u"SELECT * FROM tcan WHERE 编号 = 'z'"_s, u"名称"_s).toText(), u"人物"_s);
        QVERIFY(isBinEmpty(catalogue()));
    }

    void tellsWhatIsInIt() {
        const qint64 since = Bin(catalogue()).newestRemoval();
        remove(u"tc01"_s, 1);
        const qint64 later = Bin(catalogue()).newestRemoval();
        deleteAlbum(catalogue(), u"tc02"_s);
        replace(u"tc01"_s, 2, "new");
        QCOMPARE(binTotals(catalogue()).pictures(), 2);
        QCOMPARE(binTotalsSince(catalogue(), later).pictures(), 1);
        QCOMPARE(binTotals(catalogue()).albums, 1);
        QVERIFY(isBinOnly(catalogue(), later, BinKind::album) == false);
        const qint64 last = Bin(catalogue()).newestRemoval();
        Recordset button = buttonsWithCode(catalogue(), u"2"_s);
        button.Edit();
        button.Fields(u"图片"_s).SetValue(QByteArray("new"));
        updateIntoBin(catalogue(), u"tcan"_s, button);
        QVERIFY(isBinOnly(catalogue(), last, BinKind::replaced));
        removeFromBin(catalogue(), binItemsSince(catalogue(), last));
        QCOMPARE(binItemsSince(catalogue(), since).size(), 3U);
        const auto newest = binItem(catalogue(), binItems(catalogue()).front());
        QCOMPARE(newest->kind, BinKind::replaced);
        QCOMPARE(newest->title + newest->album + QString::number(newest->number), u"旅行tc012"_s);
        QCOMPARE(newest->bytes, OwnRows(catalogue()).value(newest->picture).size());
        QCOMPARE(oldestBinItems(catalogue(), 1).size(), 1U);
        QVERIFY(oldestBinItems(catalogue(), 0).empty());
    }

    void albumWithoutItsTable() {
        catalogue().Execute(u"DROP TABLE tc02"_s);
        Recordset row = catalogue().OpenRecordset(u"SELECT * FROM tcbm WHERE 表名 = 'tc01'"_s);
        row.Edit();
        row.Fields(u"表名"_s).SetValue(u"tcys"_s);
        row.Update();
        for (const QString& table : {u"tc02"_s, u"tcys"_s}) {
            deleteAlbum(catalogue(), table);
            QVERIFY(!findAlbum(catalogue(), table));
        }
        QVERIFY(count(u"tcys"_s) > 0);
        restoreFromBin(catalogue(), binItems(catalogue()));
        QCOMPARE(count(u"tc02"_s), 0);
    }

    /// Days of use, by their distance from the removal, and whether the item goes after that.
    void staysThirtyDays() {
        using Days = QList<int>;
        const auto daily = [](int first, int last) {
            Days days(last - first + 1);
            std::iota(days.begin(), days.end(), first);
            return days;
        };
        Days restarted, weekly, twoClocks;
        for (int day = 0; day < 20; ++day) restarted << -20000 << day;  // the clock starts in 1970, and is set later
        for (int day = 0; day <= 35; day += 7) weekly << day;
        for (int day = 0; day < 20; ++day) twoClocks << day << 9000 + day;
        const std::tuple<const char*, Days, bool> cases[] = {
            {"daily", daily(0, 30), false},
            {"daily, over", daily(0, 31), true},
            {"before it was there", daily(-60, 0), false},
            {"weekly", weekly.first(5), false},
            {"weekly, over", weekly, true},
            {"long unused", {0, 400, 401}, false},
            {"ahead by years", daily(0, 2) + daily(9000, 9005) + daily(3, 10), false},
            {"ahead from then on", daily(0, 2) + daily(9000, 9010), false},
            {"ahead from then on, over", daily(0, 2) + daily(9000, 9023), true},
            {"behind by years", daily(0, 2) + daily(-9000, -8973), false},
            {"behind from then on, over", daily(0, 2) + daily(-9000, -8968), true},
            {"ahead as it was removed", daily(9000, 9002) + daily(0, 27), false},
            {"ahead as it was removed, over", daily(9000, 9002) + daily(0, 29), true},
            {"starts anew each day", restarted, false},
            {"two systems with different clocks", twoClocks, false}};
        remove(u"tc01"_s, 1);
        const qint64 removal = Bin(catalogue()).newestRemoval();
        for (const auto& [name, uses, goes] : cases) {
            BinDays days;
            for (const int day : uses) {
                days.use(QDate(2026, 11, 22).addDays(day), day < 0 && uses.last() == 0 ? 0 : removal);
                days = BinDays(days.text());
            }
            QVERIFY2((binItemsUpTo(catalogue(), days.inBinFor(binDays)).size() == 1) == goes, name);
        }
        QCOMPARE(BinDays(u"2026-11-21 2026-11-22 x:1:2 2026-11-23:5:7 2026-11-24:4:7"_s).text(), u"2026-11-23:5:7"_s);
    }

    void worksWithoutABin() {
        for (const QString& sql : {u"DROP TABLE lunq_bin"_s, u"DROP TRIGGER lunq_bin_keeps"_s})
            OwnRows(catalogue()).run(sql);
        const qint64 before = values();
        remove(u"tc01"_s, 1);
        replace(u"tc01"_s, 2, "new");
        deleteAlbum(catalogue(), u"tc01"_s);
        QCOMPARE(values(), before - 10);
        QVERIFY(isBinEmpty(catalogue()) && binItems(catalogue()).empty());
        QCOMPARE(binTotals(catalogue()).items, 0);
        mekTp::openCatalogue();  // makes it anew
        QVERIFY(Bin(catalogue()).isKept());
    }

    void failedRemovalKeepsEverything() {
        const QString album = contents(u"tc01"_s);
        Recordset found = record(u"tc01"_s, 1);
        record(u"tc01"_s, 1).Delete();
        QVERIFY(!failureOf([&] { removeIntoBin(catalogue(), u"tc01"_s, found); }).isEmpty());
        QVERIFY(isBinEmpty(catalogue()));
        // A change without a new picture: the one that is in use does not get into the bin.
        Recordset unchanged = record(u"tc01"_s, 2);
        unchanged.Edit();
        updateIntoBin(catalogue(), u"tc01"_s, unchanged);
        QVERIFY(isBinEmpty(catalogue()));
        QVERIFY(!picture(u"tc01"_s, 2).isEmpty());
        QVERIFY(contents(u"tc01"_s).size() < album.size());
    }
};

const Registered<TestBin> registered;

}  // namespace

#include "bin_test.moc"
