#include "../support/run_all.h"
#include "soak/fingerprints.h"
#include "soak/ledger.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// "tc05: a b c" and the like, places with semicolons between them.
Found foundIn(const QString& text) {
    Found found;
    for (const QString& part : text.split(u"; "_s, Qt::SkipEmptyParts)) {
        PlaceFound& place = found[part.section(u':', 0, 0)];
        for (const QString& word : part.section(u": "_s, 1).split(u' ', Qt::SkipEmptyParts))
            if (word.startsWith(u'#'))
                place.numbers = word.mid(1);
            else
                place.pictures << word;
    }
    return found;
}

class TestSoakLedger : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void whatIsFoundIsComparedWithWhatWasTold() {
        struct Case {
            QString reports, found, fault;
        };
        const Case cases[] = {
            {{}, u"tc05: a b"_s, {}},
            {{}, u"tc05: a"_s, u"tc05: b is lost"_s},
            {{}, u"tc05: a b b"_s, u"tc05: b is there 2 times"_s},
            {{}, u"tc05: a b x"_s, u"tc05: nobody knows x"_s},
            {{}, {}, u"tc05 is lost"_s},
            {{}, u"tc05: a b; tc06: c"_s, u"tc06 has come from nowhere"_s},
            {u"add tc05 c"_s, u"tc05: a b"_s, {}},
            {u"add tc05 c"_s, u"tc05: a b c"_s, {}},
            {u"add tc05 c; added tc05 c"_s, u"tc05: a b"_s, u"tc05: c is lost"_s},
            {u"add tc05 ?"_s, u"tc05: a b x"_s, {}},
            {u"add tc05 ?"_s, u"tc05: a b x y"_s, u"tc05: nobody knows x, y"_s},
            {u"add tc05 ?; met tc05 x"_s, u"tc05: a b x"_s, {}},
            {u"add tc05 ?; met tc05 x"_s, u"tc05: a b x y"_s, u"tc05: nobody knows y"_s},
            {u"drop tc05 b"_s, u"tc05: a"_s, {}},
            {u"drop tc05 b"_s, u"tc05: a b"_s, {}},
            {u"drop tc05 b; dropped tc05 b"_s, u"tc05: a b"_s, u"tc05: b has come back"_s},
            {u"turn tc05 b out b; create out"_s, u"tc05: a b; out:"_s, {}},
            {u"turn tc05 b out b; create out"_s, u"tc05: a; out: b"_s, {}},
            {u"turn tc05 b out b; create out"_s, u"tc05: a b; out: b"_s, {}},
            {u"turn tc05 b out b; create out"_s, u"tc05: a; out:"_s, u"b is lost between tc05 and out"_s},
            {u"turn tc05 b tc05 ?"_s, u"tc05: a x"_s, {}},
            {u"turn tc05 b tc05 ?"_s, u"tc05: a"_s, u"b is lost between tc05 and tc05"_s},
            {u"turn tc05 b tc05 ?; turned tc05 b tc05 x"_s, u"tc05: a x"_s, {}},
            {u"turn tc05 b tc05 ?; turned tc05 b tc05 x"_s, u"tc05: a b"_s, u"tc05: b has come back|tc05: x is lost"_s},
            {u"turn tc05 b tc05 ?; turned tc05 b tc05 x"_s, u"tc05: a x y"_s, u"tc05: nobody knows y"_s},
            {u"renumber tc05 1 2"_s, u"tc05: a b #1"_s, {}},
            {u"renumber tc05 1 2"_s, u"tc05: a b #2"_s, {}},
            {u"renumber tc05 1 2"_s, u"tc05: a b #3"_s, u"tc05: renumbered by half"_s},
            {u"renumber tc05 1 2; forget tc05"_s, u"tc05: a b #3"_s, {}},
            {u"turn tc05 b lunq_bin b"_s, u"tc05: a; lunq_bin: c c"_s, u"b is lost between tc05 and lunq_bin"_s},
            {u"turn tc05 b lunq_bin b; turned tc05 b lunq_bin b"_s, u"tc05: a; lunq_bin: b c c"_s, {}},
            {u"turn lunq_bin c tc05 c; turned lunq_bin c tc05 c"_s, u"tc05: a b c; lunq_bin: c"_s, {}},
            {u"drop lunq_bin c; dropped lunq_bin c"_s, u"tc05: a b; lunq_bin: c"_s, u"lunq_bin: c has come back"_s},
            {u"renumber tc05 1 2; renumbered tc05 2"_s, u"tc05: a b #1"_s, u"tc05: renumbered by half"_s},
            {u"renumber tc05 1 2; renumbered tc05 2; drop tc05 b"_s, u"tc05: a #9"_s, {}},
            {u"remove tc05"_s, {}, {}},
            {u"remove tc05"_s, u"tc05: a"_s, u"tc05: b is lost"_s},
            {u"remove tc05; removed tc05"_s, u"tc05: a b"_s, u"tc05 has come back"_s},
            {u"ready; scene append; end append"_s, u"tc05: a b"_s, {}},
        };
        for (const auto& [reports, found, fault] : cases) {
            Ledger ledger;
            ledger.adopt(foundIn(u"tc05: a b"_s));
            for (const QString& line : reports.split(u"; "_s, Qt::SkipEmptyParts)) ledger.hear(line);
            const QStringList faults = ledger.faults(foundIn(found));
            QVERIFY2(faults.join(u'|') == fault,
                     qPrintable(QStringList({reports, found, faults.join(u'|')}).join(u" / "_s)));
        }
    }

    void halfAPictureIsTold() {
        const QByteArray jpeg("\xFF\xD8 picture \xFF\xD9");
        QVERIFY(faultOfPicture(jpeg).isEmpty());
        QVERIFY(faultOfPicture(asStored(jpeg)).isEmpty());
        QVERIFY(!faultOfPicture(jpeg.chopped(1)).isEmpty());
        QVERIFY(!faultOfPicture({}).isEmpty());
        QByteArray bitmap(60, '\0');
        bitmap.replace(0, 3, "BM\x3C");
        QVERIFY(faultOfPicture(bitmap).isEmpty());
        QVERIFY(!faultOfPicture(bitmap.chopped(1)).isEmpty());
    }
};

const Registered<TestSoakLedger> registered;

}  // namespace

#include "soak_ledger_test.moc"
