#include "platform/desktop/accessibility.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QPointer>

// Controls of our own, told to assistive software as what they are for a person.

namespace {

/// Belongs to a control that is told as something else than the toolkit takes it for.
struct Press : QObject {
    Press(QWidget* control, QAccessible::Role role, std::function<void()> press)
        : QObject(control), role(role), press(std::move(press)) {}
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
    OperableFace(QWidget* control, const Press& press) : QAccessibleWidget(control, press.role), press_(press) {}

    QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        const auto* label = qobject_cast<const QLabel*>(widget());
        return kind == QAccessible::Name && text.isEmpty() && label != nullptr ? label->text() : text;
    }
    QStringList actionNames() const override { return press_.press ? QStringList{pressAction()} : QStringList(); }
    void doAction(const QString& name) override {
        if (press_.press && name == pressAction() && widget()->isEnabled()) press_.press();
    }

  private:
    const Press& press_;  ///< Lives as long as the control.
};

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* control = qobject_cast<QWidget*>(object);
    const Press* press = control != nullptr ? pressOf(control) : nullptr;
    return press != nullptr ? new OperableFace(control, *press) : nullptr;
}

}  // namespace

void beOperable(QWidget* control, QAccessible::Role role, std::function<void()> press) {
    QAccessible::installFactory(faceOf);
    delete pressOf(control);
    new Press(control, role, std::move(press));
}

void announce(QWidget* control) {
    for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::Alert}) {
        QAccessibleEvent event(control, kind);
        QAccessible::updateAccessibility(&event);
    }
}
