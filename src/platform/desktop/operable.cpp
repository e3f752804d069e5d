#include "platform/desktop/accessibility.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QPointer>

// Controls of our own, told to assistive software as what they are for a person.

namespace {

/// Belongs to a control that is told as something else than the toolkit takes it for.
struct Press : QObject {
    Press(QWidget* control, QAccessible::Role asRole, std::function<void()> onPress)
        : QObject(control), role(asRole), press(std::move(onPress)) {}
    const QAccessible::Role role;
    const std::function<void()> press;
};

Press* pressOf(const QObject* control) {
    for (QObject* child : control->children())
        if (auto* press = dynamic_cast<Press*>(child)) return press;
    return nullptr;
}

class OperableFace : public QAccessibleWidget {
  public:
    OperableFace(QWidget* control, Press* press) : QAccessibleWidget(control, press->role), press_(press) {}

    QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        const auto* label = qobject_cast<const QLabel*>(widget());
        return kind == QAccessible::Name && text.isEmpty() && label != nullptr ? label->text() : text;
    }
    QStringList actionNames() const override { return canPress() ? QStringList{pressAction()} : QStringList(); }
    void doAction(const QString& name) override {
        if (canPress() && name == pressAction() && widget()->isEnabled()) press_->press();
    }

  private:
    bool canPress() const { return press_ && press_->press; }
    const QPointer<Press> press_;
};

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* control = qobject_cast<QWidget*>(object);
    Press* press = control != nullptr ? pressOf(control) : nullptr;
    return press != nullptr ? new OperableFace(control, press) : nullptr;
}

}  // namespace

void beOperable(QWidget* control, QAccessible::Role role, std::function<void()> press) {
    QAccessible::installFactory(faceOf);
    // A face that was asked for before, for a tool tip, say, is another one.
    if (QAccessibleInterface* former = QAccessible::queryAccessibleInterface(control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(former));
    delete pressOf(control);
    new Press(control, role, std::move(press));
}

void announce(QWidget* control) {
    for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::Alert}) {
        QAccessibleEvent event(control, kind);
        QAccessible::updateAccessibility(&event);
    }
}
