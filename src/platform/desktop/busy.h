#pragma once

#include <QApplication>
#include <QPointer>
#include <QWidget>

/// The pointer is an hourglass while the object lives: over one control (`shape` may be an arrow with an hourglass), or
/// over the whole program.
class Hourglass {
  public:
    Hourglass() : everywhere_(true) { QApplication::setOverrideCursor(Qt::WaitCursor); }
    explicit Hourglass(QWidget* control, Qt::CursorShape shape = Qt::WaitCursor) : control_(control) {
        control->setCursor(shape);
    }
    ~Hourglass() {
        if (everywhere_) QApplication::restoreOverrideCursor();
        if (control_ != nullptr) control_->unsetCursor();
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    bool everywhere_ = false;
    QPointer<QWidget> control_;  ///< Null: over the whole program.
};
