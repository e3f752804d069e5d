#include "button_page.h"
#include "settings/setup/button_rules.h"

using namespace Qt::Literals::StringLiterals;

class TestButtonSetup : public QObject {
    Q_OBJECT

    std::optional<ButtonPage> page_;

  private Q_SLOTS:
    void init() { page_.emplace(); }

    void presetCodes() {
        for (const QString& code : {u"1"_s, u"6"_s}) QVERIFY(isPreset(code));
        for (const QString& code : {u""_s, u"0"_s, u"7"_s, u"v"_s, u"１"_s}) QVERIFY(!isPreset(code));
    }

    // Choosing a row --------------------------------------------------------------------------------------------------

    void choosing() {
        for (const auto& [code, state] : {std::pair{u"2"_s, noButton}, {u"v"_s, ownButton}, {u"a"_s, ownButton}}) {
            init();
            QCOMPARE(page_->state(), noButton);
            QVERIFY(!page_->isEnabled(u"cmdCk(4)"_s));
            page_->choose(code);
            QCOMPARE(page_->state(), state);
            QCOMPARE(page_->texts(), storedTexts(code));
            QVERIFY(page_->isEnabled(u"cmdCk(4)"_s));

            // In the other order the same button stays in hand.
            for (const auto& [option, codes] : {std::pair{u"optAp(0)"_s, u"v12a"_s}, {u"optAp(1)"_s, u"12av"_s}}) {
                page_->clickOption(option);
                QCOMPARE(page_->codes(), codes);
                QCOMPARE(page_->chosenRow(), code);
                QCOMPARE(page_->state(), state);
            }
        }
    }

    // Adding ----------------------------------------------------------------------------------------------------------

    void addingProposesTheNextNumber() {
        for (const auto& [deleted, number] : {std::pair{u"编号 = '1'"_s, u"5"_s}, {u"序号 > 0"_s, u"1"_s}}) {
            init();
            mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE "_s + deleted);
            page_->click(u"cmdQu"_s);
            QCOMPARE(page_->texts(), (QStringList{number, u""_s, u""_s, u""_s}));
            QCOMPARE(page_->state(), adding);
            QVERIFY(page_->box(u"txtB1"_s).hasFocus() && page_->isPending() && page_->isEnabled(u"cmdCk(4)"_s));
            QCOMPARE(page_->label(u"lblTs"_s), u"操作提示：按钮图片可在“图片处理”中制作"_s);
            page_->click(u"cmdSn"_s);
            QVERIFY(page_->caption(u"cmdQu"_s) == u"添 加"_s && !page_->isPending());
        }
    }

    void addingWithoutAPicture() {
        const QStringList texts{u"5"_s, u"花"_s, u"它's \"花\""_s, u"tc01tc02"_s};
        page_->click(u"cmdQu"_s);
        page_->fill(texts);
        page_->answer = false;
        page_->click(u"cmdQu"_s);
        QCOMPARE(page_->said(), QStringList{pictureQuestion});
        QCOMPARE(buttonCount(), 4);
        QCOMPARE(page_->state(), adding);

        page_->answer = true;
        page_->click(u"cmdQu"_s);
        QCOMPARE(page_->said(), QStringList{pictureQuestion});
        QCOMPARE(storedTexts(u"花"_s), texts);
        QCOMPARE(pictureLength(u"花"_s), 0);
        QCOMPARE(page_->state(), justStored);
        QVERIFY(!page_->isPending());
        QCOMPARE(page_->chosenRow(), u"花"_s);
        QCOMPARE(page_->texts(), texts);
    }

    void emptyBoxesAreNamedInOrder() {
        page_->click(u"cmdQu"_s);
        const QStringList words{u"序号"_s, u"编号"_s, u"名称"_s, u"相关图册"_s};
        const QStringList texts{u"9"_s, u"z"_s, u"名"_s, u"tc01"_s};
        page_->fill({u""_s, u""_s, u" "_s, u""_s});
        for (int i = 0; i < 4; ++i) {
            page_->click(u"cmdQu"_s);
            QCOMPARE(page_->said(), QStringList{u"数据没填全，请重新进行！\n\n没填写的项目：("_s + words.at(i) + u')'});
            QVERIFY(page_->box(boxNames.at(i)).hasFocus());
            page_->box(boxNames.at(i)).setText(texts.at(i));
        }
        QCOMPARE(buttonCount(), 4);
        page_->click(u"cmdQu"_s);
        QCOMPARE(storedTexts(u"z"_s), texts);
    }

    void addingNeedsAnAlbum() {
        mekTp::catalogue.Execute(u"DELETE FROM [tcbm]"_s);
        page_->click(u"cmdQu"_s);
        QCOMPARE(page_->boxes.value(0).text, u"请先建立图册。"_s);
        QVERIFY(page_->boxes.value(0).icon == BoxIcon::question && !page_->boxes.value(0).hasCancel());
        QCOMPARE(page_->state(), noButton);
    }

    void codesAreUnique() {
        page_->click(u"cmdQu"_s);
        auto& txtB1 = page_->box(u"txtB1"_s);
        QTest::keyClick(&txtB1, Qt::Key_V);
        QCOMPARE(page_->said(), QStringList{u"编号不能重复，重来！（已有：全部＝v）"_s});
        QCOMPARE(txtB1.text(), QString());
        QTest::keyClick(&txtB1, 'V');
        QCOMPARE(page_->said(),
                 QStringList{u"编号不能重复，重来！（已有：全部＝v）\n\n填写的编号是“V”，大小写不分。"_s});
        QVERIFY(txtB1.hasFocus());
        QTest::keyClick(&txtB1, Qt::Key_B);
        QCOMPARE(txtB1.text(), u"b"_s);
        page_->click(u"cmdSn"_s);

        page_->choose(u"a"_s);
        page_->click(u"cmdBj"_s);
        txtB1.setText(u"2"_s);
        QCOMPARE(page_->said(), QStringList{u"编号不能重复，重来！（已有：人物＝2）"_s});
        QCOMPARE(txtB1.text(), u"a"_s);
        for (const QString& code : {u""_s, u"a"_s, u"A"_s, u"'"_s, u"x"_s}) txtB1.setText(code);
        QVERIFY(page_->boxes.isEmpty());
    }

    void numbersAreUnique() {
        for (const auto& [number, message] : {std::pair{u"2"_s, u"序号不能重复，重来！（已有：风景＝2）"_s},
                                              {u"a"_s, u"序号应为整数，重来！"_s},
                                              {u"99999999999"_s, u"序号应为整数，重来！"_s}}) {
            init();
            page_->beginChange(u"a"_s);
            page_->fill({number, u"b"_s, u"新名"_s});
            page_->click(u"cmdBj"_s);
            QCOMPARE(page_->said(), QStringList{message});
            QCOMPARE(columnOf(u"tcan"_s, u"名称"_s), (QStringList{u"全部"_s, u"风景"_s, u"人物"_s, u"无图"_s}));
            QCOMPARE(page_->state(), changing);

            // A free number is one that the button can move to.
            page_->box(u"txtX1"_s).setText(u"４０"_s);
            page_->click(u"cmdBj"_s);
            QCOMPARE(storedTexts(u"b"_s).first(), u"40"_s);
            QCOMPARE(buttonCount(), 4);
            QCOMPARE(page_->chosenRow(), u"b"_s);
        }
    }

    // Buttons of one's own change places; a number of the system's stays, and so does one that two buttons bear.
    void numbersAreExchanged() {
        page_->beginChange(u"a"_s);
        page_->fill({u"1"_s, u"b"_s});
        page_->answer = false;
        page_->click(u"cmdBj"_s);
        QCOMPARE(page_->said(),
                 QStringList{u"序号不能重复，重来！（已有：全部＝1）\n\n要与它交换序号，按《确定》，它的序号就"
                             "成为 4；否则按《取消》，另填一个序号。"_s});
        QCOMPARE(page_->state() + page_->text(u"txtX1"_s), changing + u"1"_s);
        QVERIFY(page_->box(u"txtX1"_s).hasFocus());
        QCOMPARE(columnOf(u"tcan"_s, u"序号"_s).join(u""_s), u"1234"_s);

        page_->answer = true;
        page_->click(u"cmdBj"_s);
        QCOMPARE(storedTexts(u"b"_s).first() + storedTexts(u"v"_s).first(), u"14"_s);
        QCOMPARE(storedTexts(u"v"_s).mid(1), (QStringList{u"v"_s, u"全部"_s, u"tc00tc01tc02"_s}));
        QCOMPARE(page_->chosenRow() + page_->text(u"txtX1"_s), u"b1"_s);

        // A failure takes both back.
        page_->said();
        page_->beginChange(u"b"_s);
        page_->fill({u"4"_s, u"b"_s, QString(21, u'长')});
        page_->click(u"cmdBj"_s);
        QCOMPARE(storedTexts(u"b"_s).first() + storedTexts(u"v"_s).first(), u"14"_s);
        page_->click(u"cmdSn"_s);

        page_->said();
        putValue(rowOf(u"v"_s), u"序号"_s, 1);
        for (const QString& number : {u"2"_s, u"1"_s}) {
            page_->click(u"cmdQu"_s);
            page_->fill({number, u"q"_s, u"名"_s, u"tc01"_s});
            page_->click(u"cmdQu"_s);
            QVERIFY2(page_->said().first().endsWith(u'）'), qPrintable(number));  // refused
            page_->click(u"cmdSn"_s);
        }
    }

    void failedStoringCanBeRepeated() {
        page_->click(u"cmdQu"_s);
        page_->fill({u"5"_s, u"k"_s, u"名"_s});
        page_->load(u"button.jpg"_s);
        page_->click(u"cmdAq"_s);  // agreed to, but not stored without the albums
        QFile::remove(page_->picked);
        page_->box(u"txtC1"_s).setText(u"tc01"_s);
        for (int i = 0; i < 2; ++i) {
            page_->click(u"cmdQu"_s);
            QCOMPARE(page_->boxes.last().title, u"错误提示"_s);
            QCOMPARE(page_->state(), adding);
            QCOMPARE(buttonCount(), 4);
        }
        page_->load(u"button.jpg"_s);
        page_->click(u"cmdAq"_s);
        QCOMPARE(storedTexts(u"k"_s).at(2), u"名"_s);
        QCOMPARE(buttonCount(), 5);
    }

    void longTexts() {
        page_->beginChange(u"a"_s);
        for (const auto& [name, length, said] : {std::tuple{u"txtB1"_s, 1, u"编号太长：有 30 个字，最多 1 个。"_s},
                                                 {u"txtM1"_s, 20, u"名称太长：有 30 个字，最多 20 个。"_s}}) {
            auto& box = page_->box(name);
            box.clear();
            box.setFocus();
            QTest::keyClicks(&box, QString(length + 1, u'x'));
            QCOMPARE(box.text(), QString(length, u'x'));
            QApplication::clipboard()->setText(QString(30, u'y'));
            box.selectAll();
            QTest::keySequence(&box, QKeySequence::Paste);
            page_->click(u"cmdBj"_s);
            QCOMPARE(page_->said(), QStringList{said});
            QVERIFY(box.hasFocus() && box.text().size() == 30);
            QCOMPARE(page_->state(), changing);
            box.setText(u"z"_s);
        }
    }

    // Changing --------------------------------------------------------------------------------------------------------

    void changingTwice() {
        const QStringList texts{u"1"_s, u"v"_s, u"所有"_s, u"tc00tc01"_s};
        const qint64 length = pictureLength(u"v"_s);
        page_->beginChange(u"v"_s);
        QCOMPARE(page_->state(), changing);
        QVERIFY(page_->isPending());
        page_->fill(texts);
        page_->click(u"cmdBj"_s);
        QCOMPARE(page_->said(), QStringList());
        QCOMPARE(storedTexts(u"v"_s), texts);
        QCOMPARE(pictureLength(u"v"_s), length);
        QCOMPARE(page_->state(), justStored);
        QVERIFY(!page_->isPending());

        // What has just been stored can be changed again.
        page_->click(u"cmdBj"_s);
        page_->box(u"txtM1"_s).setText(u"全"_s);
        page_->click(u"cmdBj"_s);
        QCOMPARE(storedTexts(u"v"_s).at(2), u"全"_s);
        QCOMPARE(buttonCount(), 4);
    }

    void codesWithoutAWayBackAreAskedAbout() {
        mekTp::catalogue.Execute(u"DELETE FROM [tcan] WHERE 编号 = '2'"_s);
        page_->open();
        page_->answer = false;
        for (const auto& [code, newCode, question] : {std::tuple{u"v"_s, u"w"_s, u"编号“v”的按钮列出全部图片。"_s},
                                                      {u"a"_s, u"2"_s, u"编号 1 至 6 属于系统"_s}}) {
            page_->beginChange(code);
            page_->box(u"txtB1"_s).setText(newCode);
            page_->click(u"cmdBj"_s);
            QCOMPARE(page_->boxes.size(), 1);
            QVERIFY(page_->boxes.first().text.startsWith(question) && page_->boxes.first().onEnter == 1);
            page_->said();
            QCOMPARE(page_->state() + page_->text(u"txtB1"_s), changing + newCode);
            QVERIFY(page_->box(u"txtB1"_s).hasFocus());
            QCOMPARE(columnOf(u"tcan"_s, u"编号"_s).join(u""_s), u"v1a"_s);
            page_->click(u"cmdSn"_s);
        }
    }

    // Of two buttons with one number the one that was clicked is changed or deleted.
    void twoOfOneNumber() {
        const QStringList other = storedTexts(u"v"_s);
        putValue(rowOf(u"a"_s), u"序号"_s, other.first().toInt());
        for (const QString& name : {u"改"_s, u"再改"_s}) {
            page_->beginChange(u"a"_s);
            QCOMPARE(page_->texts(), storedTexts(u"a"_s));
            page_->box(u"txtM1"_s).setText(name);
            page_->click(u"cmdBj"_s);
            QCOMPARE(storedTexts(u"a"_s).at(2), name);
            QCOMPARE(page_->chosenRow(), u"a"_s);
        }
        page_->choose(u"a"_s);
        page_->click(u"cmdSn"_s);
        QCOMPARE(buttonCount(), 3);
        QCOMPARE(storedTexts(u"v"_s), other);
    }

    void cancelling() {
        const std::tuple<QString, QString, QString, QString> cases[] = {
            {u"a"_s, u"cmdBj"_s, u"a"_s, ownButton},
            {u"a"_s, u"cmdQu"_s, u"a"_s, ownButton},
            {u""_s, u"cmdQu"_s, u"1"_s, justStored},  // none was chosen before
        };
        for (const auto& [chosen, begin, shown, state] : cases) {
            init();
            if (!chosen.isEmpty()) page_->choose(chosen);
            page_->click(begin);
            page_->fill({u"77"_s, u"q"_s, u"改"_s, u"tc02"_s});
            page_->clickOption(u"optAp(0)"_s);  // another order in between, and back
            page_->clickOption(u"optAp(1)"_s);
            page_->click(u"cmdSn"_s);
            QCOMPARE(page_->texts(), storedTexts(shown));
            QCOMPARE(page_->state(), state);
            QVERIFY(!page_->isPending());
            QCOMPARE(columnOf(u"tcan"_s, u"编号"_s).join(u""_s), u"v12a"_s);
            QVERIFY(page_->boxes.isEmpty());
            if (shown != u"1"_s) continue;
            page_->click(u"cmdBj"_s);
            QCOMPARE(page_->boxes.value(0).text, u"系统预设的按钮，不能修改！"_s);
            QCOMPARE(page_->boxes.value(0).icon, BoxIcon::question);
            QCOMPARE(page_->state(), state);
        }
    }

    void anotherRowAsksAboutWhatWasTyped() {
        const std::tuple<int, QString, QString, QString> cases[] = {
            {0, u"v"_s, ownButton, u"改"_s},  // saved
            {1, u"v"_s, ownButton, u"无图"_s},
            {2, u"a"_s, changing, u"无图"_s},  // goes on
        };
        for (const auto& [answer, row, state, name] : cases) {
            init();
            page_->beginChange(u"a"_s);
            page_->box(u"txtM1"_s).setText(u"改"_s);
            page_->answerWith(answer);
            page_->choose(u"a"_s);
            QVERIFY(page_->boxes.isEmpty());  // this is the one
            page_->choose(u"v"_s);
            QCOMPARE(page_->said().value(0), u"按钮“改”的改动还没有保存。"_s);
            QCOMPARE(page_->state() + page_->chosenRow() + page_->text(u"txtB1"_s), state + row + row);
            QCOMPARE(storedTexts(u"a"_s).at(2), name);
            if (row == u"a") QCOMPARE(page_->text(u"txtM1"_s), u"改"_s);
        }
    }

    void saveThatIsRefusedStaysWithItsRow() {
        page_->beginChange(u"a"_s);
        page_->fill({u"4"_s, u"a"_s, u""_s});
        page_->answerWith(0);
        page_->choose(u"v"_s);
        QCOMPARE(page_->boxes.size(), 2);
        QCOMPARE(page_->state() + page_->chosenRow() + page_->text(u"txtB1"_s), changing + u"aa"_s);
    }

    void anotherRowGivesUpWhatWasNotChanged() {
        page_->beginChange(u"a"_s);
        page_->choose(u"v"_s);
        QCOMPARE(page_->state(), ownButton);
        QCOMPARE(page_->texts(), storedTexts(u"v"_s));
        QVERIFY(!page_->isPending() && page_->boxes.isEmpty());

        // But not what another group of the page has begun.
        page_->click(u"cmdBt"_s);
        page_->choose(u"a"_s);
        QVERIFY(page_->isPending());
    }

    void leavingThePageGivesUpWhatWasBegun() {
        page_->click(u"cmdQu"_s);
        page_->fill({u"5"_s, u"q"_s});
        page_->tabs().setCurrentIndex(1);
        page_->tabs().setCurrentIndex(0);
        QCOMPARE(page_->state(), noButton);
        QCOMPARE(page_->texts().join(u""_s), QString());
        QCOMPARE(buttonCount(), 4);
    }

    // Deleting --------------------------------------------------------------------------------------------------------

    void deleting() {
        page_->choose(u"a"_s);
        page_->answer = false;
        page_->click(u"cmdSn"_s);
        const QString question =
            u"删除本像册按钮吗？(编号＝%1)\n\n如果是按《确定》；否则按《取消》。\n\n"
            "要删除的按钮：编号“%1”，名称“%2”，用在 %3 本图册中。图片不会删除。"_s;
        QCOMPARE(page_->boxes.value(0).onEnter, 1);
        QCOMPARE(page_->said(), QStringList{question.arg(u"a"_s, u"无图"_s, u"3"_s)});
        QCOMPARE(buttonCount(), 4);

        // Albums that are gone, or entered twice, do not count; the button for all pictures says what it is for.
        putValue(rowOf(u"v"_s), u"图册"_s, u"tc01tc01tc77"_s);
        putValue(rowOf(u"v"_s), u"名称"_s, u"%3"_s);
        page_->choose(u"v"_s);
        page_->click(u"cmdSn"_s);
        const QString asked = page_->said().value(0);
        QVERIFY(asked.startsWith(question.arg(u"v"_s, u"%3"_s, u"1"_s)) && asked.contains(u"没有它，主窗口不能"_s));
        page_->choose(u"a"_s);

        page_->answer = true;
        page_->click(u"cmdSn"_s);
        QCOMPARE(columnOf(u"tcan"_s, u"编号"_s).join(u""_s), u"v12"_s);
        QCOMPARE(linesOf(page_->get<ListBox>(u"lstBh"_s)), (QStringList{u"v %3"_s, u"1 风景"_s, u"2 人物"_s}));
        QCOMPARE(page_->grid().model()->rowCount(), 3);
        QCOMPARE(page_->texts().join(u""_s), QString());
        QCOMPARE(page_->state(), noButton);
    }
};

const Registered<TestButtonSetup> registered;

#include "button_setup_test.moc"
