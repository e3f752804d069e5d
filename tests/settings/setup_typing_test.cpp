#include "settings_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QString remarkOf(const QString& album) {
    return valueOf(u"SELECT * FROM tcbm WHERE 表名 = "_s + quoted(album), u"备注"_s);
}

/// What is typed on the page 图册设置 and not stored yet, and its group of the main title.
class TestSetupTyping : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void changedRemarkIsAskedAbout() {
        const QString old = u"旅行备注"_s, typed = u"新的备注"_s;
        const std::tuple<int, QString, QString, QString> cases[] = {
            {0, typed, u"tc02"_s, u"空册备注"_s},  // saved
            {1, old, u"tc02"_s, u"空册备注"_s},
            {2, old, u"tc01"_s, typed},  // goes on
        };
        for (const auto& [given, stored, shownTable, shownRemark] : cases) {
            SettingsWindow window;
            window.choose(u"cboFc"_s, u"tc01"_s);
            window.click(u"cmdFc"_s);
            auto& txt1c = window.box(u"txt1c"_s);
            txt1c.selectAll();
            QInputMethodEvent typing;
            typing.setCommitString(typed);
            QCoreApplication::sendEvent(&txt1c, &typing);
            window.answerWith(given);
            window.get<QComboBox>(u"cboFc"_s).setFocus();
            QTest::keyClick(&window.get<QComboBox>(u"cboFc"_s), Qt::Key_Down);
            QCOMPARE(window.boxes.size(), 1);
            QCOMPARE(window.boxes.first().answers, (QStringList{u"保存"_s, u"不保存"_s, u"继续编辑"_s}));
            QCOMPARE(remarkOf(u"tc01"_s), stored);
            QCOMPARE(window.text(u"txtBc"_s) + window.text(u"txt1c"_s), shownTable + shownRemark);
            QCOMPARE(window.get<QComboBox>(u"cboFc"_s).currentText().left(4), shownTable);
        }
    }

    // What each group has begun is asked about before the window goes, and kept where the answer is to go on.
    void leavingTheWindow() {
        const QString title = u"新的标题"_s;
        const std::tuple<QString, QString, QString, QString> cases[] = {
            {u"cmdJl"_s, u"txtBb"_s, u"新图册“新的标题”还没有建立。"_s,
             u"SELECT * FROM tcbm WHERE 标题 = '新的标题'"_s},
            {u"cmdFc"_s, u"txt1c"_s, u"图册 tc01 的备注改过，还没有保存。"_s,
             u"SELECT * FROM tcbm WHERE 备注 = '新的标题'"_s},
            {u"cmdBt"_s, u"txtXt"_s, u"主标题及显示设置改过，还没有保存。"_s,
             u"SELECT * FROM tcsz WHERE 像册标题 = '新的标题'"_s},
            {u"cmdQu"_s, u"txtM1"_s, u"按钮“新的标题”的改动还没有保存。"_s, QString()},
        };
        for (const auto& [begin, box, question, stored] : cases) {
            for (const int answer : {2, 1, 0}) {
                SettingsWindow window;
                mekTp::catalogue.Execute(u"DELETE FROM [tcbm] WHERE 表名 = 'tc02'"_s);
                window.choose(u"cboFc"_s, u"tc01"_s);
                window.click(begin);
                window.answerWith(answer);
                window.box(box).setText(title);
                if (begin == u"cmdJl") window.box(u"txtBa"_s).setText(u"tc07"_s);
                window.click(u"cmdFh"_s);
                QCOMPARE(window.boxes.value(0).text, question);
                // A button without its other texts cannot be saved.
                const bool goes = answer == 1 || (answer == 0 && !stored.isEmpty());
                QCOMPARE(!window.windows.handedTo.isEmpty(), goes);
                QCOMPARE(window.text(box), title);
                if (!stored.isEmpty()) QCOMPARE(mekTp::catalogue.OpenRecordset(stored).Eof(), answer != 0);
            }
        }
        SettingsWindow window;
        window.choose(u"cboFc"_s, u"tc01"_s);
        window.click(u"cmdJl"_s, u"cmdFc"_s, u"cmdBt"_s, u"cmdQu"_s, u"cmdFh"_s);
        QVERIFY(window.boxes.isEmpty() && !window.windows.handedTo.isEmpty());  // nothing was typed
    }

    // Typing stops where the column ends; a paste stays whole and is refused with both counts.
    void lengths() {
        const std::tuple<QString, QString, int, QString> cases[] = {
            {u"cmdJl"_s, u"txtBa"_s, 4, u"表名应为4个字符（现在有 300 个）"_s},
            {u"cmdJl"_s, u"txtBb"_s, 16, u"（英文不应超过16个）。\n\n现在的标题相当于英文 300 个。"_s},
            {u"cmdJl"_s, u"txtBz"_s, 255, u"备注太长：有 300 个字，最多 255 个。"_s},
            {u"cmdFc"_s, u"txt1c"_s, 255, u"备注太长：有 300 个字，最多 255 个。"_s},
        };
        for (const auto& [begin, name, length, said] : cases) {
            SettingsWindow window;
            window.choose(u"cboFc"_s, u"tc01"_s);
            window.click(begin);
            auto& box = window.box(name);
            box.clear();
            box.setFocus();
            QTest::keyClicks(&box, QString(length + 2, u'x'));
            QCOMPARE(box.text().size(), length);
            QApplication::clipboard()->setText(QString(300, u'x'));
            box.selectAll();
            QTest::keySequence(&box, QKeySequence::Paste);
            window.click(begin);
            QVERIFY2(window.said().value(0).contains(said), qPrintable(name));
            QCOMPARE(box.text().size(), 300);
            QVERIFY(box.hasFocus() && !box.isLocked() && window.caption(begin) == u"确 定");
        }
    }

    // Main title -----------------------------------------------------------------------------------------------------

    void mainTitle() {
        SettingsWindow window;
        putValue(u"tcsz"_s, u"显示标签"_s, true);
        putValue(u"tcsz"_s, u"全屏显示"_s, false);
        window.open();
        auto& txtXt = window.box(u"txtXt"_s);
        auto& labels = window.get<QCheckBox>(u"chkB1(0)"_s);
        auto& full = window.get<QCheckBox>(u"chkB1(1)"_s);
        QCOMPARE(txtXt.text(), valueOf(u"tcsz"_s, u"像册标题"_s));
        QVERIFY(txtXt.isLocked() && labels.isChecked() && !full.isChecked());

        window.click(u"cmdBt"_s);
        QVERIFY(!txtXt.isLocked());
        txtXt.setText(u"一二三四五六七八"_s);
        labels.click();
        full.click();
        window.click(u"cmdBt"_s);
        QVERIFY(window.boxes.isEmpty() && txtXt.isLocked());
        for (const auto& [column, value] :
             {std::pair{u"像册标题"_s, u"一二三四五六七八"_s}, {u"显示标签"_s, u"False"_s}, {u"全屏显示"_s, u"True"_s}})
            QCOMPARE(valueOf(u"tcsz"_s, column), value);
        QCOMPARE(window.caption(u"cmdBt"_s), u"开 始"_s);
    }

    void titleTooLong() {
        SettingsWindow window;
        window.click(u"cmdBt"_s);
        auto& txtXt = window.box(u"txtXt"_s);
        txtXt.setText(u"一二三四五六七八九"_s);
        QCOMPARE(window.boxes.first().icon, BoxIcon::information);
        QCOMPARE(window.boxes.first().text, u"标题的汉字数不应超过8个（英文不应超过16个）。"_s);
        QVERIFY(!window.isEnabled(u"cmdBt"_s) && txtXt.hasFocus());
        // Every key in the long title says it again; the last one makes it fit.
        for (const auto& [key, said] : {std::pair{Qt::Key_A, 2}, {Qt::Key_Backspace, 3}, {Qt::Key_Backspace, 3}}) {
            QTest::keyClick(&txtXt, key);
            QCOMPARE(window.boxes.size(), said);
        }
        QVERIFY(window.isEnabled(u"cmdBt"_s));

        // A long title that is stored does not nag.
        window.said();
        putValue(u"tcsz"_s, u"像册标题"_s, u"一二三四五六七八九"_s);
        window.open();
        QVERIFY(window.boxes.isEmpty() && window.isEnabled(u"cmdBt"_s));
    }

    void optionsAtRest() {
        SettingsWindow window;
        const QString message = u"如果编辑，请先按《开始》按钮。"_s;
        for (const QString& name : {u"chkB1(0)"_s, u"chkB1(1)"_s}) {
            auto& check = window.get<QCheckBox>(name);
            const bool before = check.isChecked();
            // The second click finds the focus there already.
            for (int i = 0; i < 2; ++i) {
                QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, check.height() / 2));
                QCoreApplication::processEvents();
                QCOMPARE(window.said(), QStringList{message});
                QCOMPARE(check.isChecked(), before);
            }
            // Passing over it says nothing.
            window.button(u"cmdBt"_s).setFocus();
            while (!check.hasFocus()) QTest::keyClick(window.form->focusWidget(), Qt::Key_Tab);
            QTest::keyClick(&check, Qt::Key_Tab);
            QTest::keyClick(window.form->focusWidget(), Qt::Key_Backtab);
            QVERIFY(check.hasFocus());
            QCoreApplication::processEvents();
            QVERIFY(window.boxes.isEmpty());
            QTest::keyClick(&check, Qt::Key_Space);
            QCOMPARE(window.said(), QStringList{message});
            QCOMPARE(check.isChecked(), before);
        }
    }

    void failedTitleLeavesTheState() {
        SettingsWindow window;
        window.click(u"cmdBt"_s);
        mekTp::catalogue.Execute(u"DELETE FROM [tcsz]"_s);
        window.click(u"cmdBt"_s);
        QCOMPARE(window.boxes.size(), 1);
        QCOMPARE(window.boxes.first().title, u"错误提示"_s);
        QCOMPARE(window.caption(u"cmdBt"_s), u"保 存"_s);
        QVERIFY(!window.box(u"txtXt"_s).isLocked());
    }
};

const Registered<TestSetupTyping> registered;

}  // namespace

#include "setup_typing_test.moc"
