#include "desktop.h"
#include "platform/desktop/failure_list.h"

#include <new>
#include <optional>

using namespace Qt::Literals::StringLiterals;

class TestMessageBox : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { answerBoxesWith({}); }

    void boxShowsItsTextLiterally() {
        onOpen<QMessageBox>([&](QMessageBox& box) {
            QStringList buttons;
            for (const auto* button : box.buttons()) buttons.append(button->text());
            QCOMPARE(box.text(), u"删除[<b>a</b>]？"_s);
            QCOMPARE(box.windowTitle(), u"操作提示"_s);
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.icon(), QMessageBox::Question);
            QCOMPARE(buttons, (QStringList{u"确定"_s, u"取消"_s}));
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QVERIFY(ask(nullptr, u"删除[<b>a</b>]？"_s));
    }

    void waysToAnswer() {
        const auto button = [](QMessageBox& box, const QString& text) {
            for (auto* candidate : box.buttons())
                if (candidate->text() == text) QTest::mouseClick(candidate, Qt::LeftButton);
        };
        const std::pair<std::function<void(QMessageBox&)>, bool> ways[] = {
            {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Enter); }, true},
            {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, false},
            {[&](QMessageBox& box) { button(box, u"确定"_s); }, true},
            {[&](QMessageBox& box) { button(box, u"取消"_s); }, false},
            {[](QMessageBox& box) { box.close(); }, false},
        };
        for (const auto& [answer, accepted] : ways) {
            onOpen(answer);
            QCOMPARE(ask(nullptr, u"继续？"_s), accepted);
        }
    }

    void enterMeansCancelWhereSomethingIsDeleted() {
        for (const auto& [key, accepted] : {std::pair{Qt::Key_Return, false}, {Qt::Key_Escape, false}}) {
            onOpen<QMessageBox>([key = key](QMessageBox& box) { QTest::keyClick(&box, key); });
            QCOMPARE(askBeforeDeleting(nullptr, u"删除？"_s), accepted);
        }
        onOpen<QMessageBox>([](QMessageBox& box) { QTest::mouseClick(box.buttons().first(), Qt::LeftButton); });
        QVERIFY(askBeforeDeleting(nullptr, u"删除？"_s));
    }

    void unsavedChangesStayUnlessSomebodySaysOtherwise() {
        const auto press = [](const QString& caption) {
            return [caption](QMessageBox& box) {
                for (auto* button : box.buttons())
                    if (button->text() == caption) QTest::mouseClick(button, Qt::LeftButton);
            };
        };
        const std::pair<std::function<void(QMessageBox&)>, Unsaved> ways[] = {
            {press(u"保存"_s), Unsaved::save},
            {press(u"不保存"_s), Unsaved::discard},
            {press(u"继续编辑"_s), Unsaved::keepEditing},
            {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, Unsaved::keepEditing},
            {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, Unsaved::keepEditing},
            {[](QMessageBox& box) { box.close(); }, Unsaved::keepEditing},
        };
        for (const auto& [answer, meant] : ways) {
            onOpen(answer);
            QCOMPARE(askAboutUnsaved(nullptr, u"还没有保存。"_s), meant);
        }
    }

    void statementClosesOnEitherKey() {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            onOpen<QMessageBox>([&](QMessageBox& box) {
                QCOMPARE(box.buttons().size(), 1);
                QTest::keyClick(&box, key);
            });
            say(nullptr, u"已经保存。"_s);
        }
    }

    void nobodyWaitsForWhatIsTold() {
        tell(u"已经损坏。"_s);
        const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeWindow()); };
        QTRY_VERIFY(box() != nullptr);
        QVERIFY(!box()->isModal());
        QCOMPARE(box()->text(), u"已经损坏。"_s);
        const QPointer<QMessageBox> statement = box();
        QTest::keyClick(statement, Qt::Key_Return);
        QTRY_VERIFY(!statement);
    }

    void whatIsToldWaitsForOpenBoxes() {
        const auto statement = [] {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (auto* box = qobject_cast<QMessageBox*>(window); box != nullptr && box->text() == u"已经损坏。"_s)
                    return box;
            return static_cast<QMessageBox*>(nullptr);
        };
        onOpen<QMessageBox>([&](QMessageBox& box) {
            tell(u"已经损坏。"_s);
            QVERIFY(statement() == nullptr);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        say(nullptr, u"好。"_s);
        QTRY_VERIFY(statement() != nullptr && statement()->isVisible());
        const QPointer<QMessageBox> box = statement();
        QTest::keyClick(box, Qt::Key_Return);
        QTRY_VERIFY(!box);
    }

    void focusReturnsToTheFormWhenTheBoxCloses() {
        QWidget form;
        auto* first = new QPushButton(&form);
        auto* second = new QPushButton(&form);
        second->move(0, 40);
        QVERIFY(isShown(form));
        second->setFocus();
        onOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        say(&form, u"好。"_s);
        form.activateWindow();
        QTRY_VERIFY(second->hasFocus());
        QVERIFY(!first->hasFocus());
    }

    void boxWhoseParentGoesIsCancelled() {
        auto* parent = new QWidget;
        onOpen<QMessageBox>([parent](QMessageBox&) { delete parent; });
        QVERIFY(!ask(parent, u"继续？"_s));
    }

    void failureOfAHandlerIsTold() {
        const std::pair<std::function<void()>, QString> cases[] = {
            {[] { throw Error(u"没有表[tc07]。"_s); }, u"没有表[tc07]。"_s},
            {[] { throw std::out_of_range("out of range"); }, u"out of range"_s},
            {[] { throw std::bad_alloc(); }, u"内存不足，操作没有完成。"_s},
        };
        for (const auto& [handler, text] : cases) {
            std::optional<BoxText> shown;
            answerBoxesWith([&](const BoxText& box) {
                shown = box;
                return true;
            });
            QPushButton button;
            QObject::connect(&button, &QPushButton::clicked, &button, guarded(&button, handler));
            button.click();
            QVERIFY(shown && shown->icon == BoxIcon::exclamation && !shown->hasCancel());
            QCOMPARE(shown->title, u"错误提示"_s);
            QCOMPARE(shown->text, text);
        }
    }

    void aNotedFailureHasNoContents_data() {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("noted");
        QTest::newRow("file") << u"文件“/家/a b.jpg”和“c.mdb”不能读取。"_s << u"文件“/家/a b.jpg”和“c.mdb”不能读取。"_s;
        QTest::newRow("column") << u"表“tc01”中没有列“标题”。"_s << u"表“tc01”中没有列“标题”。"_s;
        QTest::newRow("contents") << u"“小孙女 1/2”重复。\n\n“x”"_s << u"“…”重复。"_s;
        QTest::newRow("value like a name of a file")
            << u"列“日期”不能存入“见“a” www.x.com”：不是日期。"_s << u"列“日期”不能存入“…”：不是日期。"_s;
        QTest::newRow("value of several paragraphs")
            << u"列“备注”不能存入“他说“好”：明天\n\n去医院”：太长。"_s << u"列“备注”不能存入“…”：太长。"_s;
        QTest::newRow("statement") << u"不能执行这样的语句：DELETE 'a\nb”c'"_s << u"不能执行这样的语句"_s;
        QTest::newRow("broken statement") << u"语句中缺少“'”：SELECT '小孙女"_s << u"语句"_s;
        QTest::newRow("place in a statement") << u"语句在 \"小孙女\" 处有错。"_s << u"语句。"_s;
    }
    void aNotedFailureHasNoContents() {
        QFETCH(QString, message);
        QFETCH(QString, noted);
        for (int times = 0; times < 2; ++times) noteFailure(message);
        const auto failures = lastFailures();
        QCOMPARE(failures[0].what, noted);
        QVERIFY(failures.size() == 1 || failures[1].what != noted);
    }

    void handlerGetsTheArgumentsOfItsSignal() {
        QPushButton button;
        button.setCheckable(true);
        QList<bool> states;
        QObject::connect(&button, &QPushButton::toggled, &button,
                         guarded(&button, [&](bool on) { states.append(on); }));
        button.toggle();
        button.toggle();
        QCOMPARE(states, (QList<bool>{true, false}));
    }

    void handlerMayDeleteTheWindowAndFail() {
        QStringList shown;
        answerBoxesWith([&](const BoxText& box) {
            shown.append(box.text);
            return true;
        });
        auto* window = new QWidget;
        runHandler(window, [window] {
            delete window;
            throw Error(u"晚了。"_s);
        });
        QCOMPARE(shown, QStringList{u"晚了。"_s});
    }
};

const Registered<TestMessageBox> registered;

#include "message_box_test.moc"
