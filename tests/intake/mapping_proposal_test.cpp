#include "intake/databases/mapping_proposal.h"

#include "../support/sample_catalogue.h"
#include "intake/databases/known_sources.h"
#include "intake/databases/mapping_rules.h"
#include "platform/base/error.h"
#include "platform/database/records/own_values.h"

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

SourceField field(const QString& name, FieldType type, bool pictures = false, bool counts = false) {
    return {{name, type, type == FieldType::text ? 50 : 4}, pictures, counts};
}

/// The proposal for an album, as `target=source` in the album's order.
QString proposed(const std::vector<SourceField>& source) {
    const SampleCatalogue catalogue;
    QStringList pairs;
    for (const auto& [target, from] : proposedMapping(shapeOf(mekTp::catalogue, u"tc01"_s), source))
        if (!from.isEmpty()) pairs << target + u'=' + from;
    return pairs.join(u' ');
}

const FieldShape longField{u"号"_s, FieldType::longInteger, 4};
const FieldShape shortText{u"编号"_s, FieldType::text, 10};
const FieldShape longText{u"name"_s, FieldType::text, 255};
const FieldShape memo{u"备注"_s, FieldType::memo, 0};

class TestMappingProposal : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void proposals_data() {
        QTest::addColumn<std::vector<SourceField>>("source");
        QTest::addColumn<QString>("mapping");
        using Fields = std::vector<SourceField>;
        QTest::newRow("names of an album, turned round")
            << Fields{field(u"备注"_s, FieldType::text), field(u"图片"_s, FieldType::longBinary),
                      field(u"extra"_s, FieldType::text), field(u"序号"_s, FieldType::longInteger)}
            << u"序号=序号 图片=图片 备注=备注"_s;
        QTest::newRow("Chinese names") << Fields{field(u"编码"_s, FieldType::text), field(u"说明"_s, FieldType::text),
                                                 field(u"拍摄日期"_s, FieldType::date),
                                                 field(u"照片"_s, FieldType::longBinary),
                                                 field(u"图号"_s, FieldType::longInteger)}
                                       << u"序号=图号 编号=编码 日期=拍摄日期 图片=照片 备注=说明"_s;
        QTest::newRow("English names with strokes")
            << Fields{field(u"Photo_ID"_s, FieldType::longInteger), field(u"Caption"_s, FieldType::text),
                      field(u"Date Taken"_s, FieldType::date), field(u"Photo"_s, FieldType::longBinary)}
            << u"序号=Photo_ID 日期=Date Taken 图片=Photo 备注=Caption"_s;
        QTest::newRow("a name with another type is none")
            << Fields{field(u"序号"_s, FieldType::text), field(u"date"_s, FieldType::text),
                      field(u"编号"_s, FieldType::longInteger)}
            << u"序号=编号"_s;
        QTest::newRow("content, whatever the names")
            << Fields{field(u"a"_s, FieldType::longInteger), field(u"b"_s, FieldType::longInteger, false, true),
                      field(u"c"_s, FieldType::longBinary), field(u"d"_s, FieldType::longBinary, true)}
            << u"序号=b 图片=d"_s;
        QTest::newRow("a name for what has no pictures")
            << Fields{field(u"photo"_s, FieldType::longBinary), field(u"x"_s, FieldType::longBinary, true)}
            << u"图片=x"_s;
        QTest::newRow("the type leaves no choice")
            << Fields{field(u"x"_s, FieldType::longBinary), field(u"y"_s, FieldType::date),
                      field(u"z"_s, FieldType::text)}
            << u"日期=y 图片=x 备注=z"_s;
        QTest::newRow("two of a kind") << Fields{field(u"x"_s, FieldType::date), field(u"y"_s, FieldType::date)}
                                       << QString();
        QTest::newRow("each once") << Fields{field(u"name"_s, FieldType::text), field(u"code"_s, FieldType::text)}
                                   << u"编号=code 备注=name"_s;
    }
    void proposals() {
        QFETCH(std::vector<SourceField>, source);
        QTEST(proposed(source), "mapping");
    }

    void whatRecordsHold() {
        const SampleCatalogue catalogue;
        const Database source = createDatabase(catalogue.file(u"other.mdb"_s));
        source.Execute(u"CREATE TABLE t ([n] LONG,[same] LONG,[p] LONGBINARY,[q] LONGBINARY)"_s);
        Recordset rows = source.OpenRecordset(u"t"_s);
        for (const QByteArray& head : {QByteArray("\xFF\xD8\xFF\xE0"), QByteArray("BM1"), QByteArray()})
            addRow(rows, {{u"n"_s, int(head.size())}, {u"same"_s, 1}, {u"p"_s, head}, {u"q"_s, QByteArray("text")}});
        const auto fields = sourceFields(source, u"t"_s);
        const auto is = [&](std::size_t i) { return std::pair(fields[i].counts, fields[i].holdsPictures); };
        QCOMPARE(is(0), std::pair(true, false));
        QCOMPARE(is(1), std::pair(false, false));
        QCOMPARE(is(2), std::pair(false, true));
        QCOMPARE(is(3), std::pair(false, false));
    }

    void choicesAreKeptForTheLastFiles() {
        const SampleCatalogue catalogue;
        OwnValues(mekTp::catalogue).prepare();
        const FieldMapping mapping{{u"备注"_s, u"text"_s}, {u"序号"_s, u"no"_s}};
        knownSources::setMapping(u"/a.mdb"_s, u"t"_s, mapping);
        knownSources::setCodePage(u"/a.mdb"_s, 936);
        QCOMPARE(sourceOf(knownSources::mapping(u"/a.mdb"_s, u"t"_s), u"备注"_s), u"text"_s);
        QVERIFY(knownSources::mapping(u"/a.mdb"_s, u"other"_s).empty());
        for (int i = 0; i < 39; ++i) knownSources::setCodePage(u"/%1.mdb"_s.arg(i), 1252);
        QCOMPARE(knownSources::codePage(u"/a.mdb"_s), 936);
        knownSources::setCodePage(u"/one more.mdb"_s, 1252);
        QCOMPARE(knownSources::codePage(u"/a.mdb"_s), 0);
        QCOMPARE(knownSources::codePage(u"/38.mdb"_s), 1252);
    }

    void checks() {
        struct Case {
            FieldShape source, target;
            bool otherType, shorter;
        };
        const Case cases[]{{shortText, shortText, false, false},
                           {shortText, longText, false, false},
                           {longText, shortText, false, true},
                           {longField, shortText, true, false},
                           {memo, memo, false, false}};  // a memo has no length
        for (const auto& [source, target, otherType, shorter] : cases) {
            QCOMPARE(!typeWarning(source, target).isEmpty(), otherType);
            QCOMPARE(!lengthQuestion(source, target).isEmpty(), shorter);
        }
    }

    void mismatchesByPosition() {
        const TableShape one{longField, shortText, memo};
        QCOMPARE(firstTypeMismatch(one, one), -1);
        QCOMPARE(firstTypeMismatch(one, {longField, longText, shortText}), 2);
        QCOMPARE(firstTypeMismatch(one, {longField}), -1);
        QCOMPARE(firstTypeMismatch({}, one), -1);
    }

    void tablesOnOffer() {
        QCOMPARE(withoutSystemTables({u"MSysObjects"_s, u"msysX"_s, u"MSy"_s, u"tc01"_s}),
                 (QStringList{u"MSy"_s, u"tc01"_s}));
    }

    void keys() {
        QCOMPARE(keyCriteria(longField, u"-7"_s), u"[号] = -7"_s);
        QVERIFY_THROWS_EXCEPTION(Error, keyCriteria(shortText, u"a"_s));
        QVERIFY_THROWS_EXCEPTION(Error, keyCriteria({u"n"_s, FieldType::integer, 2}, u"7"_s));
    }

    void shapesByName() {
        const SampleCatalogue catalogue;
        const Database other = createDatabase(catalogue.file(u"other.mdb"_s));
        other.Execute(u"CREATE TABLE TC01 ([only] LONG)"_s);
        other.Execute(u"CREATE TABLE [two words] ([a] TEXT(3),[b] LONGBINARY)"_s);
        QCOMPARE(shapeByName(mekTp::catalogue, other, u"TC01"_s).size(), std::size_t(7));
        QCOMPARE(shapeOf(other, u"tc01"_s).size(), std::size_t(1));
        const TableShape words = shapeByName(mekTp::catalogue, other, u"two words"_s);
        QCOMPARE(words.size(), std::size_t(2));
        QCOMPARE(words[0].size, 3);
        QCOMPARE(words[1].type, FieldType::longBinary);
        QCOMPARE(fieldNamed(words, u"B"_s)->name, u"b"_s);
        QVERIFY(!fieldNamed(words, u"c"_s));
        QVERIFY_THROWS_EXCEPTION(Error, shapeByName(mekTp::catalogue, other, u"none"_s));
    }
};

const Registered<TestMappingProposal> registered;

}  // namespace

#include "mapping_proposal_test.moc"
