#include "platform/desktop/tool_bar.h"

#include "platform/desktop/placing.h"

#include <QKeyEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr auto imageProperty = "image";
constexpr int iconMargin = 3;
}  // namespace

ToolBar::ToolBar(IconSource icons, QWidget* parent) : QFrame(parent), icons_(std::move(icons)) {}

QToolButton* ToolBar::add(const QString& key, const QString& toolTip, int left, int top, int width, int height) {
    auto* button = make<QToolButton>(this, objectName() + u':' + key);
    place(button, left, top, width, height);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(toolTip);
    const int icon = std::max(1, std::min(button->width(), button->height()) - 2 * iconMargin);
    button->setIconSize({icon, icon});
    connect(button, &QToolButton::clicked, this, [this, key] { Q_EMIT buttonClicked(key); });
    buttons_.insert(key, button);
    setImage(key, key);
    return button;
}

QToolButton* ToolBar::button(const QString& key) const {
    return buttons_.value(key);
}

void ToolBar::setIconSource(IconSource icons) {
    icons_ = std::move(icons);
    for (QToolButton* button : std::as_const(buttons_))
        button->setIcon(icons_(button->property(imageProperty).toString()));
}

QString ToolBar::image(const QString& key) const {
    const QToolButton* found = button(key);
    return found != nullptr ? found->property(imageProperty).toString() : QString();
}

void ToolBar::setImage(const QString& key, const QString& imageKey) {
    QToolButton* found = button(key);
    if (found == nullptr || image(key) == imageKey) return;
    found->setProperty(imageProperty, imageKey);
    if (icons_) found->setIcon(icons_(imageKey));
}

void ToolBar::setToolTip(const QString& key, const QString& text) {
    if (QToolButton* found = button(key)) found->setToolTip(text);
}

bool ToolBar::isEnabled(const QString& key) const {
    const QToolButton* found = button(key);
    return found != nullptr && found->isEnabled();
}

void ToolBar::setEnabled(const QString& key, bool on) {
    if (QToolButton* found = button(key)) found->setEnabled(on);
}

void ToolBar::keyPressEvent(QKeyEvent* event) {
    auto* focused = qobject_cast<QToolButton*>(window()->focusWidget());
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && focused != nullptr && focused->parentWidget() == this)
        focused->click();
    else
        QFrame::keyPressEvent(event);
}
