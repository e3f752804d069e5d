#pragma once

#include "platform/desktop/image_box.h"

/// The place of a picture on the page. If the bytes of a record are no picture, it shows a sign instead.
class CellBox : public ImageBox {
    Q_OBJECT

  public:
    explicit CellBox(QWidget* parent = nullptr) : ImageBox(parent) {}

    void showPicture(const Picture& picture);
    void showSign();
    /// Removes the sign, which belongs to the record before; a picture stays.
    void dropSign();
    bool hasSign() const { return hasSign_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool hasSign_ = false;
};
