#pragma once

#include "platform/desktop/image_box.h"

/// An image control for a picture that is zoomed: each step paints only the part that is seen.
class ZoomBox : public ImageBox {
    Q_OBJECT

  public:
    explicit ZoomBox(QWidget* parent = nullptr) : ImageBox(parent) {}

    void setZoomed(bool on) { isZoomed_ = on; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool isZoomed_ = false;
};
