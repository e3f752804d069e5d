#include "editor/operation_runner.h"

#include "editor/operations/operation.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

OperationRunner::OperationRunner(const Workplace& at, OperationDialog& dialog) : Chapter(at), dialog_(dialog) {
    connect(&dialog_, &OperationDialog::confirmed, this, &OperationRunner::confirm);
    for (const Operation* operation : operations())
        commands_.onCommand(operation->key, [this, operation] { start(*operation); });
}

void OperationRunner::start(const Operation& operation) {
    if (!operation.asksNothing()) {
        ask(operation);
        return;
    }
    document_.carryOut(operation);
    finish(operation);
}

void OperationRunner::ask(const Operation& operation) {
    document_.ask(operation);
    view_.hint().tscz(operation.askingHint.code);
    const bool isExclusive = operation.isExclusive;
    if (isExclusive) commands_.enable(operation.key, false);
    dialog_.czdh(operation);
    if (isExclusive)
        commands_.enable(u"at"_s, false);
    else
        commands_.szan(true);
}

void OperationRunner::reopen() {
    const Operation* operation = dialog_.operation();
    if (operation == nullptr) return;
    if (operation->asksForPart()) {
        // Only in its own state a part can be drawn.
        document_.ask(*operation);
        commands_.enable(operation->key, false);
    }
    dialog_.showAgain();
}

/// What cannot be carried out leaves the dialog open and says why in the hint box.
void OperationRunner::confirm() {
    if (dialog_.lacksEntry()) {
        say(form_, u"请在文本框中输入数据！"_s, BoxIcon::information);
        dialog_.focusEntry();
        return;
    }
    const Operation& operation = *dialog_.operation();
    if (!carryOut(operation)) return;
    finish(operation);
    commands_.szan(true);
    commands_.enable(u"bc"_s, true);
    dialog_.close();
    view_.band().hide();
}

bool OperationRunner::carryOut(const Operation& operation) {
    try {
        paint(operation);
        return true;
    } catch (const TooLarge& failure) {
        view_.hidePicture();
        view_.hint().notice(failure.text());
    } catch (const Error& failure) {
        view_.hint().notice(failure.text());
    } catch (const std::exception&) {
        view_.hint().notice(u"内存不够，不能完成这一步。"_s);
    }
    return false;
}

void OperationRunner::paint(const Operation& operation) {
    const QString entry = dialog_.entry();
    if (!operation.isSlow) {
        document_.carryOut(operation, entry);
        return;
    }
    const Hourglass hourglass;
    dialog_.showProgress([&](const Progress& progress) { document_.carryOut(operation, entry, progress); });
}

void OperationRunner::finish(const Operation& operation) {
    view_.hint().tscz(operation.doneHint.code);
    document_.record(view_.hint().text(), dialog_.value());
}
