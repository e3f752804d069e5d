#pragma once

#include <QObject>

class QWidget;

/// Lets a surface whose controls reach below its edge be moved up and down with the mouse wheel. At first the
/// controls are where they were placed.
class WheelScroll : public QObject {
  public:
    explicit WheelScroll(QWidget* surface);

    void scrollBy(int pixels);     ///< Positive: towards the end. Stops at the edges.
    void reset() { offset_ = 0; }  ///< The controls have been placed anew.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* surface_;
    int offset_ = 0;
};
