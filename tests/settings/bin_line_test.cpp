#include "../support/run_all.h"
#include "catalogue/album_directory.h"
#include "catalogue/bin_contents.h"
#include "catalogue/mektp.h"
#include "editing_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The settings window on a catalogue that has a bin.
class BinWindow : public EditingWindow {
  public:
    BinWindow() {
        mekTp::openCatalogue();
        open();
        tabs().setCurrentIndex(2);
        choose(u"cboBm"_s, u"tc01"_s);
        said();
    }

    bool shows(const QString& name) const { return get<QWidget>(name).isVisible(); }
    QString line() const { return shows(u"lblHf"_s) ? label(u"lblHf"_s) : QString(); }
    /// Lets the ten seconds be over.
    void endTelling() const {
        for (auto* timer : form->findChildren<QTimer*>())
            if (timer->isActive() && timer->interval() == 10000) QMetaObject::invokeMethod(timer, "timeout");
    }
    void deleteRow(int row) const {
        clickRow(row);
        click(u"cmdSc"_s);
    }
};

class TestBinLine : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void deletedRecordComesBackByOneClick() {
        const BinWindow window;
        QVERIFY(!window.shows(u"cmdHf"_s) && !window.shows(u"lblHf"_s));
        window.deleteRow(2);
        QCOMPARE(window.line(), u"已删除 1 张"_s);
        QCOMPARE(window.caption(u"cmdHf"_s), u"恢复"_s);
        window.click(u"cmdHf"_s);
        QCOMPARE(window.line(), u"已恢复 1 张"_s);
        QVERIFY(!window.shows(u"cmdHf"_s));
        QCOMPARE(window.numbers().size(), 10);
        QVERIFY(window.label(u"lblZs"_s).contains(u"10"_s));
    }

    void smallFormOpensTheBin() {
        BinWindow window;
        window.deleteRow(2);
        window.deleteRow(2);
        QCOMPARE(window.line(), u"已删除 1 张"_s);
        window.endTelling();
        QVERIFY(!window.shows(u"lblHf"_s));
        QCOMPARE(window.caption(u"cmdHf"_s), u"回收站"_s);
        window.open();  // what is there already is not told anew
        QVERIFY(!window.shows(u"lblHf"_s));
        window.click(u"cmdHf"_s);
        auto* bin = found<QDialog>(window.form.get(), u"frmHs"_s);
        QCOMPARE(found<QTableView>(bin, u"lstHs"_s)->model()->rowCount(), 2);
        found<QTableView>(bin, u"lstHs"_s)->selectAll();
        QTest::mouseClick(found<QPushButton>(bin, u"cmdHy"_s), Qt::LeftButton);
        QVERIFY(!window.shows(u"cmdHf"_s) && !window.shows(u"lblHf"_s));
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tc01"_s).rowCount(), 10);
    }

    void replacedPictureComesBack() {
        BinWindow window;
        window.clickRow(3);
        window.click(u"cmdQd"_s);
        const QString before = EditingWindow::record(u"图片4"_s);
        window.takeNewPicture();
        QVERIFY(EditingWindow::record(u"图片4"_s) != before);
        QCOMPARE(window.line(), u"已替换 1 张"_s);
        window.click(u"cmdHf"_s);
        QCOMPARE(EditingWindow::record(u"图片4"_s), before);
        QVERIFY(!isBinEmpty(mekTp::catalogue));  // the new one is in the bin now
    }

    void albumAndButtonComeBack() {
        const BinWindow window;
        window.tabs().setCurrentIndex(0);
        window.choose(u"cboFc"_s, u"tc01"_s);
        window.click(u"cmdFs"_s);
        QCOMPARE(window.line(), u"已删除 10 张"_s);
        QVERIFY(!hasTable(u"tc01"_s));
        window.click(u"cmdHf"_s);
        QVERIFY(hasTable(u"tc01"_s));
        QCOMPARE(window.lines(u"cboFc"_s).size(), 3);
        QCOMPARE(window.lines(u"cboBm"_s).size(), 3);

        window.clickRow(3);  // "a": the codes 1 to 6 are the program's own
        window.click(u"cmdSn"_s);
        QCOMPARE(window.line(), u"已删除 1 个按钮"_s);
        window.click(u"cmdHf"_s);
        QCOMPARE(columnOf(u"SELECT * FROM tcan"_s, u"编号"_s).size(), 4);
    }

    /// Neither part of the line may lie over a control, in the smallest window.
    void coversNothing() {
        BinWindow window;
        window.deleteRow(0);
        for (const QString& name : {u"lblHf"_s, u"cmdHf"_s}) {
            const auto& part = window.get<QWidget>(name);
            QVERIFY(window.form->rect().contains(part.geometry()));
            for (const QWidget* other : window.form->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                const bool isEmpty =
                    other->objectName() == u"lblJd" && static_cast<const QLabel*>(other)->text().isEmpty();
                if (other == &part || other->isHidden() || other->isWindow() || isEmpty) continue;
                QVERIFY2(!other->geometry().intersects(part.geometry()), qPrintable(other->objectName()));
            }
        }
    }

    /// What is being typed is not lost by putting something back.
    void unsavedRecordIsAskedAbout() {
        BinWindow window;
        window.deleteRow(0);
        window.clickRow(0);
        window.click(u"cmdQd"_s);
        window.box(u"txtB2"_s).setText(u"新的"_s);
        window.said();
        window.answerWith(2);
        window.click(u"cmdHf"_s);
        QCOMPARE(window.said().size(), 1);
        QCOMPARE(window.text(u"txtB2"_s), u"新的"_s);
        QCOMPARE(window.numbers().size(), 9);
    }
};

const Registered<TestBinLine> registered;

}  // namespace

#include "bin_line_test.moc"
