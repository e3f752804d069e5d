#include "settings_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString presetRow = u"SELECT * FROM tcan WHERE 编号 = 'v'"_s;

/// Buttons cannot be changed from now on, which is what the last step of an album's creation or deletion comes to.
void spoilButtons() {
    mekTp::catalogue.Execute(u"DROP TABLE [tcan]"_s);
    mekTp::catalogue.Execute(u"CREATE TABLE tcan ([序号] LONG,[编号] TEXT(1))"_s);
    addRow(u"tcan"_s, {{u"序号"_s, 1}, {u"编号"_s, u"v"_s}});
}

const QStringList sampleAlbums{u"tc00"_s, u"tc01"_s, u"tc02"_s};  ///< The albums of the sample.

QStringList albums() {
    return columnOf(u"tcbm"_s, u"表名"_s);
}

QString rowOf(const QString& album) {
    return u"SELECT * FROM tcbm WHERE 表名 = "_s + quoted(album);
}

QString remarkOf(const QString& album) {
    return valueOf(rowOf(album), u"备注"_s);
}

/// A proposal with its own table name stands.
void propose(const SettingsWindow& window, const QString& table, const QString& title = u"新册"_s) {
    window.click(u"cmdJl"_s);
    window.box(u"txtBa"_s).setText(table);
    window.box(u"txtBb"_s).setText(title);
}

class TestSetupPage : public QObject {
    Q_OBJECT

    std::optional<SettingsWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    // New album ------------------------------------------------------------------------------------------------------

    void proposal() {
        const std::pair<int, QStringList> cases[] = {
            {0, {u"1"_s, u"tc01"_s, u"第1册"_s}},  // no albums
            {9, {u"9"_s, u"tc09"_s, u"第9册"_s}},  // repeats the last number
            {10, {u"10"_s, u"tc10"_s, u"第10册"_s}},
            {100, {u"100"_s, u"tc100"_s, u"第100册"_s}},
        };
        for (const auto& [lastNumber, proposed] : cases) {
            init();
            if (lastNumber == 0)
                mekTp::catalogue.Execute(u"DELETE FROM [tcbm]"_s);
            else
                putValue(rowOf(u"tc01"_s), u"序号"_s, lastNumber);
            QVERIFY(!window_->isEnabled(u"cmdSx"_s));
            window_->click(u"cmdJl"_s);
            const QStringList shown{window_->label(u"lblXh"_s), window_->text(u"txtBa"_s), window_->text(u"txtBb"_s)};
            QCOMPARE(shown, proposed);
            QCOMPARE(window_->caption(u"cmdJl"_s), u"确 定"_s);
            QVERIFY(window_->isEnabled(u"cmdSx"_s));
            QVERIFY(!window_->box(u"txtBz"_s).isLocked() && window_->box(u"txtBz"_s).hasFocus());

            window_->click(u"cmdSx"_s);
            QCOMPARE(window_->text(u"txtBa"_s), QString());
            QCOMPARE(window_->caption(u"cmdJl"_s), u"开 始"_s);
            QVERIFY(window_->isEnabled(u"cmdSx"_s) && window_->boxes.isEmpty());
        }
    }

    void creation() {
        putValue(presetRow, u"图册"_s, u"tc00tc01"_s);
        propose(*window_, u"tc07"_s);
        window_->box(u"txtBz"_s).setText(u"它's [备注]"_s);
        window_->click(u"cmdJl"_s);
        QCOMPARE(window_->said(), QStringList{u"新的像册数据表建立完成！"_s});
        QVERIFY(hasTable(u"tc07"_s));
        for (const auto& [column, value] :
             {std::pair{u"序号"_s, u"3"_s}, {u"标题"_s, u"新册"_s}, {u"备注"_s, u"它's [备注]"_s}})
            QCOMPARE(valueOf(rowOf(u"tc07"_s), column), value);
        QCOMPARE(valueOf(presetRow, u"图册"_s), u"tc00tc01tc07"_s);
        for (const QString& combo : {u"cboBm"_s, u"cboFc"_s}) QCOMPARE(window_->lines(combo).last(), u"tc07 新册"_s);
        QCOMPARE(window_->text(u"txtBa"_s), u"tc07"_s);
        QVERIFY(window_->box(u"txtBz"_s).isLocked());
        QCOMPARE(window_->grid().model()->rowCount(), columnOf(u"tcan"_s, u"编号"_s).size());
    }

    void undoTakesOnlyTheNewAlbum() {
        window_->choose(u"cboFc"_s, u"tc02"_s);
        propose(*window_, u"tc07"_s);  // bears number 3, as tc02 does
        window_->box(u"txtBz"_s).setText(u"海边"_s);
        window_->click(u"cmdJl"_s);
        window_->box(u"txtBa"_s).setText(u"tc01"_s);
        const QString offered = valueOf(presetRow, u"图册"_s);
        window_->said();

        window_->answer = false;
        window_->click(u"cmdSx"_s);
        QCOMPARE(window_->said(),
                 QStringList{u"撤消（删除）刚才建立的图册数据表吗？\n\n如果是按《确定》；否则按《取消》。\n\n"
                             "新册（tc07），0 张"_s});
        QVERIFY(hasTable(u"tc07"_s));
        QCOMPARE(window_->text(u"txtBb"_s), u"新册"_s);

        window_->answer = true;
        window_->click(u"cmdSx"_s);
        QCOMPARE(window_->said().last(), u"刚才建立的图册数据表已经删除！"_s);
        QVERIFY(!hasTable(u"tc07"_s) && hasTable(u"tc01"_s));
        QCOMPARE(albums(), sampleAlbums);
        QCOMPARE(valueOf(presetRow, u"图册"_s), offered);
        for (const QString& combo : {u"cboBm"_s, u"cboFc"_s}) QCOMPARE(window_->lines(combo).size(), 3);
        QCOMPARE(window_->get<QComboBox>(u"cboFc"_s).currentText(), u"tc02 空册"_s);
        for (const QString& name : {u"txtBa"_s, u"txtBb"_s}) QCOMPARE(window_->text(name), QString());
        QCOMPARE(window_->text(u"txtBz"_s), u"海边"_s);
        QVERIFY(!window_->isEnabled(u"cmdSx"_s));
    }

    void undoAfterAPageSwitchTakesNothing() {
        propose(*window_, u"tc07"_s);
        window_->click(u"cmdJl"_s);
        window_->goToAnotherPageAndBack();
        QVERIFY(window_->isEnabled(u"cmdSx"_s));
        window_->said();
        window_->click(u"cmdSx"_s);
        QVERIFY(window_->boxes.isEmpty() && hasTable(u"tc07"_s));
        QVERIFY(!window_->isEnabled(u"cmdSx"_s));
    }

    void creationRefused() {
        const QString inUse = u"表名重复，请重新输入！"_s, title = u"甲"_s;
        const std::tuple<QString, QString, QString> cases[] = {
            {u"tc01"_s, title, inUse},
            {u"TC01"_s, title, inUse},
            {u"tc'9"_s, title, u"表名[tc'9]不能使用！"_s},
            {u"tc]9"_s, title, u"表名[tc]9]不能使用！"_s},
            {u"tc100"_s, title, u"表名[tc100]不能使用！"_s},
            {u"tcan"_s, title, u""_s},  // a fixed table
            {u"tc09"_s, u"一二三四五六七八九"_s, u"标题的汉字数不应超过8个（英文不应超过16个）。"_s},
            {u"tc09"_s, u"旅行"_s, u"标题“旅行”已经有了（图册 tc01），请换一个标题！"_s},
        };
        for (const auto& [table, proposedTitle, message] : cases) {
            init();
            const QStringList tables = mekTp::catalogue.TableDefs();
            const QString offered = valueOf(presetRow, u"图册"_s);
            propose(*window_, table, proposedTitle);
            window_->click(u"cmdJl"_s);
            QCOMPARE(window_->boxes.size(), 1);
            QVERIFY2(window_->boxes.first().text.startsWith(message), qPrintable(window_->boxes.first().text));
            QCOMPARE(mekTp::catalogue.TableDefs(), tables);
            QCOMPARE(albums(), sampleAlbums);
            QCOMPARE(valueOf(presetRow, u"图册"_s), offered);
            QCOMPARE(window_->lines(u"cboBm"_s).size(), 3);
            QCOMPARE(window_->caption(u"cmdJl"_s), u"确 定"_s);
            QCOMPARE(window_->text(u"txtBa"_s), table);
            QCOMPARE(window_->text(u"txtBb"_s), proposedTitle);
        }
    }

    // Without the button for all pictures an album could be entered nowhere.
    void creationWithoutTheButtonForAllPictures() {
        for (const bool renamed : {false, true}) {
            init();
            if (renamed)
                putValue(presetRow, u"编号"_s, u"w"_s);
            else
                mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE 编号 = 'v'"_s);
            propose(*window_, u"tc07"_s);
            window_->answer = false;
            window_->click(u"cmdJl"_s);
            QCOMPARE(window_->boxes.size(), 1);
            QVERIFY(window_->said().first().startsWith(u"编号为“v”的按钮（全部图片）没有了"_s));
            QVERIFY(!hasTable(u"tc07"_s) && columnOf(presetRow, u"编号"_s).isEmpty());
            QCOMPARE(window_->caption(u"cmdJl"_s) + window_->text(u"txtBa"_s), u"确 定tc07"_s);

            window_->answer = true;
            window_->click(u"cmdJl"_s);
            QCOMPARE(window_->said().mid(1), QStringList{u"新的像册数据表建立完成！"_s});
            QCOMPARE(valueOf(presetRow, u"图册"_s), u"tc00tc01tc02tc07"_s);
            QCOMPARE(valueOf(presetRow, u"序号"_s), renamed ? u"5"_s : u"1"_s);
            const Recordset button = mekTp::catalogue.OpenRecordset(presetRow);
            QCOMPARE(LoadPicture(button.Fields(u"图片"_s).Value().toBytes(), u"v"_s).pixels(), QSize(100, 75));
            QCOMPARE(window_->grid().model()->rowCount(), renamed ? 5 : 4);
        }
    }

    void failedCreationLeavesNothing() {
        spoilButtons();
        propose(*window_, u"tc07"_s);
        window_->click(u"cmdJl"_s);
        QCOMPARE(window_->boxes.size(), 1);
        QCOMPARE(window_->boxes.first().title, u"错误提示"_s);
        QVERIFY(!hasTable(u"tc07"_s));
        QCOMPARE(albums(), sampleAlbums);
        QCOMPARE(window_->caption(u"cmdJl"_s), u"确 定"_s);
    }

    void leavingARepeatedName() {
        window_->click(u"cmdJl"_s);
        auto& txtBa = window_->box(u"txtBa"_s);
        txtBa.setText(u"tc01"_s);
        txtBa.setFocus();
        QTest::keyClick(&txtBa, Qt::Key_Tab);
        QTRY_COMPARE(window_->boxes.size(), 1);
        QCOMPARE(window_->said(), QStringList{u"表名重复，请重新输入！"_s});
        QVERIFY(txtBa.hasFocus());

        txtBa.setText(u"tc0'"_s);
        QTest::keyClick(&txtBa, Qt::Key_Tab);
        QCoreApplication::processEvents();
        QVERIFY(window_->boxes.isEmpty() && !txtBa.hasFocus());

        // Confirming it says it once; who gives the proposal up need not mend the name first.
        for (const auto& [button, said] :
             {std::pair{u"cmdJl"_s, QStringList{u"表名重复，请重新输入！"_s}}, {u"cmdSx"_s, QStringList{}}}) {
            txtBa.setText(u"tc01"_s);
            txtBa.setFocus();
            window_->button(button).setFocus();
            window_->click(button);
            QCoreApplication::processEvents();
            QCOMPARE(window_->said(), said);
        }
        QCOMPARE(window_->caption(u"cmdJl"_s), u"开 始"_s);
    }

    // Albums ---------------------------------------------------------------------------------------------------------

    void chosenAlbum() {
        putValue(rowOf(u"tc01"_s), u"备注"_s, u"一路"_s);
        putValue(rowOf(u"tc02"_s), u"备注"_s, FieldValue());
        putValue(rowOf(u"tc00"_s), u"备注"_s, u"样张"_s);
        for (const auto& [album, shown, own] : {std::tuple{u"tc01"_s, u"2|tc01|旅行|一路"_s, true},
                                                {u"tc02"_s, u"3|tc02|空册|"_s, true},
                                                {u"tc00"_s, u"1|tc00|演示|样张"_s, false}}) {
            window_->choose(u"cboFc"_s, album);
            QStringList texts;
            for (const QString& name : {u"txtXc"_s, u"txtBc"_s, u"txtTc"_s, u"txt1c"_s}) texts << window_->text(name);
            QCOMPARE(texts.join(u'|'), shown);
            QCOMPARE(window_->isEnabled(u"cmdFc"_s), own);
            QCOMPARE(window_->isEnabled(u"cmdFs"_s), own);
        }
    }

    void remark() {
        putValue(rowOf(u"tc01"_s), u"备注"_s, u"旧"_s);
        window_->choose(u"cboFc"_s, u"tc01"_s);
        auto& txt1c = window_->box(u"txt1c"_s);

        window_->click(u"cmdFc"_s);
        QVERIFY(!txt1c.isLocked() && txt1c.hasFocus());
        txt1c.setText(u"不要"_s);
        window_->click(u"cmdFs"_s);
        QCOMPARE(txt1c.text(), u"旧"_s);
        QVERIFY(txt1c.isLocked());

        window_->click(u"cmdFc"_s);
        txt1c.setText(u"O'新\"[]"_s);
        window_->click(u"cmdFc"_s);
        QCOMPARE(remarkOf(u"tc01"_s), u"O'新\"[]"_s);
        QCOMPARE(window_->caption(u"cmdFc"_s) + window_->caption(u"cmdFs"_s), u"编 辑删 除"_s);
        QVERIFY(window_->boxes.isEmpty());
    }

    void anotherAlbumWhileEditing() {
        const QString demo = remarkOf(u"tc00"_s);
        window_->choose(u"cboFc"_s, u"tc01"_s);
        window_->click(u"cmdFc"_s);
        window_->choose(u"cboFc"_s, u"tc00"_s);
        QVERIFY(window_->boxes.isEmpty());  // nothing was typed yet
        QVERIFY(window_->isEnabled(u"cmdFc"_s) && window_->isEnabled(u"cmdFs"_s));
        window_->click(u"cmdFc"_s);
        QCOMPARE(window_->said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        QCOMPARE(remarkOf(u"tc00"_s), demo);
        window_->choose(u"cboFc"_s, u"tc02"_s);
        window_->box(u"txt1c"_s).setText(u"可以"_s);
        window_->click(u"cmdFc"_s);
        QCOMPARE(remarkOf(u"tc02"_s), u"可以"_s);
        QVERIFY(remarkOf(u"tc01"_s) != u"可以"_s);

        // An album that is gone leaves nothing to edit or delete.
        window_->click(u"cmdFc"_s);
        mekTp::catalogue.Execute(u"DELETE FROM [tcbm] WHERE 表名 = 'tc01'"_s);
        window_->choose(u"cboFc"_s, u"tc01"_s);
        QCOMPARE(window_->text(u"txtBc"_s), QString());
        QVERIFY(!window_->isEnabled(u"cmdFc"_s) && window_->box(u"txt1c"_s).isLocked());
    }

    void deletion() {
        for (const auto& [offered, left] : {std::pair{u"tc01tc00tc02"_s, u"tc00tc02"_s},
                                            {u"tc00tc02tc01"_s, u"tc00tc02"_s},
                                            {u"tc01"_s, u""_s},
                                            {u"tc02tc00"_s, u"tc02tc00"_s},
                                            {u"xtc01xxx"_s, u"xtc01xxx"_s}}) {  // only across a border
            init();
            putValue(presetRow, u"图册"_s, offered);
            const QString otherButton = valueOf(u"SELECT * FROM tcan WHERE 编号 = '1'"_s, u"图册"_s);
            window_->choose(u"cboFc"_s, u"tc01"_s);
            window_->answer = false;
            window_->click(u"cmdFs"_s);
            QCOMPARE(window_->said(),
                     QStringList{u"    删除[tc01]像册数据表吗？\n\n如果“是”，按《确定》；否则按《取消》。\n\n"
                                 "旅行（tc01），10 张，不到 0.1 MB"_s});
            QVERIFY(hasTable(u"tc01"_s));

            window_->answer = true;
            window_->click(u"cmdFs"_s);
            QCOMPARE(window_->said().last(), u"当前[tc01]像册数据表已经删除！"_s);
            QVERIFY(!hasTable(u"tc01"_s));
            QCOMPARE(albums(), (QStringList{u"tc00"_s, u"tc02"_s}));
            QCOMPARE(valueOf(presetRow, u"图册"_s), left);
            QCOMPARE(valueOf(u"SELECT * FROM tcan WHERE 编号 = '1'"_s, u"图册"_s), otherButton);
            QCOMPARE(window_->lines(u"cboFc"_s), (QStringList{u"tc00 演示"_s, u"tc02 空册"_s}));
            QCOMPARE(window_->lines(u"cboBm"_s).size(), 3);
            QCOMPARE(window_->text(u"txtBc"_s), QString());
            QVERIFY(!window_->isEnabled(u"cmdFs"_s));
        }
    }

    void deletionNamesWhatGoes() {
        const std::tuple<QString, int, QString> cases[] = {{u"tc02"_s, 0, u"空册（tc02），0 张"_s},
                                                           {u"tc01"_s, 2'500'000, u"旅行（tc01），10 张，2.5 MB"_s},
                                                           {u"tc01"_s, 61'300'000, u"旅行（tc01），10 张，61 MB"_s}};
        for (const auto& [table, bytes, named] : cases) {
            init();
            if (bytes > 0) putValue(table, u"图片"_s, QByteArray(bytes, 'x'));
            window_->choose(u"cboFc"_s, table);
            window_->answer = false;
            window_->click(u"cmdFs"_s);
            QCOMPARE(window_->boxes.size(), 1);
            QCOMPARE(window_->boxes.first().text.section(u"\n\n"_s, -1), named);
            QCOMPARE(window_->boxes.first().onEnter, 1);
        }
    }

    void deletionSparesTheAlbumOfTheSameNumber() {
        addAlbum(2, u"tc77"_s, u"同号"_s);  // 2 is the number of tc01
        window_->open();
        window_->choose(u"cboFc"_s, u"tc77"_s);
        window_->click(u"cmdFs"_s);
        QVERIFY(!hasTable(u"tc77"_s) && hasTable(u"tc01"_s));
        QCOMPARE(albums(), sampleAlbums);
        QCOMPARE(window_->lines(u"cboFc"_s), (QStringList{u"tc00 演示"_s, u"tc01 旅行"_s, u"tc02 空册"_s}));
    }

    void failedDeletionLeavesAll() {
        spoilButtons();
        window_->choose(u"cboFc"_s, u"tc01"_s);
        window_->click(u"cmdFs"_s);
        QCOMPARE(window_->boxes.last().title, u"错误提示"_s);
        QVERIFY(hasTable(u"tc01"_s));
        QCOMPARE(columnOf(u"tc01"_s, u"序号"_s).size(), 10);
        QCOMPARE(columnOf(u"tcbm"_s, u"表名"_s).size(), 3);
        QCOMPARE(window_->lines(u"cboFc"_s).size(), 3);
        QCOMPARE(window_->text(u"txtBc"_s), u"tc01"_s);
    }

    void deletionWithoutTheButtonForAllPictures() {
        mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE 编号 = 'v'"_s);
        window_->choose(u"cboFc"_s, u"tc01"_s);
        window_->click(u"cmdFs"_s);
        QCOMPARE(window_->said().last(), u"当前[tc01]像册数据表已经删除！"_s);
        QVERIFY(!hasTable(u"tc01"_s));
    }

    // An older catalogue may hold two albums of one title.
    void linesTellTheirTable() {
        addAlbum(5, u"tc05"_s, u"旅行"_s);
        window_->open();
        window_->choose(u"cboFc"_s, u"tc05"_s);
        QCOMPARE(window_->text(u"txtBc"_s), u"tc05"_s);
        QCOMPARE(window_->get<QComboBox>(u"cboFc"_s).itemData(3, Qt::ToolTipRole).toString(), u"tc05 旅行"_s);
    }
};

const Registered<TestSetupPage> registered;

}  // namespace

#include "setup_page_test.moc"
