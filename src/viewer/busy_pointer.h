#pragma once

#include <QWidget>

/// The pointer of a control is another one until the object goes.
class BusyPointer {
  public:
    BusyPointer(QWidget* control, Qt::CursorShape shape) : control_(control) { control->setCursor(shape); }
    ~BusyPointer() { control_->unsetCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    QWidget* control_;
};
