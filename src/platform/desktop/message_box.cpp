#include "platform/desktop/message_box.h"

#include "platform/base/error.h"
#include "platform/desktop/failure_list.h"
#include "platform/desktop/offer_box.h"

#include <QApplication>
#include <QCheckBox>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <new>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int modalPatienceMs = 200;
const QString failureTitle = u"错误提示"_s;

std::function<int(const BoxText&)>& answer() {
    static std::function<int(const BoxText&)> function;
    return function;
}

BoxText statement(const QString& title, const QString& text, BoxIcon icon) {
    return {title, text, icon, {u"确定"_s}, 0, 0};
}

BoxText decision(const QString& title, const QString& text, BoxIcon icon, int onEnter) {
    return {title, text, icon, {u"确定"_s, u"取消"_s}, onEnter, 1};
}

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::exclamation:
            return QMessageBox::Warning;
        case BoxIcon::information:
            return QMessageBox::Information;
        case BoxIcon::question:
            break;
    }
    return QMessageBox::Question;
}

QMessageBox* makeBox(QWidget* parent, const BoxText& text) {
    auto* box = new QMessageBox(parent);
    box->setObjectName(u"messageBox"_s);
    box->setWindowTitle(text.title);
    box->setTextFormat(Qt::PlainText);
    box->setText(text.text);
    box->setIcon(iconOf(text.icon));
    QList<QPushButton*> buttons;
    // Buttons of one role keep their order; the answer that Escape gives comes last.
    for (int i = 0; i < text.answers.size(); ++i)
        buttons.append(box->addButton(
            text.answers[i], i != 0 && i == text.onEscape ? QMessageBox::RejectRole : QMessageBox::AcceptRole));
    box->setDefaultButton(buttons[text.onEnter]);
    box->setEscapeButton(buttons[text.onEscape]);
    return box;
}

void noteIfFailure(const BoxText& text) {
    if (text.title == failureTitle) noteFailure(text.text);
}

/// The place of the answer that was given.
int show(QWidget* parent, const BoxText& text, std::unique_ptr<QCheckBox> option = {}) {
    noteIfFailure(text);
    if (const auto answers = answer()) return answers(text);

    // The nested event loop may take the parent, and the box with it.
    const QPointer<QMessageBox> box = makeBox(parent, text);
    if (option) box->setCheckBox(option.release());
    box->exec();
    if (!box) return text.onEscape;
    const QAbstractButton* clicked = box->clickedButton();
    const auto given = clicked == nullptr ? text.onEscape : int(text.answers.indexOf(clicked->text()));
    delete box;
    return given;
}

}  // namespace

void say(QWidget* parent, const QString& text, BoxIcon icon, const QString& title) {
    show(parent, statement(title, text, icon));
}

bool ask(QWidget* parent, const QString& text, BoxIcon icon, const QString& title) {
    return show(parent, decision(title, text, icon, 0)) == 0;
}

bool ask(QWidget* parent, const QString& text, std::unique_ptr<QCheckBox> option, const QString& title) {
    return show(parent, decision(title, text, BoxIcon::question, 0), std::move(option)) == 0;
}

bool askBeforeDeleting(QWidget* parent, const QString& text, BoxIcon icon, const QString& title) {
    return show(parent, decision(title, text, icon, 1)) == 0;
}

int choose(QWidget* parent, const QString& text, const QStringList& answers, int onEnter, int onEscape, BoxIcon icon,
           const QString& title) {
    return show(parent, {title, text, icon, answers, onEnter, onEscape});
}

Unsaved askAboutUnsaved(QWidget* parent, const QString& text) {
    return Unsaved(choose(parent, text, {u"保存"_s, u"不保存"_s, u"继续编辑"_s}, 2, 2));
}

namespace {

/// While a modal box or dialog is open, a second box could neither be read in peace nor closed.
void showWhenNothingWaits(const BoxText& text, const std::function<void(int)>& given = {}) {
    if (QApplication::activeModalWidget() != nullptr) {
        QTimer::singleShot(modalPatienceMs, qApp, [text, given] { showWhenNothingWaits(text, given); });
        return;
    }
    QMessageBox* box = makeBox(nullptr, text);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, box, &QObject::deleteLater);
    box->setModal(false);
    if (given)
        QObject::connect(box, &QMessageBox::buttonClicked, qApp, [text, given](const QAbstractButton* clicked) {
            given(int(text.answers.indexOf(clicked->text())));
        });
    box->show();
}

}  // namespace

void tell(const QString& text, BoxIcon icon, const QString& title) {
    const BoxText shown = statement(title, text, icon);
    noteIfFailure(shown);
    if (const auto answers = answer()) {
        answers(shown);
        return;
    }
    showWhenNothingWaits(shown);
}

void offer(const QString& text, const QStringList& answers, const std::function<void(int)>& given,
           const QString& title) {
    const int last = int(answers.size()) - 1;
    const BoxText shown{title, text, BoxIcon::exclamation, answers, last, last};
    noteIfFailure(shown);
    if (const auto test = answer())
        given(test(shown));
    else
        showWhenNothingWaits(shown, given);
}

void answerBoxesWith(std::function<bool(const BoxText&)> function) {
    if (!function) {
        answer() = {};
        return;
    }
    answer() = [function = std::move(function)](const BoxText& box) { return function(box) ? 0 : box.onEscape; };
}

void chooseInBoxesWith(std::function<int(const BoxText&)> function) {
    answer() = std::move(function);
}

void runHandler(QWidget* parent, const std::function<void()>& handler) {
    const QPointer<QWidget> owner = parent;
    QString failure;
    try {
        handler();
        return;
    } catch (const Error& error) {
        failure = error.text();
    } catch (const std::bad_alloc&) {
        failure = u"内存不足，操作没有完成。"_s;
    } catch (const std::exception& error) {
        failure = QString::fromLocal8Bit(error.what());
    }
    say(owner, failure, BoxIcon::exclamation, failureTitle);
}
