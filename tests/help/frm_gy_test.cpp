#include "help/frm_gy.h"

#include "../support/run_all.h"
#include "platform/desktop/message_box.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestAboutBox : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void systemInformation_data() {
        QTest::addColumn<QStringList>("tools");
        QTest::addColumn<bool>("saysUnavailable");
        QTest::newRow("none installed") << QStringList{u"no-such-tool-1"_s, u"no-such-tool-2"_s} << true;
        QTest::newRow("second installed") << QStringList{u"no-such-tool-1"_s, u"true"_s} << false;
        QTest::newRow("with an argument") << QStringList{u"no-such-tool-1 info"_s, u"true info"_s} << false;
    }

    void systemInformation() {
        QFETCH(QStringList, tools);
        QFETCH(bool, saysUnavailable);
        QStringList said;
        answerBoxesWith([&](const BoxText& box) {
            said << box.text;
            return true;
        });
        frmGy box;
        box.setTools(tools);
        box.show();
        QTest::mouseClick(box.findChild<QPushButton*>(u"cmdXt"_s), Qt::LeftButton);
        answerBoxesWith({});
        QCOMPARE(said, saysUnavailable ? QStringList{u"此时系统信息不可用"_s} : QStringList{});
    }

    void tellsVersionAndLicences() {
        QCoreApplication::setApplicationVersion(u"7.8.9"_s);
        const frmGy box;
        QVERIFY(box.findChild<QLabel*>(u"lblBb"_s)->text().contains(u"7.8.9"));
        const QString licences = box.findChild<QLabel*>(u"lblXk"_s)->text();
        for (const QString& library : {u"Qt"_s, u"SQLite"_s, u"SQLiteCpp"_s, u"libjpeg"_s, u"libmdb"_s})
            QVERIFY2(licences.contains(library), qUtf8Printable(library));
    }

    void keys() {
        frmGy box;
        box.setTools({u"no-such-tool"_s});
        int said = 0;
        answerBoxesWith([&](const BoxText&) { return ++said > 0; });
        box.show();
        QApplication::setActiveWindow(&box);
        auto* tools = box.findChild<QPushButton*>(u"cmdXt"_s);
        tools->setFocus();
        QTest::keyClick(tools, Qt::Key_Return);
        answerBoxesWith({});
        QCOMPARE(said, 1);
        QVERIFY(box.isVisible());
        QTest::keyClick(tools, Qt::Key_Escape);
        QVERIFY(!box.isVisible());
        box.show();
        box.findChild<QPushButton*>(u"cmdQd"_s)->setFocus();
        QTest::keyClick(box.focusWidget(), Qt::Key_Return);
        QVERIFY(!box.isVisible());
    }

    void okCloses() {
        frmGy box;
        box.show();
        QTest::mouseClick(box.findChild<QPushButton*>(u"cmdQd"_s), Qt::LeftButton);
        QVERIFY(!box.isVisible());
    }
};

const Registered<TestAboutBox> registered;

}  // namespace

#include "frm_gy_test.moc"
