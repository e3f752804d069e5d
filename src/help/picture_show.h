#pragma once

#include "platform/desktop/image_box.h"

#include <QPointer>

/// A picture of the manual, large over the whole help window. A click on it, Enter, Space or Esc closes it.
class PictureShow : public QWidget {
    Q_OBJECT

  public:
    explicit PictureShow(QWidget* window);

    /// `name`: what the picture shows.
    void open(const Picture& picture, const QString& name);

  protected:
    /// The focus does not leave it for what it covers.
    bool focusNextPrevChild(bool) override { return false; }
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void layOut();
    void leave();

    ImageBox* imgFd;            ///< The picture.
    QPointer<QWidget> opener_;  ///< Gets the focus back.
};
