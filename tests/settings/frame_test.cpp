#include "../support/run_all.h"
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

  private Q_SLOTS:
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
            SettingsWindow window;
            // From the far side and back, so that every control has had to move.
            window.tabs().setCurrentIndex(3 - tab);
            window.tabs().setCurrentIndex(tab);

            QCOMPARE(window.label(u"lblTs"_s), hint);
            QVERIFY(window.get<QLabel>(u"lblTs"_s).isVisible());
            QCOMPARE(window.get<ShapeBox>(u"shpWk"_s).borderColor(), outer);
            QCOMPARE(window.get<ShapeBox>(u"shpNk"_s).borderColor(), inner);
            const auto& msgBm = window.get<Grid>(u"msgBm"_s);
            QVERIFY(msgBm.isVisible());
            if (tab == 0)
                QCOMPARE(msgBm.parentWidget()->objectName(), u"fraAs"_s);
            else
                QVERIFY(isNear(placeOnTabs(window, msgBm), grid));
            QVERIFY(msgBm.FormatString().remove(u' ').contains(heading));

            const auto& cboBm = window.get<QComboBox>(u"cboBm"_s);
            QCOMPARE(cboBm.isVisible(), tab != 0);
            QCOMPARE(window.get<QLabel>(u"lblXc"_s).isVisible(), tab != 0);
            if (tab != 0) {
                QCOMPARE(window.label(u"lblXc"_s), label);
                QVERIFY(isNear(placeOnTabs(window, cboBm), QRect(chooser, QSize(widthOf(&cboBm), heightOf(&cboBm)))));
            }
            QCOMPARE(window.get<DataControl>(u"datBj"_s).isVisible(), tab == 2);
            QCOMPARE(window.get<ListBox>(u"lstBh"_s).isVisible(), tab == 2);
            QCOMPARE(window.get<ListBox>(u"lstSu"_s).isVisible(), tab == 3);
        }
    }

    void hintFollowsThePointer() {
        SettingsWindow window;
        const auto colour = [&] { return window.get<QLabel>(u"lblTs"_s).palette().color(QPalette::WindowText); };
        const QString hint = window.label(u"lblTs"_s);
        Q_EMIT window.tabs().mouseMovedAt(2100, 100);
        QCOMPARE(window.label(u"lblTs"_s),
                 u"“图册编辑”：可对本软件中各图册进行编辑，包括重排序号、修改或设置编号及录入备注。"_s);
        QCOMPARE(colour(), QColor(255, 0, 0));
        Q_EMIT window.tabs().mouseMovedAt(4000, 100);
        QCOMPARE(window.label(u"lblTs"_s), QString());
        QCOMPARE(colour(), QColor(255, 0, 0));
        Q_EMIT window.tabs().mouseMovedAt(4000, 2000);
        QCOMPARE(window.label(u"lblTs"_s), hint);
        QCOMPARE(colour(), QColor(0, 0, 192));
    }

    void guardWarnsUntilAccepted() {
        SettingsWindow window;
        window.click(u"cmdBt"_s);
        window.answer = false;
        Q_EMIT window.tabs().mouseMovedAt(5000, 100);
        QVERIFY(window.boxes.isEmpty());
        for (const int times : {1, 2}) {
            Q_EMIT window.tabs().mouseMovedAt(1500 + times, 100);
            QCOMPARE(window.boxes.size(), times);
        }
        const BoxText box = window.boxes.first();
        QCOMPARE(box.title, u"警 告！！！！"_s);
        QCOMPARE(
            box.text,
            u"警  告：\n\n在未保存前切换页框或关闭，将造成刚才的操作全部作废！\n\n如果一定要切换，按《确定》；否则按《取消》。"_s);
        QVERIFY(box.icon == BoxIcon::information && box.hasCancel());
        window.answer = true;
        for (const int x : {1500, 1600}) Q_EMIT window.tabs().mouseMovedAt(x, 100);
        QCOMPARE(window.boxes.size(), 3);
        QVERIFY(window.label(u"lblTs"_s).startsWith(u"“图片录入”"_s));
    }

    // By keys the pointer stays where it is.
    void guardWarnsBeforeKeysTurnThePage() {
        const std::pair<bool, std::pair<Qt::Key, Qt::KeyboardModifiers>> ways[] = {
            {true, {Qt::Key_Right, {}}},
            {false, {Qt::Key_Tab, Qt::ControlModifier}},
            {false, {Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier}},
        };
        for (const auto& [inStrip, key] : ways) {
            SettingsWindow window;
            QWidget* focus = inStrip ? static_cast<QWidget*>(window.tabs().tabBar()) : &window.box(u"txtXt"_s);
            focus->setFocus();
            window.click(u"cmdBt"_s);
            window.answer = false;
            QTest::keyClick(focus, key.first, key.second);
            QCOMPARE(window.boxes.size(), 1);
            QCOMPARE(window.boxes.first().title, u"警 告！！！！"_s);
            QCOMPARE(window.tabs().currentIndex(), 0);
            window.answer = true;
            QTest::keyClick(focus, key.first, key.second);
            QVERIFY(window.tabs().currentIndex() != 0);
            QCOMPARE(window.boxes.size(), 2);
        }
    }

    void guardOpensOnce() {
        SettingsWindow window;
        window.click(u"cmdBt"_s);
        int boxes = 0;
        answerBoxesWith([&](const BoxText&) {
            if (++boxes < 5) Q_EMIT window.tabs().mouseMovedAt(1500, 100);
            return false;
        });
        Q_EMIT window.tabs().mouseMovedAt(1500, 100);
        QCOMPARE(boxes, 1);
    }

    void switchGivesUpUnfinishedWork() {
        SettingsWindow window;
        window.choose(u"cboFc"_s, u"tc01"_s);
        for (const QString& name : {u"cmdBt"_s, u"cmdJl"_s, u"cmdFc"_s}) window.click(name);
        window.box(u"txtXt"_s).setText(u"改了一半"_s);
        QCOMPARE(window.caption(u"cmdFs"_s), u"撤 消"_s);
        window.tabs().setCurrentIndex(2);
        window.tabs().setCurrentIndex(0);
        QStringList captions;
        for (const QString& name : {u"cmdBt"_s, u"cmdJl"_s, u"cmdFc"_s, u"cmdFs"_s}) captions << window.caption(name);
        QCOMPARE(captions, (QStringList{u"开 始"_s, u"开 始"_s, u"编 辑"_s, u"删 除"_s}));
        for (const QString& name : {u"txtBa"_s, u"txtBb"_s, u"txtBz"_s}) QCOMPARE(window.text(name), QString());
        QCOMPARE(window.label(u"lblXh"_s), QString());
        QCOMPARE(window.text(u"txtXt"_s), valueOf(u"tcsz"_s, u"像册标题"_s));
        for (const QString& name : {u"txtXt"_s, u"txtBz"_s, u"txt1c"_s}) QVERIFY(window.box(name).isLocked());
        Q_EMIT window.tabs().mouseMovedAt(1500, 100);
        QVERIFY(window.boxes.isEmpty());
    }

    void chooserShowsTheAlbum() {
        for (const int tab : {1, 2, 3}) {
            SettingsWindow window;
            window.tabs().setCurrentIndex(tab);
            auto& datBj = window.get<DataControl>(u"datBj"_s);
            const auto& msgBm = window.get<Grid>(u"msgBm"_s);
            QCOMPARE(msgBm.model()->rowCount(), 0);
            window.choose(u"cboBm"_s, u"tc01"_s);
            QCOMPARE(datBj.RecordSource(), u"SELECT * FROM tc01 ORDER BY [序号]"_s);
            QCOMPARE(datBj.total(), 10);
            QCOMPARE(msgBm.cellText(2, 0), u"3"_s);
            QVERIFY(window.boxes.isEmpty());
            QCOMPARE(window.get<QComboBox>(u"cboBm"_s).cursor().shape(), Qt::ArrowCursor);

            // It stays chosen on the next page, past the page of the buttons.
            window.tabs().setCurrentIndex(0);
            QCOMPARE(datBj.RecordSource(), u"SELECT * FROM tcan ORDER BY [编号]"_s);
            window.tabs().setCurrentIndex(tab);
            QCOMPARE(window.get<QComboBox>(u"cboBm"_s).currentText(), u"tc01 旅行"_s);
            QCOMPARE(datBj.total(), 10);

            window.choose(u"cboBm"_s, u"tc00"_s);
            QCOMPARE(datBj.total(), 3);
            QCOMPARE(window.said(), tab == 1 ? QStringList{u"该表只做演示用，不能录入或编辑！"_s} : QStringList{});
        }
    }

    void codesOfTheAlbumCarryBraces() {
        SettingsWindow window;
        putValue(u"SELECT * FROM tcan WHERE 编号 = '2'"_s, u"图册"_s, u"tc00tc02"_s);
        window.tabs().setCurrentIndex(2);
        const auto& lstBh = window.get<ListBox>(u"lstBh"_s);
        QVERIFY(!lstBh.isEnabled() && linesOf(lstBh).contains(u"1 风景"_s));
        window.choose(u"cboBm"_s, u"tc01"_s);
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
                SettingsWindow window;
                putValue(u"SELECT * FROM tcbm WHERE 表名 = 'tc01'"_s, u"标题"_s, u"LX"_s);
                window.open();
                window.tabs().setCurrentIndex(tab);
                auto& cboBm = window.get<QComboBox>(u"cboBm"_s);
                cboBm.setFocus();
                QTest::keyClicks(&cboBm, typed);
                if (!helped) QTest::keyClick(&cboBm, Qt::Key_Delete);
                QTest::keyClick(&cboBm, Qt::Key_Return);
                QCOMPARE(window.get<Grid>(u"msgBm"_s).model()->rowCount(), records);
                QCOMPARE(window.said(), QStringList{});
                if (album.isEmpty()) continue;
                QCOMPARE(cboBm.currentText(), cboBm.itemText(cboBm.currentIndex()) + u' ');
                QVERIFY2(cboBm.currentText().startsWith(album), qPrintable(cboBm.currentText()));
                QVERIFY(window.get<DataControl>(u"datBj"_s).RecordSource().contains(album));
            }
        }
    }

    void enterChoosesOnce() {
        SettingsWindow window;
        window.tabs().setCurrentIndex(1);
        auto& cboBm = window.get<QComboBox>(u"cboBm"_s);
        cboBm.setFocus();
        QTest::keyClicks(&cboBm, u"tc00"_s);
        QTest::keyClick(&cboBm, Qt::Key_Return);
        QCOMPARE(window.said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        window.tabs().setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(window.said(), QStringList{});
    }

    void longLinesShowTheirBeginning() {
        SettingsWindow window;
        putValue(u"SELECT * FROM tcbm WHERE 表名 = 'tc01'"_s, u"标题"_s, u"一个相当长的图册标题"_s);
        window.open();
        window.tabs().setCurrentIndex(1);
        auto& cboBm = window.get<QComboBox>(u"cboBm"_s);
        const auto begins = [&] { return cboBm.lineEdit()->cursorPosition() == 0; };
        window.choose(u"cboBm"_s, u"tc01"_s);
        QVERIFY(begins());
        cboBm.setFocus();
        QTest::keyClick(&cboBm, Qt::Key_End);
        window.tabs().setFocus();
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
        SettingsWindow window;
        window.grid().setFocus();
        QTest::keyClick(&window.grid(), Qt::Key_Down);
        QCOMPARE(window.text(u"txtB1"_s), window.grid().cellText(1, 1));
        QTest::keyClick(&window.grid(), Qt::Key_End);
        QVERIFY(!window.text(u"txtB1"_s).isEmpty());
        QCOMPARE(window.text(u"txtB1"_s), window.grid().cellText(window.grid().model()->rowCount() - 1, 1));

        window.tabs().setCurrentIndex(3);
        window.choose(u"cboBm"_s, u"tc01"_s);
        const auto& lstSu = window.get<ListBox>(u"lstSu"_s);
        window.grid().setFocus();
        for (int i = 0; i < 3; ++i) QTest::keyClick(&window.grid(), Qt::Key_Down);
        QCOMPARE(linesOf(lstSu), QStringList{});
        QTest::keyClick(&window.grid(), Qt::Key_Return);
        QCOMPARE(linesOf(lstSu), QStringList{u"4"_s});
        window.clickRow(6);
        QCOMPARE(linesOf(lstSu), (QStringList{u"4"_s, u"7"_s}));
        QVERIFY(window.boxes.isEmpty());
    }

    void outerButtons() {
        SettingsWindow window;
        window.click(u"cmdFh"_s);
        QCOMPARE(window.windows.handedTo, WindowKind::viewer);
        window.click(u"cmdGl"_s);
        QVERIFY(window.windows.ended);
        window.click(u"cmdBz"_s);
        QCOMPARE(window.windows.topics, QStringList{u"3 软件的使用"_s});
    }

    void emptyDirectory() {
        SettingsWindow window;
        mekTp::catalogue.Execute(u"DELETE FROM [tcbm]"_s);
        window.open();
        for (const int tab : {1, 2, 3, 0}) {
            window.tabs().setCurrentIndex(tab);
            QVERIFY(window.lines(u"cboBm"_s).isEmpty());
            QCOMPARE(window.get<Grid>(u"msgBm"_s).model()->rowCount() > 0, tab == 0);
            if (tab == 1) QCOMPARE(window.label(u"lblJl"_s), u"请先在中“图册设置”建立图册"_s);
            if (tab == 2) QVERIFY(!window.get<ListBox>(u"lstBh"_s).isEnabled());
        }
        QVERIFY(window.boxes.isEmpty());
    }

    void opensWithoutACatalogue() {
        SettingsWindow window;
        mekTp::catalogue = {};
        QFile::remove(window.catalogue.file(u"lunq.mdb"_s));
        window.open();
        for (const int tab : {1, 2, 3, 0}) window.tabs().setCurrentIndex(tab);
        QVERIFY(window.boxes.isEmpty());
        window.click(u"cmdJl"_s);
        QCOMPARE(window.boxes.size(), 1);
        QCOMPARE(window.boxes.first().title, u"错误提示"_s);
        QCOMPARE(window.caption(u"cmdJl"_s), u"开 始"_s);
    }
};

const Registered<TestSettingsFrame> registered;

}  // namespace

#include "frame_test.moc"
