#include "intake/mapping_rules.h"

#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/mektp.h"
#include "intake/database_copy.h"
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

    void keysThatComeAgain() {
        QCOMPARE(recordsOfKeys({u"1"_s, u"2"_s, u"1"_s}), (QList<SourceRecord>{{u"1"_s, 0}, {u"2"_s, 0}, {u"1"_s, 1}}));
    }

    void reports() {
        CopyResult whole;
        whole.copied = {u"1"_s};
        whole.notFound = {u"8"_s, u"9"_s};
        QCOMPARE(copyReport(whole, u"no"_s), QString());
        QVERIFY(notReplacedText(whole, u"no"_s).endsWith(u"[no = 8,9]"_s));

        CopyResult broken = whole;
        broken.failure = u"磁盘已满。"_s;
        broken.failedKey = u"3"_s;
        broken.left = {u"4"_s, u"5"_s};
        QCOMPARE(notReplacedText(broken, u"no"_s), QString());
        QCOMPARE(
            copyReport(broken, u"no"_s).split(u"\n\n"_s),
            (QStringList{u"录入到记录“no＝3”时停止，该记录没有录入：磁盘已满。"_s, u"以下记录也没有录入：no＝4、5"_s,
                         u"记录已录入图册：no＝1"_s, u"目标表中没有对应的记录，没有替换：no＝8、9"_s}));

        // Nothing is asked about what was left out before a failure: it is told.
        broken.noPictures = {u"6"_s};
        broken.truncated = {u"7"_s};
        const QString report = copyReport(broken, u"no"_s);
        QVERIFY(report.contains(u"图片不是 BMP 或 JPEG，没有录入：no＝6\n\n图片不完整，没有录入：no＝7"_s));
    }
};

const Registered<TestMappingRules> registered;

}  // namespace

#include "mapping_rules_test.moc"
