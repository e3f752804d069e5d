#pragma once

#include <QObject>

class QWidget;

/// Scrolls the controls of a surface with the mouse wheel when some of them are below its edge. At first they are where
/// they were placed.
class WheelScroll : public QObject {
  public:
    explicit WheelScroll(QWidget* surface);

    void scrollBy(int pixels);     ///< Positive: towards the end. Stops at the edges.
    void reset() { offset_ = 0; }  ///< The controls have been placed anew.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* surface_;  ///< Its children are moved.
    int offset_ = 0;
};
