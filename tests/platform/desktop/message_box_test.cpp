#include "platform/desktop/message_box.h"

#include "../../support/run_all.h"
#include "platform/base/error.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QtTest>
#include <new>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Does something with the message box that is open, as soon as there is one.
void onBox(const std::function<void(QMessageBox&)>& act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        timer->deleteLater();
        act(*box);
    });
    timer->start(5);
}

class TestMessageBox : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { answerBoxesWith({}); }

    void boxShowsItsTextLiterally() {
        QStringList buttons;
        Qt::TextFormat format{};
        QMessageBox::Icon icon{};
        QString text;
        QString title;
        onBox([&](QMessageBox& box) {
            for (const auto* button : box.buttons()) buttons.append(button->text());
            format = box.textFormat();
            icon = box.icon();
            text = box.text();
            title = box.windowTitle();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        QVERIFY(ask(nullptr, u"删除[<b>a</b>]？"_s));
        QCOMPARE(text, u"删除[<b>a</b>]？"_s);
        QCOMPARE(title, u"操作提示"_s);
        QCOMPARE(format, Qt::PlainText);
        QCOMPARE(icon, QMessageBox::Question);
        QCOMPARE(buttons, (QStringList{u"确定"_s, u"取消"_s}));
    }

    void waysToAnswer_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("Enter") << int(Qt::Key_Enter) << QString() << true;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << QString() << false;
        QTest::newRow("OK") << 0 << u"确定"_s << true;
        QTest::newRow("Cancel") << 0 << u"取消"_s << false;
        QTest::newRow("close") << 0 << QString() << false;
    }

    void waysToAnswer() {
        QFETCH(const int, key);
        QFETCH(const QString, button);
        QFETCH(const bool, accepted);
        onBox([&](QMessageBox& box) {
            if (key != 0) {
                QTest::keyClick(&box, Qt::Key(key));
            } else if (button.isEmpty()) {
                box.close();
            } else {
                for (auto* candidate : box.buttons())
                    if (candidate->text() == button) QTest::mouseClick(candidate, Qt::LeftButton);
            }
        });
        QCOMPARE(ask(nullptr, u"继续？"_s), accepted);
    }

    void statementClosesOnEitherKey() {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            qsizetype buttons = 0;
            onBox([&](QMessageBox& box) {
                buttons = box.buttons().size();
                QTest::keyClick(&box, key);
            });
            say(nullptr, u"已经保存。"_s);
            QCOMPARE(buttons, 1);
        }
    }

    void focusReturnsToTheFormWhenTheBoxCloses() {
        QWidget form;
        auto* first = new QPushButton(&form);
        auto* second = new QPushButton(&form);
        second->move(0, 40);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        second->setFocus();
        onBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        say(&form, u"好。"_s);
        form.activateWindow();
        QTRY_VERIFY(second->hasFocus());
        QVERIFY(!first->hasFocus());
    }

    void boxWhoseParentGoesIsCancelled() {
        auto* parent = new QWidget;
        onBox([parent](QMessageBox&) { delete parent; });
        QVERIFY(!ask(parent, u"继续？"_s));
    }

    void failureOfAHandlerIsTold_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::newRow("own") << 0 << u"没有表[tc07]。"_s;
        QTest::newRow("standard") << 1 << u"out of range"_s;
        QTest::newRow("memory") << 2 << u"内存不足，操作没有完成。"_s;
    }

    void failureOfAHandlerIsTold() {
        QFETCH(const int, kind);
        QFETCH(const QString, text);
        std::optional<BoxText> shown;
        answerBoxesWith([&](const BoxText& box) {
            shown = box;
            return true;
        });
        QPushButton button;
        QObject::connect(&button, &QPushButton::clicked, &button, guarded(&button, [kind] {
            if (kind == 0) throw Error(u"没有表[tc07]。"_s);
            if (kind == 1) throw std::out_of_range("out of range");
            throw std::bad_alloc();
        }));
        button.click();
        QVERIFY(shown.has_value());
        QCOMPARE(shown->title, u"错误提示"_s);
        QCOMPARE(shown->text, text);
        QCOMPARE(shown->icon, BoxIcon::exclamation);
        QVERIFY(!shown->hasCancel);
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

}  // namespace

#include "message_box_test.moc"
