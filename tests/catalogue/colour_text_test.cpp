#include "catalogue/colour_text.h"

#include "../support/run_all.h"
#include "platform/base/error.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestColourText : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void reading() {
        QCOMPARE(colourFromText(u"&H00FF8001&"_s), QColor(0x01, 0x80, 0xff));
        QCOMPARE(colourFromText(u"&H00FF&"_s), QColor(255, 0, 0));
        QCOMPARE(colourFromText(u"255"_s), QColor(255, 0, 0));
        QCOMPARE(colourFromText(u""_s), QColor(0, 0, 0));
        QVERIFY_THROWS_EXCEPTION(Error, colourFromText(u"-5"_s));
        QVERIFY_THROWS_EXCEPTION(Error, colourFromText(u"16777216"_s));
    }

    void writing() {
        QCOMPARE(colourText(Qt::blue), u"&H00FF0000&"_s);
        QCOMPARE(colourText(Qt::red), u"&H00FF&"_s);
        QCOMPARE(colourText(Qt::black), u"&H000&"_s);
        for (const QColor& colour : {QColor(1, 128, 255), QColor(0, 0, 16), QColor(Qt::white)})
            QCOMPARE(colourFromText(colourText(colour)), colour);
    }
};

const Registered<TestColourText> registered;

}  // namespace

#include "colour_text_test.moc"
