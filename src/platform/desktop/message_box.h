#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <type_traits>

class QCheckBox;
class QWidget;

/// Message boxes of the program. Real ones are modal QMessageBoxes; a test may put its own answers in their place.

enum class BoxIcon { exclamation, information, question };

/// What a box was asked to show.
struct BoxText {
    QString title;
    QString text;
    BoxIcon icon;
    QStringList answers;  ///< Captions of its buttons, in their order.
    int onEnter;          ///< Which answer Enter gives: the default button.
    int onEscape;         ///< Which answer Escape gives, and closing the box.

    bool hasCancel() const { return answers.size() > 1; }
};

inline const QString usualBoxTitle = QStringLiteral("操作提示");

/// Shows a statement with one button "确定".
void say(QWidget* parent, const QString& text, BoxIcon icon = BoxIcon::exclamation,
         const QString& title = usualBoxTitle);

/// Asks for a decision with the buttons "确定" and "取消"; true for "确定". Closing the box is "取消".
bool ask(QWidget* parent, const QString& text, BoxIcon icon = BoxIcon::question, const QString& title = usualBoxTitle);

/// The same with a check box below the text, which goes with the box.
bool ask(QWidget* parent, const QString& text, std::unique_ptr<QCheckBox> option, const QString& title = usualBoxTitle);

/// Asks before something is deleted: as `ask` does, but Enter means "取消".
bool askBeforeDeleting(QWidget* parent, const QString& text, BoxIcon icon = BoxIcon::question,
                       const QString& title = usualBoxTitle);

/// Asks a question with answers of its own; the result is the place of the answer in `answers`.
int choose(QWidget* parent, const QString& text, const QStringList& answers, int onEnter, int onEscape,
           BoxIcon icon = BoxIcon::question, const QString& title = usualBoxTitle);

enum class Unsaved { save, discard, keepEditing };

/// Asks what becomes of changes that are not saved: "保存", "不保存" or "继续编辑". Enter and Escape keep editing.
Unsaved askAboutUnsaved(QWidget* parent, const QString& text);

/// Says something without waiting for the button: the program goes on. The box appears when no other box or dialog is
/// open, stays above all windows and closes with the program.
void tell(const QString& text, BoxIcon icon = BoxIcon::exclamation, const QString& title = usualBoxTitle);

/// Lets `answer` take the place of all message boxes, for tests. An empty function brings them back. Its result is what
/// `ask` returns; for `choose` true is the first answer and false the one that Escape gives.
void answerBoxesWith(std::function<bool(const BoxText&)> answer);
/// The same, with the place of the answer in `BoxText::answers`.
void chooseInBoxesWith(std::function<int(const BoxText&)> answer);

/// Runs a handler. When it ends in a failure, a box titled "错误提示" says what failed, and the program goes on.
void runHandler(QWidget* parent, const std::function<void()>& handler);

/// Calls a handler with the arguments of a signal, or without any if it takes none.
template <typename Handler, typename... Arguments>
void callWithOrWithout(const Handler& handler, const Arguments&... arguments) {
    if constexpr (std::is_invocable_v<const Handler&, const Arguments&...>)
        handler(arguments...);
    else
        handler();
}

/// Wraps a callable for `connect`: `connect(button, &QPushButton::clicked, this, guarded(this, [this] { … }))`.
template <typename Handler>
auto guarded(QWidget* parent, Handler handler) {
    return [parent, handler](auto... arguments) -> void {
        runHandler(parent, [&] { callWithOrWithout(handler, arguments...); });
    };
}
