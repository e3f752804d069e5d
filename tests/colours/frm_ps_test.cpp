#include "colours/frm_ps.h"

#include "../support/found.h"
#include "../support/recording_windows.h"
#include "../support/sample_catalogue.h"
#include "platform/desktop/colour_dialog.h"
#include "platform/desktop/message_box.h"

#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {

void addScheme(const QString& number, const QString& name, const QString& window) {
    RowValues row{{u"序号"_s, number},
                  {u"方案名"_s, name},
                  {u"窗体"_s, window},
                  {u"外框"_s, u"&H00FF&"_s},
                  {u"内框"_s, u"&H00FF0000&"_s}};
    if (number != u"3") row.push_back({u"填充"_s, u"&H00FF00&"_s});
    if (number == u"0") row.push_back({u"主窗口"_s, pictureBytes({40, 30}, Qt::red)});
    addRow(u"tcys"_s, row);
}

QString stored(const QString& number, const QString& column) {
    return fieldOf(u"SELECT * FROM tcys WHERE 序号 = "_s + quoted(number), column).textOr();
}

class TestColourWindow : public QObject {
    Q_OBJECT

    std::unique_ptr<SampleCatalogue> catalogue_;
    std::unique_ptr<RecordingWindows> windows_;
    std::unique_ptr<frmPs> window_;
    QStringList said_;
    const QStringList boxNames_{u"txtYs(0)"_s, u"txtYs(1)"_s, u"txtYs(2)"_s, u"txtYs(3)"_s};

    template <typename Control>
    Control& get(const QString& name) const {
        return *found<Control>(window_.get(), name);
    }
    QColor ground(const QString& label) const { return get<QLabel>(label).palette().color(QPalette::Window); }
    void choose(const QString& line) const {
        auto& list = get<QComboBox>(u"cboFa"_s);
        QTest::keyClick(&list, Qt::Key_Home);
        while (list.currentText() != line && list.currentIndex() < list.count() - 1)
            QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(list.currentText(), line);
    }
    void focus(int box) const { QTest::mouseClick(&get<TextBox>(u"txtYs(%1)"_s.arg(box)), Qt::LeftButton); }
    void click(const QString& name) const { QTest::mouseClick(&get<QPushButton>(name), Qt::LeftButton); }
    static QString active() { return fieldOf(u"tcsz"_s, u"颜色"_s).textOr(); }

  private Q_SLOTS:
    void init() {
        said_.clear();
        answerBoxesWith([this](const BoxText& box) {
            said_ << box.text;
            return true;
        });
        catalogue_ = std::make_unique<SampleCatalogue>();
        mekTp::catalogue.Execute(u"DELETE FROM tcys"_s);
        addScheme(u"0"_s, u"默认"_s, u"&H00FFFFFF&"_s);
        addScheme(u"3"_s, u"藕荷"_s, u"&H00123456&"_s);
        addScheme(u"5"_s, u"自定义"_s, u"&H00808080&"_s);
        addScheme(u"6"_s, u"又一个"_s, u"&H00FFFF&"_s);
        windows_ = std::make_unique<RecordingWindows>();
        window_ = std::make_unique<frmPs>(*windows_);
        window_->show();
        QApplication::setActiveWindow(window_.get());
    }
    void cleanup() {
        answerColourDialogsWith({});
        answerBoxesWith({});
        window_.reset();
        catalogue_.reset();
    }

    void opensOnTheDefaultScheme() {
        QCOMPARE(get<QComboBox>(u"cboFa"_s).currentText(), u"0 默认"_s);
        QCOMPARE(get<QLabel>(u"lblFa"_s).text(), u"当前方案\n[0 默认]"_s);
        QCOMPARE(get<QLabel>(u"lblBt"_s).text(), u"窗口颜色配置方案显示(默认)"_s);
        QVERIFY(!get<ImageBox>(u"imgXs"_s).picture().isNull() && get<QLabel>(u"lblTs"_s).isVisible());
    }

    void showsAScheme() {
        choose(u"3 藕荷"_s);
        QCOMPARE(get<TextBox>(u"txtYs(0)"_s).text(), QString());
        QCOMPARE(get<TextBox>(u"txtYs(3)"_s).text(), u"&H00123456&"_s);
        QCOMPARE(ground(u"lblB0(2)"_s), QColor(Qt::red));
        QCOMPARE(ground(u"lblB0(1)"_s), QColor(Qt::blue));
        QCOMPARE(get<ShapeBox>(u"shpCt"_s).fillColor(), QColor(0x56, 0x34, 0x12));
        // An empty text leaves its part in the colour of the scheme before.
        QCOMPARE(ground(u"lblB0(0)"_s), QColor(Qt::green));
        QVERIFY(get<ImageBox>(u"imgXs"_s).picture().isNull() && !get<QLabel>(u"lblTs"_s).isVisible());
    }

    void mixingAndStoring() {
        choose(u"5 自定义"_s);
        QList<QColor> offered;
        const QList<QColor> mixed{QColor(1, 2, 3), Qt::yellow, Qt::cyan, Qt::black};
        answerColourDialogsWith([&](const QColor& present) {
            offered << present;
            return std::optional(mixed[offered.size() - 1]);
        });
        for (int i = 0; i < 4; ++i) focus(i);
        QCOMPARE(offered, (QList<QColor>{Qt::green, Qt::blue, Qt::red, QColor(0x80, 0x80, 0x80)}));
        QCOMPARE(ground(u"lblB2"_s), mixed[0]);
        QCOMPARE(get<TextBox>(u"txtYs(0)"_s).text(), u"&H0030201&"_s);
        QCOMPARE(active(), u"0"_s);
        click(u"cmdQd"_s);
        QCOMPARE(active(), u"5"_s);
        QCOMPARE(stored(u"5"_s, u"填充"_s), u"&H0030201&"_s);
        QCOMPARE(stored(u"5"_s, u"内框"_s), u"&H00FFFF&"_s);
        QCOMPARE(stored(u"5"_s, u"外框"_s), u"&H00FFFF00&"_s);
        QCOMPARE(stored(u"5"_s, u"窗体"_s), u"&H000&"_s);
        QCOMPARE(windows_->unloaded, QList{WindowKind::colours});
        QCOMPARE(windows_->colourChanges, 1);
    }

    void mixingByKeyboard() {
        choose(u"5 自定义"_s);
        QList<int> asked;
        answerColourDialogsWith([&](const QColor&) {
            asked << int(std::find(boxNames_.begin(), boxNames_.end(), window_->focusWidget()->objectName()) -
                         boxNames_.begin());
            return std::optional<QColor>(Qt::yellow);
        });
        get<QComboBox>(u"cboFa"_s).setFocus();
        for (int i = 0; i < 4; ++i) QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
        QVERIFY(asked.isEmpty());  // nobody has asked for a colour on the way
        QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
        QTest::keyClick(window_->focusWidget(), Qt::Key_Space);
        QTest::mouseClick(window_->focusWidget(), Qt::LeftButton);
        QCOMPARE(asked, (QList<int>{3, 3, 3}));
        for (const int box : {2, 1, 0}) {
            QTest::keyClick(window_->focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
            QTest::keyClick(window_->focusWidget(), Qt::Key_Space);
            QCOMPARE(asked.last(), box);
        }
        QCOMPARE(asked.size(), 6);
        QVERIFY(windows_->unloaded.isEmpty());
        for (int i = 0; i < 4; ++i) QCOMPARE(get<TextBox>(boxNames_[i]).text(), u"&H00FFFF&"_s);

        get<QComboBox>(u"cboFa"_s).setFocus();
        QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
        QCOMPARE(active(), u"5"_s);
        QCOMPARE(windows_->unloaded.size(), 1);
    }

    /// The menu of the main window takes this window away while a colour is being chosen.
    void goneWhileAColourIsChosen() {
        choose(u"5 自定义"_s);
        answerColourDialogsWith([&](const QColor&) {
            window_.release()->deleteLater();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return std::optional<QColor>(Qt::black);
        });
        const QPointer<frmPs> gone = window_.get();
        focus(2);
        QVERIFY(!gone);
    }

    void cancellingTheColourChangesNothing() {
        int asked = 0;
        answerColourDialogsWith([&](const QColor&) {
            ++asked;
            return std::optional<QColor>();
        });
        choose(u"3 藕荷"_s);
        focus(1);
        QCOMPARE(asked, 0);  // fixed schemes are not mixed
        choose(u"5 自定义"_s);
        focus(1);
        QCOMPARE(asked, 1);
        QCOMPARE(get<TextBox>(u"txtYs(1)"_s).text(), u"&H00FF0000&"_s);
    }

    void laterSchemesBecomeActiveButAreNotStored() {
        choose(u"6 又一个"_s);
        answerColourDialogsWith([](const QColor&) { return std::optional<QColor>(Qt::black); });
        focus(3);
        click(u"cmdQd"_s);
        QCOMPARE(active(), u"6"_s);
        QCOMPARE(stored(u"6"_s, u"窗体"_s), u"&H00FFFF&"_s);
    }

    void leaving() {
        choose(u"5 自定义"_s);
        click(u"cmdQx"_s);
        QCOMPARE(active(), u"0"_s);
        QCOMPARE(windows_->unloaded.size(), 1);
        QCOMPARE(windows_->colourChanges, 0);
        get<QPushButton>(u"cmdQx"_s).setFocus();
        QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
        QCOMPARE(active(), u"0"_s);  // the button with the focus, not the first one
        QCOMPARE(windows_->unloaded.size(), 2);
        click(u"cmdGb"_s);
        QVERIFY(windows_->ended);
    }

    void aChoiceIsTriedAtOnce() {
        QVERIFY(windows_->tried.isEmpty());  // what the window opens with is nobody's choice
        choose(u"3 藕荷"_s);
        QCOMPARE(windows_->tried.last(), (ColourScheme{{0x56, 0x34, 0x12}, Qt::red, {}, Qt::blue}));
        QTest::mouseClick(&get<SchemeTile>(u"cmdFa(2)"_s), Qt::LeftButton);
        QCOMPARE(get<QComboBox>(u"cboFa"_s).currentText(), u"5 自定义"_s);
        answerColourDialogsWith([](const QColor&) { return std::optional<QColor>(Qt::yellow); });
        focus(3);
        QCOMPARE(windows_->tried.last(), (ColourScheme{Qt::yellow, Qt::red, Qt::green, Qt::blue}));
        QCOMPARE(get<ShapeBox>(u"shpYs(3)"_s).fillColor(), QColor(Qt::yellow));
        get<SchemeTile>(u"cmdFa(2)"_s).setFocus();
        QTest::keyClick(window_->focusWidget(), Qt::Key_Left);
        QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
        QCOMPARE(get<QComboBox>(u"cboFa"_s).currentText(), u"3 藕荷"_s);
        QVERIFY(get<SchemeTile>(u"cmdFa(1)"_s).isChecked() && !get<SchemeTile>(u"cmdFa(2)"_s).isChecked());
        QVERIFY(windows_->unloaded.isEmpty());
    }

    void aDroppedMixtureLeavesItsTile() {
        auto& tile = get<SchemeTile>(u"cmdFa(2)"_s);
        const auto ground = [&] { return tile.grab().toImage().pixelColor(tile.width() / 2, 4); };
        answerColourDialogsWith([](const QColor&) { return std::optional<QColor>(Qt::yellow); });
        choose(u"5 自定义"_s);
        focus(3);
        QCOMPARE(ground(), QColor(Qt::yellow));
        choose(u"3 藕荷"_s);
        QCOMPARE(ground(), QColor(0x80, 0x80, 0x80));
    }

    void onlyAStoredChoiceStays() {
        for (const bool stored : {false, true}) {
            cleanup();
            init();
            choose(u"3 藕荷"_s);
            if (stored) click(u"cmdQd"_s);
            QCOMPARE(windows_->colourChanges, stored ? 1 : 0);
            window_->hide();  // as it goes, whichever way
            QCOMPARE(windows_->colourChanges, 1);
        }
    }

    void aMissingRowIsTold() {
        mekTp::catalogue.Execute(u"DELETE FROM tcys WHERE 序号 = '6'"_s);
        choose(u"6 又一个"_s);
        QCOMPARE(said_, QStringList{u"颜色设置数据没找到，请查明原因！"_s});
    }
};

const Registered<TestColourWindow> registered;

}  // namespace

#include "frm_ps_test.moc"
