#include "editing_window.h"

using namespace Qt::Literals::StringLiterals;

class TestEditingPage : public QObject {
    Q_OBJECT

    std::optional<EditingWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void whatAnAlbumAllows() {
        const std::tuple<QString, bool, bool, QString> cases[] = {
            {QString(), false, false, QString()},
            {u"tc00"_s, true, false, u"(演示) 全部记录 共有记录 3条"_s},
            {u"tc01"_s, true, true, u"(旅行) 全部记录 共有记录 10条"_s},
            {u"tc02"_s, true, true, u"(空册) 全部记录 共有记录 0条"_s},
        };
        for (const auto& [album, chosen, changeable, line] : cases) {
            window_.emplace(album);
            for (const bool again : {false, true}) {
                for (const QString& name : {u"cmdQd"_s, u"cmdSc"_s, u"cmdJh"_s, u"cmdS1"_s})
                    QVERIFY2(window_->isEnabled(name) == changeable, qPrintable(name));
                QCOMPARE(window_->isEnabled(u"cmdCk(2)"_s), chosen);
                QCOMPARE(window_->codes().isEnabled(), chosen);
                QCOMPARE(window_->datBj().isEnabled(), chosen);
                for (int i = 0; i < 3; ++i) QCOMPARE(window_->option(element(u"optBs"_s, i)).isEnabled(), chosen);
                QCOMPARE(window_->option(u"optBs(0)"_s).isChecked(), chosen);
                QCOMPARE(window_->label(u"lblZs"_s), line);
                // Neither a line that is clicked nor a look at the page of intake opens what the album does not.
                if (!again && window_->grid().model()->rowCount() > 0) window_->clickRow(1);
                if (!again && !chosen) window_->goToAnotherPageAndBack();
            }
        }
    }

    void albumTakenAway() {
        window_->click(u"cmdQd"_s);
        auto& cboBm = window_->get<QComboBox>(u"cboBm"_s);
        cboBm.lineEdit()->selectAll();
        QTest::keyClicks(cboBm.lineEdit(), u"tc9"_s);
        for (const QString& name : {u"cmdQd"_s, u"cmdSc"_s, u"cmdJh"_s, u"cmdS1"_s, u"cmdCk(2)"_s})
            QVERIFY2(!window_->isEnabled(name), qPrintable(name));
        QCOMPARE(window_->caption(u"cmdQd"_s), u"编 辑"_s);
        for (const QString& name : {u"txtXh"_s, u"txtBh"_s, u"txtRq"_s, u"txtB2"_s}) {
            QCOMPARE(window_->text(name), QString());
            QVERIFY(window_->box(name).isLocked());
        }
        QVERIFY(!window_->isPending());
    }

    void nothingToEditInAnEmptyAlbum() {
        window_->clickRow(2);
        window_->choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(window_->text(u"txtXh"_s), QString());
        window_->click(u"cmdQd"_s);
        window_->click(u"cmdSc"_s);
        QCOMPARE(window_->said(), (QStringList{u"没有可以编辑的记录。"_s, u"没有可以删除的记录。"_s}));
        QCOMPARE(window_->caption(u"cmdQd"_s), u"编 辑"_s);
    }

    void filters() {
        window_->clickOption(u"optBs(1)"_s);
        QCOMPARE(window_->numbers(), QStringList{});
        QCOMPARE(window_->text(u"txtXh"_s), QString());

        runOutside(u"DELETE FROM tc01 WHERE 序号 < 6 OR 序号 = 10"_s);
        runOutside(u"UPDATE tc01 SET 编号 = NULL WHERE 序号 = 6"_s);
        runOutside(u"UPDATE tc01 SET 编号 = ' ' WHERE 序号 = 7"_s);  // as files bring it in: a code
        runOutside(u"UPDATE tc01 SET 编号 = '' WHERE 序号 = 8"_s);
        for (const auto& [option, numbers, line] : {std::tuple{0, u"6789"_s, u"(旅行) 全部记录 共有记录 4条"_s},
                                                    {1, u"68"_s, u"(旅行) 未设编号 共有记录 2条"_s},
                                                    {2, u"79"_s, u"(旅行) 已设编号 共有记录 2条"_s}}) {
            window_->clickOption(element(u"optBs"_s, option));
            QCOMPARE(window_->numbers().join(QString()), numbers);
            QCOMPARE(window_->label(u"lblZs"_s), line);
            QCOMPARE(window_->text(u"txtXh"_s), numbers.left(1));
        }
    }

    void filterByCode() {
        for (const auto& [code, numbers, codes] : {std::tuple{u"1"_s, u"1 3 5 7 9"_s, u"12"_s},
                                                   {u"'"_s, u"6"_s, u"x'"_s},
                                                   {u"v"_s, u"1 2 3 4 5 6 7 8 9 10"_s, u"12"_s}}) {
            init();
            putValue(u"SELECT * FROM tcan WHERE 编号 = 'a'"_s, u"编号"_s, u"'"_s);
            putValue(u"SELECT * FROM tc01 WHERE 序号 = 6"_s, u"编号"_s, u"x'"_s);
            window_->choose(u"cboBm"_s, u"tc01"_s);
            window_->doubleClickCode(code);
            QCOMPARE(window_->numbers().join(u' '), numbers);
            QCOMPARE(window_->label(u"lblZs"_s),
                     u"分图册名：tc01( 旅行) 编号 = [%1] 共有记录 %2条"_s.arg(code).arg(window_->numbers().size()));
            QCOMPARE(window_->text(u"txtBh"_s), codes);
        }
    }

    void filterByCodeWithEnter() {
        window_->codes().setFocus();
        window_->codes().setCurrentItem(window_->codes().findItems(u"1 "_s, Qt::MatchStartsWith).value(0));
        QTest::keyClick(&window_->codes(), Qt::Key_Return);
        QCOMPARE(window_->numbers().join(u' '), u"1 3 5 7 9"_s);
        window_->click(u"cmdQd"_s);
        QTest::keyClick(&window_->codes(), Qt::Key_Return);  // now it chooses the code
        QCOMPARE(window_->text(u"txtBh"_s), u"121"_s);
        QCOMPARE(window_->numbers().size(), 5);
    }

    // What is highlighted is what is shown, changed and deleted.
    void keysInTheGridChooseTheRecord() {
        const std::tuple<Qt::Key, Qt::KeyboardModifiers, QString> keys[] = {
            {Qt::Key_Down, {}, u"2"_s},
            {Qt::Key_End, {}, u"10"_s},
            {Qt::Key_Up, {}, u"9"_s},
            {Qt::Key_PageUp, {}, u"1"_s},
            {Qt::Key_PageDown, {}, u"10"_s},
            {Qt::Key_Home, {}, u"1"_s},
            {Qt::Key_End, Qt::ControlModifier, u"10"_s},
            {Qt::Key_Home, Qt::ControlModifier, u"1"_s},
        };
        window_->grid().setFocus();
        window_->click(u"cmdCk(2)"_s);
        for (const auto& [key, modifiers, number] : keys) {
            QTest::keyClick(&window_->grid(), key, modifiers);
            QCOMPARE(window_->text(u"txtXh"_s), number);
            QCOMPARE(window_->grid().cellText(window_->grid().selectionModel()->selectedRows().value(0).row(), 0),
                     number);
            const QString title = window_->get<QGroupBox>(u"fraCk"_s).title();
            QVERIFY2(title.contains(u" 序号 %1 "_s.arg(number)), qPrintable(title));
        }
        for (int i = 0; i < 2; ++i) QTest::keyClick(&window_->grid(), Qt::Key_Down);
        window_->click(u"cmdSc"_s);
        QVERIFY(!columnOf(u"tc01"_s, u"序号"_s).contains(u"3"_s));
        QCOMPARE(columnOf(u"tc01"_s, u"序号"_s).size(), 9);
    }

    void headingsWithoutAnAlbum() {
        window_.emplace(QString{});
        QStringList headings;
        for (int i = 0; i < window_->grid().model()->columnCount(); ++i)
            headings << window_->grid().model()->headerData(i, Qt::Horizontal).toString().remove(u' ');
        QCOMPARE(headings, (QStringList{u"序号"_s, u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s, u"备注"_s}));
        QCOMPARE(window_->grid().model()->rowCount(), 0);
    }

    void dateWithoutATime() {
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 1"_s, u"日期"_s, QDateTime(QDate(2003, 10, 1), QTime(0, 0)));
        window_->clickRow(0);
        QCOMPARE(window_->text(u"txtRq"_s), u"2003-10-01"_s);
        QCOMPARE(window_->grid().cellText(0, 4), window_->text(u"txtRq"_s));
    }

    // Three groups of options stand on the page: each goes its own way.
    void optionGroupsAreIndependent() {
        const QStringList groups{u"optBs"_s, u"optP1"_s, u"optP2"_s};
        const auto marks = [&] {
            QStringList all;
            for (const QString& group : groups)
                for (int i = 0; i < (group == u"optP2" ? 2 : 3); ++i)
                    if (window_->option(element(group, i)).isChecked()) all << element(group, i);
            return all.join(u' ');
        };
        for (const auto& [clicked, marked] : {std::pair{u"optP1(1)"_s, u"optBs(0) optP1(1)"_s},
                                              {u"optP1(2)"_s, u"optBs(0) optP1(2)"_s},
                                              {u"optP2(1)"_s, u"optBs(0) optP1(2) optP2(1)"_s},
                                              {u"optBs(2)"_s, u"optBs(2) optP1(2) optP2(1)"_s},
                                              {u"optP1(0)"_s, u"optBs(0) optP1(0) optP2(1)"_s}}) {
            window_->clickOption(clicked);
            QCOMPARE(marks(), marked);
        }
        // The arrows go round inside a group.
        for (const QString& group : groups) {
            window_->option(element(group, 0)).setFocus();
            for (int i = 0; i < 4; ++i) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
                QVERIFY2(QApplication::focusWidget()->objectName().startsWith(group), qPrintable(group));
            }
        }
    }

    void doubleClickWhileEditing() {
        window_->click(u"cmdQd"_s);
        window_->doubleClickCode(u"2"_s);
        QCOMPARE(window_->numbers().size(), 10);
        QVERIFY(window_->text(u"txtBh"_s).startsWith(u"122"_s));
    }

    void codeListIsSorted() {
        putValue(u"SELECT * FROM tcan WHERE 编号 = 'a'"_s, u"序号"_s, 0);
        putValue(u"SELECT * FROM tcan WHERE 编号 = '2'"_s, u"图册"_s, u"tc02"_s);
        for (const auto& [option, lines] : {std::pair{u"optP2(0)"_s, u"a {无图}|v {全部}|1 {风景}|2 人物"_s},
                                            {u"optP2(1)"_s, u"1 {风景}|2 人物|a {无图}|v {全部}"_s}}) {
            window_->clickOption(option);
            QCOMPARE(linesOf(window_->codes()).join(u'|'), lines);
        }
    }

    void deletion() {
        const std::tuple<QString, int, QString> cases[] = {
            {u"0"_s, 0, u"2"_s},
            {u"0"_s, 4, u"6"_s},
            {u"0"_s, 9, u"9"_s},
            {u"5"_s, 3, u"3"_s},     // the following number is missing
            {u"3, 5"_s, 2, u"6"_s},  // both neighbours are missing
            {u"2, 3, 4, 5, 6, 7, 8, 9, 10"_s, 0, QString()},
        };
        for (const auto& [gaps, row, next] : cases) {
            init();
            runOutside(u"DELETE FROM tc01 WHERE 序号 IN (%1)"_s.arg(gaps));
            window_->choose(u"cboBm"_s, u"tc01"_s);
            window_->clickRow(row);
            QStringList numbers = window_->numbers();
            const QString question =
                u"确定删除这张图片吗？ [序号]=%1\n\n确定删除，按《确定》；否则按《取消》。\n\n要删除的是：序号 %1，"_s
                    .arg(numbers.at(row));
            const QString remark = window_->text(u"txtB2"_s);
            window_->answer = false;
            window_->click(u"cmdSc"_s);
            QCOMPARE(window_->boxes.value(0).onEnter, 1);  // not to delete
            const QString asked = window_->said().join(u'|');
            QVERIFY2(asked.startsWith(question) && asked.contains(remark) && !asked.contains(u'|'), qPrintable(asked));
            QCOMPARE(window_->numbers(), numbers);
            window_->answer = true;
            window_->click(u"cmdSc"_s);
            QCOMPARE(window_->said(), QStringList{asked});
            numbers.removeAt(row);
            QCOMPARE(window_->numbers(), numbers);
            QCOMPARE(columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"序号"_s), numbers);
            QCOMPARE(window_->text(u"txtXh"_s), next);
            QCOMPARE(window_->label(u"lblZs"_s), u"(旅行) 全部记录 共有记录 %1条"_s.arg(numbers.size()));
        }
    }

    // Of two records with one number, the one shown is the one that goes.
    void twoOfOneNumber() {
        runOutside(u"UPDATE tc01 SET 序号 = 4 WHERE 序号 = 5"_s);
        window_->choose(u"cboBm"_s, u"tc01"_s);
        window_->clickRow(4);
        const QString remark = window_->text(u"txtB2"_s);
        window_->click(u"cmdSc"_s);
        const QStringList left = columnOf(u"tc01"_s, u"备注"_s);
        QCOMPARE(left.size(), 9);
        QVERIFY(!left.contains(remark));
    }

    void toolTipOnThisPageOnly() {
        QCOMPARE(window_->codes().toolTip(), u"双击编号可按编号筛选"_s);
        window_->tabs().setCurrentIndex(3);
        QCOMPARE(window_->codes().toolTip(), QString());
    }

    /// The panel with the picture of the record.
    void panelOfALostAlbum() {
        window_->click(u"cmdCk(2)"_s);
        QLineEdit* chooser = window_->get<QComboBox>(u"cboBm"_s).lineEdit();
        for (const Qt::Key key : {Qt::Key_Home, Qt::Key_X}) QTest::keyClick(chooser, key);
        QVERIFY(!window_->get<QGroupBox>(u"fraCk"_s).isVisible() && !window_->isEnabled(u"cmdCk(2)"_s));
    }

    void panelFollowsTheRecord() {
        window_->click(u"cmdCk(2)"_s);
        const auto& panel = window_->get<QGroupBox>(u"fraCk"_s);
        QCOMPARE(panel.title(), u"tc01 图片： 序号 1 编号 12"_s);
        QTest::mouseClick(window_->datBj().findChild<QToolButton*>(u"last"_s), Qt::LeftButton);
        QCOMPARE(panel.title(), u"tc01 图片： 序号 10 编号 "_s);
        window_->choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(panel.title(), u"tc02 图片： 序号  编号 "_s);
        QVERIFY(window_->get<ImageBox>(u"imgWj"_s).picture().isNull());
    }
};

const Registered<TestEditingPage> registered;

#include "editing_page_test.moc"
