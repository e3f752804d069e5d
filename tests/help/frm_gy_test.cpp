#include "help/frm_gy.h"

#include "../support/found.h"
#include "../support/run_all.h"
#include "help/text_page.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

class TestAboutBox : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void systemInformation() {
        QStringList said;
        answerBoxesWith([&](const BoxText& box) {
            said << box.text;
            return true;
        });
        // None is installed, the second one is, with an argument.
        const std::pair<QStringList, QStringList> rows[] = {
            {{u"no-such-tool-1"_s, u"no-such-tool-2"_s}, {u"此时系统信息不可用"_s}},
            {{u"no-such-tool-1"_s, u"true"_s}, {}},
            {{u"no-such-tool-1 info"_s, u"true info"_s}, {}},
        };
        for (const auto& [tools, boxes] : rows) {
            frmGy box;
            box.setTools(tools);
            box.show();
            said.clear();
            QTest::mouseClick(found<QPushButton>(&box, u"cmdXt"_s), Qt::LeftButton);
            QCOMPARE(said, boxes);
        }
        answerBoxesWith({});
    }

    void tellsVersionAndLicences() {
        QCoreApplication::setApplicationVersion(u"7.8.9"_s);
        const frmGy box;
        QVERIFY(found<QLabel>(&box, u"lblBb"_s)->text().contains(u"7.8.9"));
        const QString licences = found<QLabel>(&box, u"lblXk"_s)->text();
        for (const QString& library :
             {u"Qt"_s, u"SQLite"_s, u"SQLiteCpp"_s, u"libjpeg"_s, u"OpenSSL"_s, u"libmdb"_s, u"Exiv2（GPL"_s})
            QVERIFY2(licences.contains(library), qUtf8Printable(library));
    }

    void showsWhatIsNewAndTheLastFailures() {
        answerBoxesWith([](const BoxText&) { return true; });
        for (int i = 1; i <= 12; ++i)
            runHandler(nullptr, [i] { throw Error(u"图片文件“/a/%1.jpg”不能读取。\n\n请再试一次。"_s.arg(i)); });
        runHandler(nullptr, [] { throw Error(u"列“备注”不能存入“我的秘密”：太长。"_s); });
        answerBoxesWith({});
        frmGy box;
        box.show();
        const auto textAfter = [&box](const QString& button) {
            QTest::mouseClick(found<QPushButton>(&box, button), Qt::LeftButton);
            auto* page = box.findChild<TextPage*>();
            QTest::mouseClick(found<QPushButton>(page, u"cmdFz"_s), Qt::LeftButton);
            delete page;
            return QGuiApplication::clipboard()->text();
        };
        QVERIFY(textAfter(u"cmdGx"_s).contains(u"1.0.0"));
        const QStringList failures = textAfter(u"cmdGz"_s).split(u'\n');
        QCOMPARE(failures.size(), 1 + 10);
        QVERIFY2(failures[1].endsWith(u"列“备注”不能存入“…”：太长。"), qPrintable(failures[1]));
        QVERIFY2(failures[2].endsWith(u"图片文件“/a/12.jpg”不能读取。"), qPrintable(failures[2]));
    }

    void keys() {
        frmGy box;
        box.setTools({u"no-such-tool"_s});
        int said = 0;
        answerBoxesWith([&](const BoxText&) { return ++said > 0; });
        box.show();
        QApplication::setActiveWindow(&box);
        auto* tools = found<QPushButton>(&box, u"cmdXt"_s);
        tools->setFocus();
        QTest::keyClick(tools, Qt::Key_Return);
        answerBoxesWith({});
        QCOMPARE(said, 1);
        QVERIFY(box.isVisible());
        QTest::keyClick(tools, Qt::Key_Escape);
        QVERIFY(!box.isVisible());
        box.show();
        auto* ok = found<QPushButton>(&box, u"cmdQd"_s);
        ok->setFocus();
        QTest::keyClick(ok, Qt::Key_Return);
        QVERIFY(!box.isVisible());
        box.show();
        QTest::mouseClick(ok, Qt::LeftButton);
        QVERIFY(!box.isVisible());
    }
};

const Registered<TestAboutBox> registered;

#include "frm_gy_test.moc"
