#pragma once

#include "viewer/page.h"

#include <QPushButton>
#include <QSlider>
#include <QTimer>

/// The slide show and its dialog `picYc`. Writes `幻灯延时` and `幻灯循环`.
class SlideShow : public QObject {
  public:
    SlideShow(ViewerState& state, ToolStrip& strip, Page& page, QWidget* window, QWidget* form);

    /// Key `hd`: starts or stops.
    void toggle();
    void stop();

    /// Key `sj`.
    void openDialog();

    Surface* picYc;

  private:
    void buildDialog();
    void tellInterval(int milliseconds);
    void start();
    void step();
    bool isRunning() const { return strip_.tlb1->image(QStringLiteral("hd")) != u"hd"; }
    bool isAtEnd() const;
    void store();

    ViewerState& state_;
    ToolStrip& strip_;
    Page& page_;
    QWidget* window_;
    QTimer* tmr2;
    QSlider* sliSj;
    QLabel* lblCc;
    QCheckBox* chkYc;
};
