#include "editing_window.h"

#include <SQLiteCpp/SQLiteCpp.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString noCode =
    u"编号没有填，会造成以后无法筛选图片。\n\n如果暂不填写，按《确定》；否则按《取消》，重新填写。"_s;
const QString first = u"1|12|40 * 30|2003-09-26 12:00:00"_s;  ///< The first record.
const QString firstButOne = u"SELECT * FROM tc01 WHERE 序号 = 2"_s;
const QString duplicate = u"所录入的序号重复，请修改重新录入！"_s;

struct Frame {
    QString cmdQd;
    QString cmdSc;
    bool unlocked;
};

void compareState(EditingWindow& window, const Frame& wanted) {
    QCOMPARE(window.caption(u"cmdQd"_s), wanted.cmdQd);
    QCOMPARE(window.caption(u"cmdSc"_s), wanted.cmdSc);
    for (const QString& name : {u"txtXh"_s, u"txtBh"_s, u"txtRq"_s, u"txtB2"_s})
        QCOMPARE(window.box(name).isLocked(), !wanted.unlocked);
    QCOMPARE(window.isPending(), wanted.unlocked);
}

const Frame rest{u"编 辑"_s, u"删 除"_s, false};
const Frame single{u"确 定"_s, u"取 消"_s, true};
const Frame continuous{u"下一张"_s, u"取 消"_s, true};

/// The four fields.
QString fields(const EditingWindow& window) {
    QStringList texts;
    for (const QString& name : {u"txtXh"_s, u"txtBh"_s, u"txtRq"_s, u"txtB2"_s}) texts << window.text(name);
    return texts.join(u'|');
}

/// Begins to edit the record shown and gives it another remark.
void beginWith(const EditingWindow& window, const QString& remark) {
    window.click(u"cmdQd"_s);
    window.box(u"txtB2"_s).setText(remark);
}

class TestEditingRecord : public QObject {
    Q_OBJECT

    std::optional<EditingWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void fieldsFollowTheRecord() {
        putValue(firstButOne, u"备注"_s, u" "_s);
        putValue(firstButOne, u"日期"_s, FieldValue());
        window_->clickRow(2);
        QCOMPARE(fields(*window_), u"3|12|2003-09-28 12:00:00|图片3"_s);
        QCOMPARE(window_->label(u"lblGg"_s), u"30 * 40"_s);
        QCOMPARE(window_->label(u"lblDx"_s), window_->grid().cellText(2, 2));
        QTest::mouseClick(window_->datBj().findChild<QToolButton*>(u"previous"_s), Qt::LeftButton);
        QCOMPARE(fields(*window_), u"2|2||"_s);
        compareState(*window_, rest);
    }

    // Every way into a state and out of it.
    void states() {
        auto& chkLi = window_->get<QCheckBox>(u"chkLi"_s);
        for (const QString& wayOut : {u"cmdQd"_s, u"cmdSc"_s}) {
            window_->click(u"cmdQd"_s);
            compareState(*window_, single);
            window_->box(u"txtB2"_s).setText(wayOut);
            window_->click(wayOut);
            compareState(*window_, rest);
            // 取 消 stores as well.
            QCOMPARE(valueOf(u"SELECT * FROM tc01 WHERE 序号 = 1"_s, u"备注"_s), wayOut);
            QCOMPARE(window_->grid().cellText(0, 5), wayOut);
        }
        chkLi.click();
        window_->click(u"cmdQd"_s);
        compareState(*window_, continuous);
        QCOMPARE(window_->label(u"lblTs"_s), u"操作提示：编辑后如果继续进行，按《下一张》，否则按《取 消》。"_s);
        window_->box(u"txtB2"_s).setText(u"甲"_s);
        window_->click(u"cmdQd"_s);
        compareState(*window_, continuous);
        QCOMPARE(window_->text(u"txtXh"_s), u"2"_s);
        QVERIFY(window_->box(u"txtBh"_s).hasFocus());
        window_->box(u"txtB2"_s).setText(u"乙"_s);
        window_->click(u"cmdSc"_s);
        compareState(*window_, rest);
        QCOMPARE(columnOf(u"SELECT * FROM tc01 WHERE 序号 < 3 ORDER BY [序号]"_s, u"备注"_s),
                 (QStringList{u"甲"_s, u"乙"_s}));
        QVERIFY(window_->boxes.isEmpty());
    }

    void continuousEditingEnds() {
        window_->get<QCheckBox>(u"chkLi"_s).click();
        window_->clickRow(8);
        window_->click(u"cmdQd"_s);
        window_->click(u"cmdQd"_s);
        window_->box(u"txtBh"_s).setText(u"2"_s);
        window_->click(u"cmdQd"_s);
        compareState(*window_, rest);
        QVERIFY(!window_->isEnabled(u"cmdQd"_s) && window_->isEnabled(u"cmdSc"_s));
        QCOMPARE(EditingWindow::record(u"图片10"_s), u"10|2|40 * 30|2003-10-05 12:00:00"_s);
        window_->clickRow(4);
        QVERIFY(window_->isEnabled(u"cmdQd"_s));
    }

    void anotherPageGivesUpPendingWork() {
        beginWith(*window_, u"改了一半"_s);
        window_->goToAnotherPageAndBack();
        compareState(*window_, rest);
        QCOMPARE(window_->text(u"txtB2"_s), u"图片1"_s);
        QCOMPARE(EditingWindow::record(u"图片1"_s), first);
    }

    // Every way out of a record by the hand.
    void leavingAChangedRecordAsks() {
        const std::pair<QString, std::function<void()>> ways[] = {
            {u"row"_s, [this] { window_->clickRow(3); }},
            {u"key"_s, [this] { QTest::keyClick(&window_->grid(), Qt::Key_Down); }},
            {u"arrow"_s,
             [this] { QTest::mouseClick(window_->datBj().findChild<QToolButton*>(u"next"_s), Qt::LeftButton); }},
            {u"album"_s, [this] { QTest::keyClick(&window_->get<QComboBox>(u"cboBm"_s), Qt::Key_Down); }},
            {u"typed album"_s,
             [this] {
                 auto& cboBm = window_->get<QComboBox>(u"cboBm"_s);
                 cboBm.lineEdit()->selectAll();
                 QTest::keyClick(&cboBm, Qt::Key_X);
             }},
            {u"filter"_s, [this] { window_->clickOption(u"optBs(1)"_s); }},
            {u"order"_s, [this] { window_->clickOption(u"optP1(1)"_s); }},
            {u"read anew"_s, [this] { window_->click(u"cmdS1"_s); }},
            {u"numbers"_s, [this] { window_->click(u"cmdJh"_s); }},
            {u"viewer"_s, [this] { window_->click(u"cmdFh"_s); }},
            {u"end"_s, [this] { window_->click(u"cmdGl"_s); }},
            {u"title bar"_s, [this] { window_->form->close(); }},
        };
        for (const auto& [name, way] : ways) {
            init();
            beginWith(*window_, u"改过的"_s);
            window_->answerWith(2);
            way();
            QCOMPARE(window_->boxes.size(), 1);
            QCOMPARE(window_->boxes.first().answers, (QStringList{u"保存"_s, u"不保存"_s, u"继续编辑"_s}));
            QVERIFY2(window_->boxes.first().onEnter == 2 && window_->boxes.first().onEscape == 2, qPrintable(name));
            window_->said();
            compareState(*window_, single);
            QCOMPARE(fields(*window_), u"1|12|2003-09-26 12:00:00|改过的"_s);
            QCOMPARE(window_->grid().selectionModel()->selectedRows().value(0).row(), 0);
            QCOMPARE(window_->numbers().size(), 10);
            QCOMPARE(window_->get<QComboBox>(u"cboBm"_s).currentText(), u"tc01 旅行"_s);
            QVERIFY2(window_->option(u"optBs(0)"_s).isChecked() && !window_->option(u"optP1(1)"_s).isChecked(),
                     qPrintable(name));
            QVERIFY2(window_->windows.handedTo.isEmpty() && !window_->windows.ended && window_->form->isVisible(),
                     qPrintable(name));

            for (const bool stores : {false, true}) {
                init();
                beginWith(*window_, u"改过的"_s);
                window_->answerWith(stores ? 0 : 1);
                way();
                QVERIFY2(!window_->isPending(), qPrintable(name));
                const QStringList remarks = columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"备注"_s);
                QVERIFY2(remarks.contains(stores ? u"改过的"_s : u"图片1"_s), qPrintable(name));
                QVERIFY2(remarks.contains(stores ? u"图片1"_s : u"改过的"_s) == false, qPrintable(name));
            }

            init();
            window_->click(u"cmdQd"_s);
            window_->answer = false;
            way();
            QVERIFY2(window_->boxes.isEmpty() || name == u"numbers", qPrintable(name));
        }
    }

    void clickOnTheRecordThatIsEdited() {
        beginWith(*window_, u"改了一半"_s);
        window_->clickRow(0);
        QVERIFY(window_->boxes.isEmpty());
        QCOMPARE(window_->text(u"txtB2"_s), u"改了一半"_s);
        compareState(*window_, single);
    }

    // What cannot be stored is named, and nothing that was typed is taken away.
    void whatIsRefusedStays() {
        const QString tooLong(66, u'长');
        const std::tuple<QString, QString, QString> cases[] = {
            {u"txtRq"_s, u"2003-02-30"_s, u"日期“2003-02-30”不能识别。可以写成 20031001、"_s},
            {u"txtRq"_s, u"abc"_s, u"日期“abc”不能识别。"_s},
            {u"txtRq"_s, QString(), u"日期没有填。"_s},
            {u"txtXh"_s, u"一"_s, u"序号“一”不是"_s},
            {u"txtXh"_s, QString(), u"序号“”不是"_s},
            {u"txtXh"_s, u"3000000000"_s, u"序号“3000000000”不是"_s},
            {u"txtXh"_s, u"0"_s, u"序号“0”不是"_s},
            {u"txtXh"_s, u"1.5"_s, u"序号“1.5”不是"_s},
            {u"txtXh"_s, u"2"_s, u"序号“2”已经有另一条记录在用。"_s},
            {u"txtXh"_s, u"２"_s, u"序号“２”已经有另一条记录在用。"_s},
            {u"txtBh"_s, u"a1234567890"_s, u"编号太长：有 11 个字，最多 10 个。"_s},
            {u"txtB2"_s, tooLong, u"备注太长：有 66 个字，最多 50 个。"_s},
        };
        for (const auto& [box, typed, sentence] : cases) {
            for (const QString& way : {u"cmdQd"_s, u"cmdSc"_s}) {
                init();
                window_->answer = false;  // where it is asked: go on editing
                window_->click(u"cmdQd"_s);
                window_->box(box).setText(typed);
                window_->click(way);
                QCOMPARE(window_->boxes.size(), 1);
                const QString said = window_->said().value(0);
                QVERIFY2(said.startsWith(u"以下内容没有保存，记录没有改变：\n\n"_s + sentence), qPrintable(said));
                QCOMPARE(window_->text(box), typed);
                QVERIFY(window_->box(box).hasFocus());
                compareState(*window_, single);
                QCOMPARE(EditingWindow::record(u"图片1"_s), first);
                // Codes that were not stored make no button known in the album.
                QVERIFY(window_->codes().findItems(u"a {无图}"_s, Qt::MatchExactly).size() == 1);
            }
        }
    }

    void refusedAtTheEndOfEditing() {
        window_->click(u"cmdQd"_s);
        window_->box(u"txtXh"_s).setText(u"2"_s);
        window_->click(u"cmdSc"_s);  // not to save is the first answer
        QCOMPARE(window_->boxes.first().answers, (QStringList{u"不保存"_s, u"继续编辑"_s}));
        compareState(*window_, rest);
        QCOMPARE(window_->text(u"txtXh"_s), u"1"_s);
        QCOMPARE(EditingWindow::record(u"图片1"_s), first);
    }

    void whatIsTaken() {
        const std::tuple<QString, QString, QString> cases[] = {
            {u"txtRq"_s, u"2004-2-29"_s, u"1|12|40 * 30|2004-02-29"_s},
            {u"txtRq"_s, u"20040229"_s, u"1|12|40 * 30|2004-02-29"_s},
            {u"txtRq"_s, u"04-02-29 8:05"_s, u"1|12|40 * 30|2004-02-29 08:05:00"_s},
            {u"txtXh"_s, u"11"_s, u"11|12|40 * 30|2003-09-26 12:00:00"_s},
            {u"txtXh"_s, u" 01"_s, u"1|12|40 * 30|2003-09-26 12:00:00"_s},  // its own
            {u"txtBh"_s, u"1234567890"_s, u"1|1234567890|40 * 30|2003-09-26 12:00:00"_s},
            {u"txtBh"_s, u"'\"]"_s, u"1|'\"]|40 * 30|2003-09-26 12:00:00"_s},
        };
        for (const auto& [box, typed, stored] : cases) {
            init();
            beginWith(*window_, u"新备注"_s);
            window_->box(box).setText(typed);
            window_->click(u"cmdQd"_s);
            QCOMPARE(window_->said(), QStringList{});
            QCOMPARE(EditingWindow::record(u"新备注"_s), stored);
            compareState(*window_, rest);
        }
    }

    // Whatever number a record has come by, only a changed one is looked at.
    void untouchedNumberIsNeverRefused() {
        for (const FieldValue& number : {FieldValue(2), FieldValue(0), FieldValue(-3), FieldValue()}) {
            init();
            putValue(u"SELECT * FROM tc01 WHERE 备注 = '图片1'"_s, u"序号"_s, number);
            window_->choose(u"cboBm"_s, u"tc01"_s);
            int row = 0;
            while (window_->grid().cellText(row, 5) != u"图片1"_s) ++row;
            window_->clickRow(row);
            window_->get<QCheckBox>(u"chkLi"_s).setChecked(number == FieldValue(2));
            beginWith(*window_, u"甲"_s);
            window_->box(u"txtXh"_s).setFocus();
            window_->box(u"txtB2"_s).setFocus();
            QCoreApplication::processEvents();
            window_->click(u"cmdQd"_s);
            QCOMPARE(window_->said(), QStringList{});
            QCOMPARE(EditingWindow::record(u"甲"_s), number.textOr() + u"|12|40 * 30|2003-09-26 12:00:00"_s);
        }
    }

    void typingStopsWhereTheColumnEnds() {
        window_->click(u"cmdQd"_s);
        auto& remark = window_->box(u"txtB2"_s);
        remark.setFocus();
        remark.selectAll();
        QInputMethodEvent words;
        words.setCommitString(QString(60, u'字'));
        QApplication::sendEvent(&remark, &words);
        QTest::keyClicks(&remark, u"abc"_s);
        QCOMPARE(remark.text(), QString(50, u'字'));
        window_->click(u"cmdQd"_s);
        QVERIFY(window_->boxes.isEmpty());
        QCOMPARE(EditingWindow::record(QString(50, u'字')), first);
    }

    void recordThatIsGone() {
        beginWith(*window_, u"甲"_s);
        runOutside(u"DELETE FROM tc01 WHERE 序号 = 1"_s);
        window_->click(u"cmdQd"_s);
        const QString said = window_->said().join(u'|');
        QVERIFY2(said.contains(u"记录没有改变"_s) && !said.contains(u'|'), qPrintable(said));
        QCOMPARE(columnOf(u"tc01"_s, u"备注"_s).size(), 9);
        QVERIFY(!columnOf(u"tc01"_s, u"备注"_s).contains(u"甲"_s));
    }

    // What was typed waits in the fields until the record can be stored.
    void catalogueThatIsHeld() {
        window_->click(u"cmdQd"_s);
        window_->box(u"txtB2"_s).setText(u"甲"_s);
        {
            SQLite::Database other(mekTp::cataloguePath().toStdString(), SQLite::OPEN_READWRITE);
            const SQLite::Transaction held(other, SQLite::TransactionBehavior::IMMEDIATE);
            window_->click(u"cmdQd"_s);
        }
        const QStringList said = window_->said();
        QCOMPARE(said.size(), 1);
        QVERIFY2(said.first().contains(u"记录没有改变"_s), qPrintable(said.first()));
        QCOMPARE(window_->text(u"txtB2"_s), u"甲"_s);
        compareState(*window_, single);
        window_->click(u"cmdQd"_s);
        QCOMPARE(EditingWindow::record(u"甲"_s), u"1|12|40 * 30|2003-09-26 12:00:00"_s);
        compareState(*window_, rest);
    }

    void columnsThatWereNotChangedKeepTheirValues() {
        for (const QString& column : {u"规格"_s, u"备注"_s, u"编号"_s})
            putValue(u"SELECT * FROM tc01 WHERE 序号 = 1"_s, column, u" "_s);
        window_->clickRow(0);
        window_->click(u"cmdQd"_s);
        window_->box(u"txtRq"_s).setText(u"2004-2-29"_s);
        window_->click(u"cmdQd"_s);
        QCOMPARE(EditingWindow::record(u" "_s), u"1|| |2004-02-29"_s);  // but a blank is no code
    }

    void emptyCodesAreAskedAbout() {
        beginWith(*window_, u"甲"_s);
        window_->box(u"txtBh"_s).clear();
        window_->answer = false;
        for (const QString& name : {u"cmdQd"_s, u"cmdSc"_s}) {
            window_->click(name);
            QCOMPARE(window_->said(), QStringList{noCode});
            QVERIFY(window_->box(u"txtBh"_s).hasFocus());
            QCOMPARE(EditingWindow::record(u"图片1"_s), first);
            compareState(*window_, single);  // the codes can be filled in and the rest is not lost
        }
        window_->answer = true;
        window_->click(u"cmdQd"_s);
        QCOMPARE(window_->said(), QStringList{noCode});
        QCOMPARE(EditingWindow::record(u"甲"_s), u"1||40 * 30|2003-09-26 12:00:00"_s);
        compareState(*window_, rest);
    }

    void codesMakeButtonsKnown() {
        for (const QString& code : {u"1"_s, u"a"_s, u"v"_s})
            putValue(u"SELECT * FROM tcan WHERE 编号 = "_s + quoted(code), u"图册"_s,
                     code == u"a" ? u""_s : u"tc00tc02"_s);
        putValue(u"SELECT * FROM tcan WHERE 编号 = 'a'"_s, u"编号"_s, u"'"_s);
        window_->choose(u"cboBm"_s, u"tc01"_s);
        window_->clickRow(7);
        window_->clickCode(u"2"_s);
        QCOMPARE(window_->text(u"txtBh"_s), QString());  // at rest a click chooses nothing
        window_->click(u"cmdQd"_s);
        for (const QString& code : {u"'"_s, u"1"_s, u"1"_s}) window_->clickCode(code);
        QCOMPARE(window_->text(u"txtBh"_s), u"'11"_s);
        window_->box(u"txtBh"_s).setText(u"'11z"_s);
        window_->click(u"cmdQd"_s);
        QVERIFY(window_->boxes.isEmpty());
        QCOMPARE(valueOf(u"SELECT * FROM tcan WHERE 编号 = ''''"_s, u"图册"_s), u"tc01"_s);
        QCOMPARE(valueOf(u"SELECT * FROM tcan WHERE 编号 = '1'"_s, u"图册"_s), u"tc00tc02tc01"_s);
        QCOMPARE(valueOf(u"SELECT * FROM tcan WHERE 编号 = 'v'"_s, u"图册"_s), u"tc00tc02"_s);
        QCOMPARE(window_->codes().findItems(u"1 {风景}"_s, Qt::MatchExactly).size(), 1);
    }

    void duplicateNumber() {
        window_->get<QCheckBox>(u"chkLi"_s).click();
        window_->click(u"cmdQd"_s);
        const auto leaveNumber = [&](const QString& typed) {
            window_->box(u"txtXh"_s).setFocus();
            window_->box(u"txtXh"_s).setText(typed);
            window_->box(u"txtB2"_s).setFocus();
            QCoreApplication::processEvents();
            return window_->said();
        };
        QCOMPARE(leaveNumber(u"99"_s), QStringList{});
        QCOMPARE(leaveNumber(u"一"_s), QStringList{});
        QCOMPARE(leaveNumber(u"7"_s), QStringList{duplicate});
        QVERIFY(window_->box(u"txtXh"_s).hasFocus());
        window_->click(u"cmdQd"_s);
        QCOMPARE(window_->said(), QStringList{duplicate});
        QCOMPARE(window_->text(u"txtXh"_s), u"7"_s);
        QCOMPARE(leaveNumber(u"1"_s), QStringList{});  // the record's own
        window_->click(u"cmdSc"_s);
        QCoreApplication::processEvents();
        QCOMPARE(window_->said(), QStringList{});
        compareState(*window_, rest);
        // With one record at a time the number is looked at when it is stored.
        window_->get<QCheckBox>(u"chkLi"_s).click();
        window_->click(u"cmdQd"_s);
        QCOMPARE(leaveNumber(u"7"_s), QStringList{});
    }

    // What was typed stays with its record, also when another one bears its number, or it has none.
    void newPicture() {
        for (const FieldValue& number : {FieldValue(4), FieldValue(3), FieldValue()}) {
            init();
            putValue(u"SELECT * FROM tc01 WHERE 备注 = '图片4'"_s, u"序号"_s, number);
            if (number.isNull()) putValue(u"SELECT * FROM tc01 WHERE 备注 = '图片3'"_s, u"序号"_s, number);
            window_->choose(u"cboBm"_s, u"tc01"_s);
            int row = 0;
            while (window_->grid().cellText(row, 5) != u"图片4"_s) ++row;
            window_->clickRow(row);
            window_->takeNewPicture();
            QVERIFY(!window_->isEnabled(u"cmdAq"_s));  // nothing is being edited
            QCOMPARE(EditingWindow::record(u"图片4"_s), number.textOr() + u"|2|100 * 50|2003-09-29 12:00:00"_s);
            window_->click(u"cmdQd"_s);
            window_->box(u"txtB2"_s).setText(u"打了一半"_s);
            window_->takeNewPicture();
            QCOMPARE(window_->text(u"txtXh"_s), number.textOr());
            QCOMPARE(window_->label(u"lblGg"_s), u"200 * 100"_s);
            QCOMPARE(window_->text(u"txtB2"_s), u"打了一半"_s);
            compareState(*window_, single);
            window_->click(u"cmdQd"_s);
            QCOMPARE(EditingWindow::record(u"打了一半"_s), number.textOr() + u"|2|200 * 100|2003-09-29 12:00:00"_s);
            QVERIFY(EditingWindow::record(u"图片4"_s).startsWith(u"|"_s));
            QCOMPARE(valueOf(u"SELECT * FROM tc01 WHERE 备注 = '图片3'"_s, u"规格"_s), u"30 * 40"_s);
            QVERIFY(!window_->isEnabled(u"cmdAq"_s));
        }
    }
};

const Registered<TestEditingRecord> registered;

}  // namespace

#include "editing_record_test.moc"
