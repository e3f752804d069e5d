#include "editor/step_trail.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestStepTrail : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void takesBackNewestFirst() {
        StepTrail trail(u"k1"_s);
        QVERIFY(trail.isFromAlbum() && !StepTrail(u"w1"_s).isFromAlbum() && !StepTrail().isFromAlbum());
        QCOMPARE(trail.newest(), QString());
        trail.push(1);
        trail.push(2);
        QCOMPARE(trail.newest(), u"02"_s);
        QCOMPARE(trail.pop(), u"02"_s);
        QCOMPARE(trail.newest(), u"01"_s);
        QCOMPARE(trail.pop(), u"01"_s);
        QVERIFY(trail.isEmpty());
        QCOMPARE(trail.pop(), QString());
        QCOMPARE(trail.baseCode(), u"k1"_s);
    }

    // Two digits a step would read 100 back as "00" and never find a row again.
    void goesOnPastAHundredSteps() {
        StepTrail trail(u"w1"_s);
        for (int step = 1; step <= 1200; ++step) trail.push(step);
        for (int step = 1200; step >= 1; --step) {
            const QString text = trail.newest();
            QCOMPARE(text.toInt(), step);
            QVERIFY(text.size() >= 2);
            QCOMPARE(trail.pop(), text);
        }
        QVERIFY(trail.isEmpty());
    }
};

const Registered<TestStepTrail> registered;

}  // namespace

#include "step_trail_test.moc"
