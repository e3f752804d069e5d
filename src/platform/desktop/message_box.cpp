#include "platform/desktop/message_box.h"

#include "platform/base/error.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <new>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int modalPatienceMs = 200;

std::function<bool(const BoxText&)>& answer() {
    static std::function<bool(const BoxText&)> function;
    return function;
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
    QPushButton* ok = box->addButton(u"确定"_s, QMessageBox::AcceptRole);
    QPushButton* cancel = text.hasCancel ? box->addButton(u"取消"_s, QMessageBox::RejectRole) : ok;
    box->setDefaultButton(ok);
    box->setEscapeButton(cancel);
    return box;
}

bool show(QWidget* parent, const BoxText& text) {
    if (const auto answers = answer()) return answers(text);

    // The nested event loop may take the parent, and the box with it.
    const QPointer<QMessageBox> box = makeBox(parent, text);
    box->exec();
    if (!box) return false;
    const bool accepted = box->clickedButton() == box->defaultButton();
    delete box;
    return accepted;
}

}  // namespace

void say(QWidget* parent, const QString& text, BoxIcon icon, const QString& title) {
    show(parent, {title, text, icon, false});
}

bool ask(QWidget* parent, const QString& text, BoxIcon icon, const QString& title) {
    return show(parent, {title, text, icon, true});
}

namespace {

/// What is shown beside a modal box or dialog could be neither read in peace nor closed.
void showWhenNothingWaits(const BoxText& text) {
    if (QApplication::activeModalWidget() != nullptr) {
        QTimer::singleShot(modalPatienceMs, qApp, [text] { showWhenNothingWaits(text); });
        return;
    }
    QMessageBox* box = makeBox(nullptr, text);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, box, &QObject::deleteLater);
    box->setModal(false);
    box->show();
}

}  // namespace

void tell(const QString& text, BoxIcon icon, const QString& title) {
    const BoxText shown{title, text, icon, false};
    if (const auto answers = answer()) {
        answers(shown);
        return;
    }
    showWhenNothingWaits(shown);
}

void answerBoxesWith(std::function<bool(const BoxText&)> function) {
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
    say(owner, failure, BoxIcon::exclamation, u"错误提示"_s);
}
