#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "help/rich_text_box.h"
#include "platform/desktop/tool_bar.h"
#include "program.h"

#include <QtTest/QtTest>
#include <QtWidgets/QtWidgets>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The help window stands beside the others: they have to hear of each other.
class TestHelpBeside : public QObject {
    Q_OBJECT

    std::unique_ptr<SampleCatalogue> catalogue_;
    std::unique_ptr<Program> program_;

    static QWidget* window(const QString& name) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == name && widget->isVisible()) return widget;
        return nullptr;
    }
    static void click(const QString& windowName, const QString& name) {
        auto* control = window(windowName)->findChild<QWidget*>(name);
        if (control == nullptr) qFatal("no control %s", qPrintable(name));
        QTest::mouseClick(control, Qt::LeftButton);
    }
    static QString helpKey() {
        auto* bar = window(u"frmTp"_s)->findChild<ToolBar*>(u"tlb1"_s);
        const auto* item = window(u"frmTp"_s)->findChild<QAction*>(u"mnuBz"_s);
        return bar->image(u"bz"_s) + u'|' + bar->button(u"bz"_s)->toolTip() + u'|' + item->text();
    }

  private Q_SLOTS:
    void init() {
        catalogue_ = std::make_unique<SampleCatalogue>();
        program_ = std::make_unique<Program>();
        program_->start();
        QTRY_VERIFY(window(u"frmTp"_s));
    }
    void cleanup() {
        program_.reset();
        catalogue_.reset();
    }

    void theMainWindowOffersWhatIsLeftToDo() {
        const QString offersHelp = u"bz|帮助|帮助(B)"_s;
        const QString offersClosing = u"bg|帮助关闭|帮助关闭(B)"_s;
        for (int way = 0; way < 3; ++way) {
            click(u"frmTp"_s, u"tlb1:bz"_s);
            QVERIFY(window(u"frmBz"_s));
            QCOMPARE(helpKey(), offersClosing);
            if (way == 0) click(u"frmTp"_s, u"tlb1:bz"_s);
            if (way == 1) window(u"frmBz"_s)->close();
            if (way == 2) click(u"frmBz"_s, u"imgFh"_s);
            QVERIFY(!window(u"frmBz"_s) && window(u"frmTp"_s));
            QCOMPARE(helpKey(), offersHelp);
        }
    }

    void helpOutlivesTheWindowThatAskedForIt() {
        click(u"frmTp"_s, u"tlb1:bj"_s);
        QTRY_VERIFY(window(u"frmSz"_s) && !window(u"frmTp"_s));
        click(u"frmSz"_s, u"cmdBz"_s);
        QTRY_VERIFY(window(u"frmBz"_s));
        const auto* text = window(u"frmBz"_s)->findChild<RichTextBox*>(u"rtfBz"_s);
        QVERIFY(text->textCursor().block().text().contains(u"3 软件的使用"));

        click(u"frmSz"_s, u"cmdFh"_s);
        QTRY_VERIFY(window(u"frmTp"_s) && !window(u"frmSz"_s));
        QVERIFY(window(u"frmBz"_s));
        QVERIFY(helpKey().startsWith(u"bg|"));
        click(u"frmTp"_s, u"tlb1:bz"_s);
        QVERIFY(!window(u"frmBz"_s));
    }

    /// Work in the settings window is not left behind by the way back from the manual.
    void theWayBackLeadsToTheWindowAtWork() {
        click(u"frmTp"_s, u"tlb1:bj"_s);
        QTRY_VERIFY(window(u"frmSz"_s));
        click(u"frmSz"_s, u"cmdBz"_s);
        click(u"frmBz"_s, u"imgFh"_s);
        QVERIFY(window(u"frmSz"_s) && !window(u"frmBz"_s) && !window(u"frmTp"_s));
    }
};

const Registered<TestHelpBeside> registered;

}  // namespace

#include "help_beside_test.moc"
