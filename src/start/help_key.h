#pragma once

#include "windows/windows.h"

#include <QObject>

class QWidget;

/// Heading of the section of the manual that is about a control, found by its name and those of what it is in, up to
/// its window. Empty for a window that the manual does not know.
QString sectionAbout(const QWidget* control);

/// In every window of the program, F1 opens the manual at the section about the control with the focus.
class HelpKey : public QObject {
    Q_OBJECT

  public:
    explicit HelpKey(Windows& windows);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Windows& windows_;
};
