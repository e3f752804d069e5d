#pragma once

#include "viewer/page.h"

#include <QTimer>

/// The slide show: it steps through the selection, one picture to a page.
class SlideShow : public QObject {
  public:
    SlideShow(Selection& selection, ToolStrip& strip, Page& page, QWidget* window);

    /// Key `hd`: starts or stops.
    void toggle();
    void stop();

  private:
    void start();
    void step();
    bool isAtEnd() const;
    void showRunning(bool on);

    Selection& selection_;
    ToolStrip& strip_;
    Page& page_;
    QTimer* tmr2;  ///< Between two pictures.
    bool isRunning_ = false;
    bool loops_ = false;
};
