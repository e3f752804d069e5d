#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "settings/frame/album_lines.h"
#include "settings_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Place of a control in twips of the tab control.
QRect placeOnTabs(const SettingsWindow& window, const QWidget& control) {
    const QPoint at = control.mapTo(&window.tabs(), QPoint(0, 0));
    return {twipsFromPixels(at.x()), twipsFromPixels(at.y()), widthOf(&control), heightOf(&control)};
}

bool isNear(const QRect& real, const QRect& wanted) {
    const auto near = [](int a, int b) { return std::abs(a - b) <= twipsPerPixel; };
    return near(real.x(), wanted.x()) && near(real.y(), wanted.y()) && near(real.width(), wanted.width()) &&
           near(real.height(), wanted.height());
}

class TestSettingsFrame : public QObject {
    Q_OBJECT

    std::optional<SettingsWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void sharedControls() {
        const std::tuple<int, QString, QColor, QColor, QRect, QString, QString, QPoint> cases[] = {
            {0, u"操作提示：按《开始》或《编辑》按钮开始操作。如修改图片选择按钮请在上表中点击，如添加请按添加按钮。"_s,
             QColor(255, 0, 255), QColor(192, 255, 255), QRect(), u"编号"_s, QString(), QPoint()},  // setup
            {1, u"操作提示：先选择目标图册，然后“图片来源”，再“添加方式”"_s, QColor(255, 0, 0), QColor(255, 255, 0),
             QRect(5180, 1320, 4100, 3525), u"大小"_s, u"目标图册："_s, QPoint(6250, 990)},  // intake
            {2, u"操作提示：请在左侧选择要编辑的图片"_s, QColor(0, 0, 255), QColor(0, 255, 0),
             QRect(300, 1350, 5100, 5150), u"大小"_s, u"选择图册："_s, QPoint(1245, 720)},  // editing
            {3, u"操作提示：先选择源图册数据表，选完后再在左侧表格中点击要转存的记录，接着再确定“数据转存目标”"_s,
             QColor(192, 0, 192), QColor(0, 255, 0), QRect(200, 1130, 4800, 5320), u"大小"_s, u"来源图册："_s,
             QPoint(1100, 720)},  // transfer
        };
        for (const auto& [tab, hint, outer, inner, grid, heading, label, chooser] : cases) {
            init();
            // From the far side and back, so that every control has had to move.
            window_->tabs().setCurrentIndex(3 - tab);
            window_->tabs().setCurrentIndex(tab);

            QCOMPARE(window_->label(u"lblTs"_s), hint);
            QVERIFY(window_->get<QLabel>(u"lblTs"_s).isVisible());
            QCOMPARE(window_->get<ShapeBox>(u"shpWk"_s).borderColor(), outer);
            QCOMPARE(window_->get<ShapeBox>(u"shpNk"_s).borderColor(), inner);
            const auto& msgBm = window_->get<Grid>(u"msgBm"_s);
            QVERIFY(msgBm.isVisible());
            if (tab == 0)
                QCOMPARE(msgBm.parentWidget()->objectName(), u"fraAs"_s);
            else
                QVERIFY(isNear(placeOnTabs(*window_, msgBm), grid));
            QVERIFY(msgBm.FormatString().remove(u' ').contains(heading));

            const auto& cboBm = window_->get<QComboBox>(u"cboBm"_s);
            QCOMPARE(cboBm.isVisible(), tab != 0);
            QCOMPARE(window_->get<QLabel>(u"lblXc"_s).isVisible(), tab != 0);
            if (tab != 0) {
                QCOMPARE(window_->label(u"lblXc"_s), label);
                QVERIFY(isNear(placeOnTabs(*window_, cboBm), QRect(chooser, QSize(widthOf(&cboBm), heightOf(&cboBm)))));
            }
            QCOMPARE(window_->get<DataControl>(u"datBj"_s).isVisible(), tab == 2);
            QCOMPARE(window_->get<ListBox>(u"lstBh"_s).isVisible(), tab == 2);
            QCOMPARE(window_->get<ListBox>(u"lstSu"_s).isVisible(), tab == 3);
        }
    }

    void hintFollowsThePointer() {
        const auto colour = [&] { return window_->get<QLabel>(u"lblTs"_s).palette().color(QPalette::WindowText); };
        const QString hint = window_->label(u"lblTs"_s);
        Q_EMIT window_->tabs().mouseMovedAt(2100, 100);
        QCOMPARE(window_->label(u"lblTs"_s),
                 u"“图册编辑”：可对本软件中各图册进行编辑，包括重排序号、修改或设置编号及录入备注。"_s);
        QCOMPARE(colour(), QColor(255, 0, 0));
        Q_EMIT window_->tabs().mouseMovedAt(4000, 100);
        QCOMPARE(window_->label(u"lblTs"_s), QString());
        QCOMPARE(colour(), QColor(255, 0, 0));
        Q_EMIT window_->tabs().mouseMovedAt(4000, 2000);
        QCOMPARE(window_->label(u"lblTs"_s), hint);
        QCOMPARE(colour(), QColor(0, 0, 192));
    }

    void guardWarnsUntilAccepted() {
        window_->click(u"cmdBt"_s);
        window_->answer = false;
        Q_EMIT window_->tabs().mouseMovedAt(5000, 100);
        QVERIFY(window_->boxes.isEmpty());
        for (const int times : {1, 2}) {
            Q_EMIT window_->tabs().mouseMovedAt(1500 + times, 100);
            QCOMPARE(window_->boxes.size(), times);
        }
        const BoxText box = window_->boxes.first();
        QCOMPARE(box.title, u"警 告！！！！"_s);
        QCOMPARE(
            box.text,
            u"警  告：\n\n在未保存前切换页框或关闭，将造成刚才的操作全部作废！\n\n如果一定要切换，按《确定》；否则按《取消》。"_s);
        QVERIFY(box.icon == BoxIcon::information && box.hasCancel());
        window_->answer = true;
        for (const int x : {1500, 1600}) Q_EMIT window_->tabs().mouseMovedAt(x, 100);
        QCOMPARE(window_->boxes.size(), 3);
        QVERIFY(window_->label(u"lblTs"_s).startsWith(u"“图片录入”"_s));
    }

    // By keys the pointer stays where it is.
    void guardWarnsBeforeKeysTurnThePage() {
        const std::pair<bool, std::pair<Qt::Key, Qt::KeyboardModifiers>> ways[] = {
            {true, {Qt::Key_Right, {}}},
            {false, {Qt::Key_Tab, Qt::ControlModifier}},
            {false, {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier}},
        };
        for (const auto& [inStrip, key] : ways) {
            init();
            QWidget* focus = inStrip ? static_cast<QWidget*>(window_->tabs().tabBar()) : &window_->box(u"txtXt"_s);
            focus->setFocus();
            window_->click(u"cmdBt"_s);
            window_->answer = false;
            QTest::keyClick(focus, key.first, key.second);
            QCOMPARE(window_->boxes.size(), 1);
            QCOMPARE(window_->boxes.first().title, u"警 告！！！！"_s);
            QCOMPARE(window_->tabs().currentIndex(), 0);
            window_->answer = true;
            QTest::keyClick(focus, key.first, key.second);
            QVERIFY(window_->tabs().currentIndex() != 0);
            QCOMPARE(window_->boxes.size(), 2);
        }
    }

    void guardOpensOnce() {
        window_->click(u"cmdBt"_s);
        int boxes = 0;
        answerBoxesWith([&](const BoxText&) {
            if (++boxes < 5) Q_EMIT window_->tabs().mouseMovedAt(1500, 100);
            return false;
        });
        Q_EMIT window_->tabs().mouseMovedAt(1500, 100);
        QCOMPARE(boxes, 1);
    }

    void switchGivesUpUnfinishedWork() {
        window_->choose(u"cboFc"_s, u"tc01"_s);
        for (const QString& name : {u"cmdBt"_s, u"cmdJl"_s, u"cmdFc"_s}) window_->click(name);
        window_->box(u"txtXt"_s).setText(u"改了一半"_s);
        QCOMPARE(window_->caption(u"cmdFs"_s), u"撤 消"_s);
        window_->tabs().setCurrentIndex(2);
        window_->tabs().setCurrentIndex(0);
        QStringList captions;
        for (const QString& name : {u"cmdBt"_s, u"cmdJl"_s, u"cmdFc"_s, u"cmdFs"_s}) captions << window_->caption(name);
        QCOMPARE(captions, (QStringList{u"开 始"_s, u"开 始"_s, u"编 辑"_s, u"删 除"_s}));
        for (const QString& name : {u"txtBa"_s, u"txtBb"_s, u"txtBz"_s}) QCOMPARE(window_->text(name), QString());
        QCOMPARE(window_->label(u"lblXh"_s), QString());
        QCOMPARE(window_->text(u"txtXt"_s), valueOf(u"tcsz"_s, u"像册标题"_s));
        for (const QString& name : {u"txtXt"_s, u"txtBz"_s, u"txt1c"_s}) QVERIFY(window_->box(name).isLocked());
        Q_EMIT window_->tabs().mouseMovedAt(1500, 100);
        QVERIFY(window_->boxes.isEmpty());
    }

    void chooserShowsTheAlbum() {
        for (const int tab : {1, 2, 3}) {
            init();
            window_->tabs().setCurrentIndex(tab);
            auto& datBj = window_->get<DataControl>(u"datBj"_s);
            const auto& msgBm = window_->get<Grid>(u"msgBm"_s);
            QCOMPARE(msgBm.model()->rowCount(), 0);
            window_->choose(u"cboBm"_s, u"tc01"_s);
            QCOMPARE(datBj.RecordSource(), u"SELECT * FROM tc01 ORDER BY [序号]"_s);
            QCOMPARE(datBj.total(), 10);
            QCOMPARE(msgBm.cellText(2, 0), u"3"_s);
            QVERIFY(window_->boxes.isEmpty());
            QCOMPARE(window_->get<QComboBox>(u"cboBm"_s).cursor().shape(), Qt::ArrowCursor);

            // It stays chosen on the next page, past the page of the buttons.
            window_->tabs().setCurrentIndex(0);
            QCOMPARE(datBj.RecordSource(), u"SELECT * FROM tcan ORDER BY [编号]"_s);
            window_->tabs().setCurrentIndex(tab);
            QCOMPARE(window_->get<QComboBox>(u"cboBm"_s).currentText(), u"tc01 旅行"_s);
            QCOMPARE(datBj.total(), 10);

            window_->choose(u"cboBm"_s, u"tc00"_s);
            QCOMPARE(datBj.total(), 3);
            QCOMPARE(window_->said(), tab == 1 ? QStringList{u"该表只做演示用，不能录入或编辑！"_s} : QStringList{});
        }
    }

    void codesOfTheAlbumCarryBraces() {
        putValue(u"SELECT * FROM tcan WHERE 编号 = '2'"_s, u"图册"_s, u"tc00tc02"_s);
        window_->tabs().setCurrentIndex(2);
        const auto& lstBh = window_->get<ListBox>(u"lstBh"_s);
        QVERIFY(!lstBh.isEnabled() && linesOf(lstBh).contains(u"1 风景"_s));
        window_->choose(u"cboBm"_s, u"tc01"_s);
        QVERIFY(lstBh.isEnabled() && linesOf(lstBh).contains(u"1 {风景}"_s));
        QVERIFY(linesOf(lstBh).contains(u"2 人物"_s));
    }

    // Typed by the hand, which the box helps along, on every page; Delete takes its help away again.
    void typedTextInTheChooser() {
        const std::tuple<QString, bool, QString, int> cases[] = {
            {u"tc01"_s, true, u"tc01"_s, 10},  {u"tc01"_s, false, u"tc01"_s, 10},    {u"TC01"_s, true, u"tc01"_s, 10},
            {u"TC01"_s, false, u"tc01"_s, 10}, {u"tc01 LX"_s, false, u"tc01"_s, 10}, {u"tc02 "_s, true, u"tc02"_s, 0},
            {u"tc99"_s, true, QString(), 0},   {u"tcsz"_s, true, QString(), 0},      {u"tc'x"_s, true, QString(), 0},
            {u"[tc] x"_s, true, QString(), 0},
        };
        for (const int tab : {1, 2, 3}) {
            for (const auto& [typed, helped, album, records] : cases) {
                init();
                putValue(u"SELECT * FROM tcbm WHERE 表名 = 'tc01'"_s, u"标题"_s, u"LX"_s);
                window_->open();
                window_->tabs().setCurrentIndex(tab);
                auto& cboBm = window_->get<QComboBox>(u"cboBm"_s);
                cboBm.setFocus();
                QTest::keyClicks(&cboBm, typed);
                if (!helped) QTest::keyClick(&cboBm, Qt::Key_Delete);
                QTest::keyClick(&cboBm, Qt::Key_Return);
                QCOMPARE(window_->get<Grid>(u"msgBm"_s).model()->rowCount(), records);
                QCOMPARE(window_->said(), QStringList{});
                if (album.isEmpty()) continue;
                QCOMPARE(cboBm.currentText(), cboBm.itemText(cboBm.currentIndex()) + u' ');
                QVERIFY2(cboBm.currentText().startsWith(album), qPrintable(cboBm.currentText()));
                QVERIFY(window_->get<DataControl>(u"datBj"_s).RecordSource().contains(album));
            }
        }
    }

    void enterChoosesOnce() {
        window_->tabs().setCurrentIndex(1);
        auto& cboBm = window_->get<QComboBox>(u"cboBm"_s);
        cboBm.setFocus();
        QTest::keyClicks(&cboBm, u"tc00"_s);
        QTest::keyClick(&cboBm, Qt::Key_Return);
        QCOMPARE(window_->said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        window_->tabs().setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(window_->said(), QStringList{});
    }

    void longLinesShowTheirBeginning() {
        putValue(u"SELECT * FROM tcbm WHERE 表名 = 'tc01'"_s, u"标题"_s, u"一个相当长的图册标题"_s);
        window_->open();
        window_->tabs().setCurrentIndex(1);
        auto& cboBm = window_->get<QComboBox>(u"cboBm"_s);
        const auto begins = [&] { return cboBm.lineEdit()->cursorPosition() == 0; };
        window_->choose(u"cboBm"_s, u"tc01"_s);
        QVERIFY(begins());
        cboBm.setFocus();
        QTest::keyClick(&cboBm, Qt::Key_End);
        window_->tabs().setFocus();
        QVERIFY(begins());
        cboBm.setFocus();
        QTest::keyClick(&cboBm, Qt::Key_End);
        QTest::keyClick(&cboBm, Qt::Key_Return);
        QVERIFY(begins());
    }

    // A line that has stayed behind a deleted album would speak of the one that has its name now.
    void nameUsedAgain() {
        for (const bool chosen : {false, true}) {
            QComboBox chooser;
            chooser.setEditable(true);
            for (const QString& line : {u"tc01 旅行"_s, u"tc02 旧册"_s, u"tc03 花"_s}) addAlbumLine(chooser, line);
            QCOMPARE(chooser.currentText(), QString());
            chooseAlbumLine(chooser, chosen ? u"tc02"_s : u"tc03"_s);
            addAlbumLine(chooser, u"tc02 新册"_s);
            QStringList lines;
            for (int i = 0; i < chooser.count(); ++i) lines << chooser.itemText(i);
            QCOMPARE(lines, (QStringList{u"tc01 旅行"_s, u"tc03 花"_s, u"tc02 新册"_s}));
            QCOMPARE(chooser.currentText(), chosen ? QString() : u"tc03 花"_s);
            QCOMPARE(offeredTable(chooser, u"TC02 旧"_s), u"tc02"_s);
        }
    }

    // Keys choose in the grid of the buttons as a click does; pages that gather rows wait for a click or Enter.
    void keysInTheGrid() {
        window_->grid().setFocus();
        QTest::keyClick(&window_->grid(), Qt::Key_Down);
        QCOMPARE(window_->text(u"txtB1"_s), window_->grid().cellText(1, 1));
        QTest::keyClick(&window_->grid(), Qt::Key_End);
        QVERIFY(!window_->text(u"txtB1"_s).isEmpty());
        QCOMPARE(window_->text(u"txtB1"_s), window_->grid().cellText(window_->grid().model()->rowCount() - 1, 1));

        window_->tabs().setCurrentIndex(3);
        window_->choose(u"cboBm"_s, u"tc01"_s);
        const auto& lstSu = window_->get<ListBox>(u"lstSu"_s);
        window_->grid().setFocus();
        for (int i = 0; i < 3; ++i) QTest::keyClick(&window_->grid(), Qt::Key_Down);
        QCOMPARE(linesOf(lstSu), QStringList{});
        QTest::keyClick(&window_->grid(), Qt::Key_Return);
        QCOMPARE(linesOf(lstSu), QStringList{u"4"_s});
        window_->clickRow(6);
        QCOMPARE(linesOf(lstSu), (QStringList{u"4"_s, u"7"_s}));
        QVERIFY(window_->boxes.isEmpty());
    }

    void outerButtons() {
        window_->click(u"cmdFh"_s);
        QCOMPARE(window_->windows.handedTo, QList{WindowKind::viewer});
        window_->click(u"cmdGl"_s);
        QVERIFY(window_->windows.ended);
        window_->click(u"cmdBz"_s);
        QCOMPARE(window_->windows.topics, QStringList{u"3 软件的使用"_s});
    }

    void emptyDirectory() {
        mekTp::catalogue.Execute(u"DELETE FROM [tcbm]"_s);
        window_->open();
        for (const int tab : {1, 2, 3, 0}) {
            window_->tabs().setCurrentIndex(tab);
            QVERIFY(window_->lines(u"cboBm"_s).isEmpty());
            QCOMPARE(window_->get<Grid>(u"msgBm"_s).model()->rowCount() > 0, tab == 0);
            if (tab == 1) QCOMPARE(window_->label(u"lblJl"_s), u"请先在中“图册设置”建立图册"_s);
            if (tab == 2) QVERIFY(!window_->get<ListBox>(u"lstBh"_s).isEnabled());
        }
        QVERIFY(window_->boxes.isEmpty());
    }

    void opensWithoutACatalogue() {
        mekTp::catalogue = {};
        QFile::remove(window_->catalogue.file(u"lunq.mdb"_s));
        window_->open();
        for (const int tab : {1, 2, 3, 0}) window_->tabs().setCurrentIndex(tab);
        QVERIFY(window_->boxes.isEmpty());
        window_->click(u"cmdJl"_s);
        QCOMPARE(window_->boxes.size(), 1);
        QCOMPARE(window_->boxes.first().title, u"错误提示"_s);
        QCOMPARE(window_->caption(u"cmdJl"_s), u"开 始"_s);
    }
};

const Registered<TestSettingsFrame> registered;

}  // namespace

#include "frame_test.moc"
