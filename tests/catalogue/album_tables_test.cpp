#include "catalogue/album_tables.h"

#include "../support/failure_of.h"
#include "../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/next_number.h"

#include <limits>

using namespace Qt::Literals::StringLiterals;

class TestAlbumTables : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void columnsTellAlbums() {
        const Database& catalogue = mekTp::catalogue;
        for (const QString& album : {u"tc99"_s, u"海边照片"_s, u"AbCd"_s}) catalogue.Execute(createAlbumSql(album));
        // The names of other lengths cannot be joined without separators; one may be a table of deleted records.
        for (const QString& other : {u"abc"_s, u"deleted"_s}) catalogue.Execute(createAlbumSql(other));
        catalogue.Execute(u"CREATE TABLE tc77 ([序号] LONG,[编号] TEXT(10),[图片] LONGBINARY)"_s);
        catalogue.Execute(
            u"CREATE TABLE tc78 ([自加] LONG,[序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),[日期] DATETIME,"
            "[图片] LONGBINARY,[备注] TEXT(50))"_s);
        const QStringList albums{u"tc00"_s, u"tc01"_s, u"tc02"_s, u"tc99"_s, u"海边照片"_s, u"AbCd"_s, u"tc78"_s};
        QCOMPARE(albumTables(catalogue), albums);
        QCOMPARE(changeableAlbums(catalogue), albums.mid(1));
        QVERIFY(isAlbumTable(catalogue, u"TC01"_s));
        for (const QString& none : {u"tc77"_s, u"tc03"_s, u"a]b'"_s, QString()})
            QVERIFY2(!isAlbumTable(catalogue, none), qPrintable(none));
    }

    void fixedTablesAreNoAlbums() {
        const Database strange = createDatabase(sample_->file(u"strange.mdb"_s));
        for (const QString& table : fixedTables()) {
            QVERIFY(mekTp::catalogue.TableDefs().contains(table));
            strange.Execute(createAlbumSql(table));
            QVERIFY2(!isAlbumTable(strange, table), qPrintable(table));
        }
    }

    void theCatalogueByAnyPath() {
        QVERIFY(QFile::link(sample_->file(u"lunq.mdb"_s), sample_->file(u"link.mdb"_s)));
        QVERIFY(QFile::copy(sample_->file(u"lunq.mdb"_s), sample_->file(u"copy.mdb"_s)));
        for (const QString& name : {u"lunq.mdb"_s, u"./lunq.mdb"_s, u"link.mdb"_s})
            QVERIFY2(isSameFile(mekTp::cataloguePath(), sample_->file(name)), qPrintable(name));
        for (const QString& name : {u"copy.mdb"_s, u"none.mdb"_s})
            QVERIFY2(!isSameFile(mekTp::cataloguePath(), sample_->file(name)), qPrintable(name));
    }

    /// `nothing` is a record without a number.
    void oneAboveTheHighest() {
        constexpr int nothing = -1000;
        const std::pair<QList<int>, int> cases[] = {{{}, 1},           {{1, 2, 3}, 4}, {{7, 40, 3}, 41}, {{nothing}, 1},
                                                    {{5, nothing}, 6}, {{-3, 0}, 1},   {{-3, 2}, 3}};
        for (const auto& [numbers, next] : cases) {
            init();
            for (const int number : numbers)
                addRow(u"tc02"_s, {{u"序号"_s, number == nothing ? FieldValue() : FieldValue(number)}});
            NextNumber free(mekTp::catalogue, u"tc02"_s);
            QCOMPARE(free.value(), next);
            free.take();
            QCOMPARE(free.value(), next + 1);
        }
    }

    void theyEndWithTheLargest() {
        addRow(u"tc02"_s, {{u"序号"_s, std::numeric_limits<qint32>::max() - 1}});
        addRow(u"tc02"_s, {{u"序号"_s, 1}});
        NextNumber free(mekTp::catalogue, u"tc02"_s);
        QCOMPARE(free.value(), std::numeric_limits<qint32>::max());
        free.take();
        QVERIFY(failureOf([&] { free.value(); }).contains(u"序号已用完"_s));
    }
};

const Registered<TestAlbumTables> registered;

#include "album_tables_test.moc"
