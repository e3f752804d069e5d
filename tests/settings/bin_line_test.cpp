#include "catalogue/bin_contents.h"
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

    std::optional<BinWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void deletedRecordComesBackByOneClick() {
        QVERIFY(!window_->shows(u"cmdHf"_s) && !window_->shows(u"lblHf"_s));
        window_->deleteRow(2);
        QCOMPARE(window_->line(), u"已删除 1 张"_s);
        QCOMPARE(window_->caption(u"cmdHf"_s), u"恢复"_s);
        window_->click(u"cmdHf"_s);
        QCOMPARE(window_->line(), u"已恢复 1 张"_s);
        QVERIFY(!window_->shows(u"cmdHf"_s));
        QCOMPARE(window_->numbers().size(), 10);
        QVERIFY(window_->label(u"lblZs"_s).contains(u"10"_s));
    }

    void smallFormOpensTheBin() {
        window_->deleteRow(2);
        window_->deleteRow(2);
        QCOMPARE(window_->line(), u"已删除 1 张"_s);
        window_->endTelling();
        QVERIFY(!window_->shows(u"lblHf"_s));
        QCOMPARE(window_->caption(u"cmdHf"_s), u"回收站"_s);
        window_->open();  // what is there already is not told anew
        QVERIFY(!window_->shows(u"lblHf"_s));
        window_->click(u"cmdHf"_s);
        auto* bin = found<QDialog>(window_->form.get(), u"frmHs"_s);
        QCOMPARE(found<QTableView>(bin, u"lstHs"_s)->model()->rowCount(), 2);
        found<QTableView>(bin, u"lstHs"_s)->selectAll();
        QTest::mouseClick(found<QPushButton>(bin, u"cmdHy"_s), Qt::LeftButton);
        QVERIFY(!window_->shows(u"cmdHf"_s) && !window_->shows(u"lblHf"_s));
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"tc01"_s).rowCount(), 10);
    }

    void replacedPictureComesBack() {
        window_->clickRow(3);
        window_->click(u"cmdQd"_s);
        const QString before = EditingWindow::record(u"图片4"_s);
        window_->takeNewPicture();
        QVERIFY(EditingWindow::record(u"图片4"_s) != before);
        QCOMPARE(window_->line(), u"已替换 1 张"_s);
        window_->click(u"cmdHf"_s);
        QCOMPARE(EditingWindow::record(u"图片4"_s), before);
        QVERIFY(!isBinEmpty(mekTp::catalogue));  // the new one is in the bin now
    }

    void albumAndButtonComeBack() {
        window_->tabs().setCurrentIndex(0);
        window_->choose(u"cboFc"_s, u"tc01"_s);
        window_->click(u"cmdFs"_s);
        QCOMPARE(window_->line(), u"已删除 10 张"_s);
        QVERIFY(!hasTable(u"tc01"_s));
        window_->click(u"cmdHf"_s);
        QVERIFY(hasTable(u"tc01"_s));
        QCOMPARE(window_->lines(u"cboFc"_s).size(), 3);
        QCOMPARE(window_->lines(u"cboBm"_s).size(), 3);

        window_->clickRow(3);  // "a": the codes 1 to 6 are the program's own
        window_->click(u"cmdSn"_s);
        QCOMPARE(window_->line(), u"已删除 1 个按钮"_s);
        window_->click(u"cmdHf"_s);
        QCOMPARE(columnOf(u"SELECT * FROM tcan"_s, u"编号"_s).size(), 4);
    }

    /// Neither part of the line may lie over a control, in the smallest window.
    void coversNothing() {
        window_->deleteRow(0);
        for (const QString& name : {u"lblHf"_s, u"cmdHf"_s}) {
            const auto& part = window_->get<QWidget>(name);
            QVERIFY(window_->form->rect().contains(part.geometry()));
            for (const QWidget* other : window_->form->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                const bool isEmpty =
                    other->objectName() == u"lblJd" && static_cast<const QLabel*>(other)->text().isEmpty();
                if (other == &part || other->isHidden() || other->isWindow() || isEmpty) continue;
                QVERIFY2(!other->geometry().intersects(part.geometry()), qPrintable(other->objectName()));
            }
        }
    }

    /// Nobody can press the button behind a box: its time begins afterwards.
    void timeStandsStillBehindABox() {
        constexpr int longestMs = 10500;  // such a timer is right to a twentieth
        window_->deleteRow(0);
        const auto* time = window_->form->findChild<BinLine*>()->findChild<QTimer*>();
        QVERIFY(time->isActive() && time->remainingTime() <= longestMs);
        {
            QDialog box(window_->form.get());
            box.setModal(true);
            box.show();
            QTRY_VERIFY(time->remainingTime() > longestMs);
        }
        QTRY_VERIFY(time->isActive() && time->remainingTime() <= longestMs);
    }

    /// What is being typed is not lost by putting something back.
    void unsavedRecordIsAskedAbout() {
        window_->deleteRow(0);
        window_->clickRow(0);
        window_->click(u"cmdQd"_s);
        window_->box(u"txtB2"_s).setText(u"新的"_s);
        window_->said();
        window_->answerWith(2);
        window_->click(u"cmdHf"_s);
        QCOMPARE(window_->said().size(), 1);
        QCOMPARE(window_->text(u"txtB2"_s), u"新的"_s);
        QCOMPARE(window_->numbers().size(), 9);
    }
};

const Registered<TestBinLine> registered;

}  // namespace

#include "bin_line_test.moc"
