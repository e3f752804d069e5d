#include "../support/run_all.h"
#include "editing_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The panel with the picture of the record.
class TestEditingPanel : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void panelOfALostAlbum() {
        EditingWindow window;
        window.click(u"cmdCk(2)"_s);
        QLineEdit* chooser = window.get<QComboBox>(u"cboBm"_s).lineEdit();
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_X}) QTest::keyClick(chooser, key);
        QVERIFY(!window.get<QGroupBox>(u"fraCk"_s).isVisible() && !window.isEnabled(u"cmdCk(2)"_s));
    }

    void panelFollowsTheRecord() {
        EditingWindow window;
        window.click(u"cmdCk(2)"_s);
        const auto& panel = window.get<QGroupBox>(u"fraCk"_s);
        QCOMPARE(panel.title(), u"tc01 图片： 序号 1 编号 12"_s);
        QTest::mouseClick(window.datBj().findChild<QToolButton*>(u"last"_s), Qt::LeftButton);
        QCOMPARE(panel.title(), u"tc01 图片： 序号 10 编号 "_s);
        window.choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(panel.title(), u"tc02 图片： 序号  编号 "_s);
        QVERIFY(window.get<ImageBox>(u"imgWj"_s).picture().isNull());
    }
};

const Registered<TestEditingPanel> registered;

}  // namespace

#include "editing_panel_test.moc"
