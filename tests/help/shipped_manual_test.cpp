#include "help/shipped_manual.h"

#include "../support/sample_catalogue.h"
#include "platform/base/error.h"
#include "platform/database/records/own_values.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const ShippedManual ours{u"<h2>1 甲</h2><h3>1.1 新 &gt; 旧</h3><h3>1.1 乙</h3>"_s, u"1.2.0"_s, {{1, "new picture"}}};

QString manual() {
    return fieldOf(u"tcsz"_s, u"帮助"_s).textOr();
}

void putManual(const QString& text, const QString& note) {
    changeRow(u"tcsz"_s, {{u"帮助"_s, text}});
    if (!note.isEmpty()) OwnValues(mekTp::catalogue).setValue(u"manual.shipped"_s, note);
}

QString noteOf(const QString& version, const QString& text) {
    const QByteArray print = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    return version + u' ' + QString::fromLatin1(print.toHex());
}

class TestShippedManual : public OpenedSampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        OpenedSampleTest::init();
        mekTp::catalogue.Execute(u"DELETE FROM tcbz"_s);
        addRow(u"tcbz"_s, {{u"编号"_s, u"9"_s}, {u"标题"_s, u"旧的一节"_s}});
    }

    void onlyAnUnchangedOlderManualMakesWay_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("note");
        QTest::addColumn<bool>("replaced");
        const QString old = u"<h2>旧</h2>"_s;
        QTest::newRow("of an older program") << old << noteOf(u"1.1.0"_s, old) << true;
        QTest::newRow("of this version while it was made") << old << noteOf(u"1.2.0"_s, old) << true;
        QTest::newRow("of a newer program") << old << noteOf(u"1.10.0"_s, old) << false;
        QTest::newRow("changed by hand") << old + u"我的话"_s << noteOf(u"1.1.0"_s, old) << false;
        QTest::newRow("not known") << old << QString() << false;
        QTest::newRow("the same") << ours.text << noteOf(u"1.1.0"_s, ours.text) << false;
    }
    void onlyAnUnchangedOlderManualMakesWay() {
        QFETCH(QString, text);
        QFETCH(QString, note);
        QFETCH(bool, replaced);
        putManual(text, note);
        QCOMPARE(renewManual(mekTp::catalogue, ours), replaced);
        QCOMPARE(manual(), replaced ? ours.text : text);
        QCOMPARE(fieldOf(u"tcbz"_s, u"编号"_s).toText(), replaced ? u"1.1"_s : u"9"_s);
        QVERIFY(!renewManual(mekTp::catalogue, ours));
    }

    /// What version 1.0.0 had is known by its fingerprint alone.
    void theFirstVersionsManualIsKnown() {
        QFile list(u":/catalogue/earlier_manuals.txt"_s);
        QVERIFY(list.open(QIODevice::ReadOnly));
        const QByteArray known = list.readAll();
        QVERIFY(known.contains("4c97defd1a9fa1f969f06351f839d7bf5216b452373d1736e47690253221ad77"));
        const QByteArray present = QCryptographicHash::hash(shippedManual().text.toUtf8(), QCryptographicHash::Sha256);
        QVERIFY(!known.contains(present.toHex()));
    }

    void contentsAndPreviewsComeWithTheText() {
        addRow(u"tcys"_s, {{u"序号"_s, u"1"_s}, {u"方案名"_s, u"青瓷"_s}});
        putManual(u"<h2>旧</h2>"_s, noteOf(u"1.1.0"_s, u"<h2>旧</h2>"_s));
        QVERIFY(renewManual(mekTp::catalogue, ours));
        const std::vector<ManualSection> sections{{u"1.1"_s, u"新 > 旧"_s}, {u"1.1"_s, u"乙"_s}};
        QCOMPARE(sectionsOf(ours.text), sections);
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tcbz"_s).rowCount(), 2);
        QCOMPARE(fieldOf(u"SELECT * FROM tcys WHERE 序号 = '1'"_s, u"主窗口"_s).toBytes(), QByteArray("new picture"));
    }

    void aCatalogueThatCannotTakeAllOfItKeepsWhatItHas() {
        const QString old = u"<h2>旧</h2>"_s;
        putManual(old, noteOf(u"1.1.0"_s, old));
        mekTp::catalogue.Execute(u"DROP TABLE tcys"_s);
        QVERIFY(!attempt([] { renewManual(mekTp::catalogue, ours); }));
        QCOMPARE(manual(), old);
        QCOMPARE(fieldOf(u"tcbz"_s, u"编号"_s).toText(), u"9"_s);
    }
};

const Registered<TestShippedManual> registered;

}  // namespace

#include "shipped_manual_test.moc"
