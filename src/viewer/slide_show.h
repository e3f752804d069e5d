#pragma once

#include "viewer/page.h"
#include "viewer/tool_strip.h"

#include <QTimer>

/// The slide show: it steps through the selection, one picture to a page.
class SlideShow : public QObject {
  public:
    SlideShow(Page& page, ToolStrip& strip);

    /// Key `hd`: starts or stops.
    void toggle();
    void stop();

  private:
    void start();
    void step();
    bool isAtEnd() const;
    void showRunning(bool on);

    Page& page_;
    Selection& selection_;
    ToolStrip& strip_;
    QTimer* tmr2;  ///< Between two pictures.
    bool isRunning_ = false;
    bool loops_ = false;
};
