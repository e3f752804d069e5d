#pragma once

#include <QObject>
#include <QSet>
#include <QWidget>

/// What people who use no mouse, or do not see the screen, need of every window: a control without words of its own is
/// called by its tool tip, one with a label beside or above it by that label, and the key Tab leads through a window in
/// the order in which the eye reads it, past every option. Listens to all windows of the application it is installed
/// on.
class Accessibility : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Lets Tab lead through the controls of a part, row by row, through each panel before the next one.
    static void followTheEye(QWidget* part);

    /// Calls a control that nobody has given a name by the label next to it.
    static void nameByLabels(QWidget* part);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void arrangeSoon(QWidget* window);
    QSet<QWidget*> waiting_;  ///< Windows that are arranged when the present handler has returned.
};
