#pragma once

#include "platform/desktop/image_box.h"

/// The place of a picture on the page. Where the bytes of a record are no picture it is empty, with a sign in it.
class CellBox : public ImageBox {
    Q_OBJECT

  public:
    explicit CellBox(QWidget* parent = nullptr) : ImageBox(parent) {}

    void showPicture(const Picture& picture);
    void showSign();
    /// Goes on showing its picture; a sign belongs to the record before.
    void dropSign();
    bool hasSign() const { return hasSign_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool hasSign_ = false;
};
