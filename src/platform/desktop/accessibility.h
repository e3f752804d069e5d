#pragma once

#include <QAccessible>
#include <QObject>
#include <QSet>
#include <QWidget>
#include <functional>

/// Helps people who use no mouse, or do not see the screen, in every window. A control without words of its own gets
/// its accessible name from its tool tip, or from a label beside or above it. The key Tab leads through a window in the
/// order of reading, past every option. Listens to all windows of the application it is installed on.
class Accessibility : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Lets Tab lead through the controls of a part, row by row, through each panel before the next one.
    static void followTheEye(QWidget* part);

    /// Gives controls without an accessible name the text of the label next to them.
    static void nameByLabels(QWidget* part);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void arrangeSoon(QWidget* window);
    QSet<QWidget*> waiting_;  ///< Windows to be arranged when the present handler has returned.
};

/// Lets assistive software see a control as a button, a link or a list, and press it, where it can be pressed. Call it
/// before the control is shown.
void beOperable(QWidget* control, QAccessible::Role role, std::function<void()> press);

/// Lets assistive software say what a control shows now, although it does not have the focus.
void announce(QWidget* control);
