#include "intake/databases/mapping_rules.h"

#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"

#include <QtTest/QtTest>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

const FieldShape longField{u"号"_s, FieldType::longInteger, 4};
const FieldShape shortText{u"编号"_s, FieldType::text, 10};
const FieldShape longText{u"name"_s, FieldType::text, 255};
const FieldShape memo{u"备注"_s, FieldType::memo, 0};

class TestMappingRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
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

const Registered<TestMappingRules> registered;

}  // namespace

#include "mapping_rules_test.moc"
