#pragma once

#include <QObject>

/// Keys and wheel that work alike in all windows: Enter presses the button that has the focus, and the wheel never
/// changes a combo box. Dialogs of the toolkit keep their own keys, such as Enter for the default button. Listens to
/// all windows of the application it is installed on.
class Habits : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
