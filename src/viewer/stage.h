#pragma once

#include "viewer/zoom_box.h"
#include "viewer/zoomed_place.h"

class QGestureEvent;
class QMouseEvent;
class QNativeGestureEvent;
class QWheelEvent;

/// A picture alone on a ground, under the hand of a person: Ctrl and the wheel or a pinch zooms towards the pointer,
/// dragging moves, and the tilt of the wheel asks for another picture. Between `end` and `begin` the controls serve
/// others.
class Stage : public QObject {
    Q_OBJECT

  public:
    /// `words` take the place of a picture that cannot be shown. With `isCentred` the picture is in the middle.
    Stage(QWidget* ground, ZoomBox* picture, QLabel* words, bool isCentred);
    QWidget* ground() const { return ground_; }
    /// Another control over the picture: the wheel works there, too.
    void include(QWidget* control) { control->installEventFilter(this); }

    /// Begins with an empty place for a whole picture, in logical pixels, and the pixels that the picture has.
    void begin(QSize whole, QSize pixels);
    void end();
    bool isOn() const { return isOn_; }
    void show(const Picture& picture);
    void say(const QString& words);

    /// The size in device pixels for which the picture should be decoded now.
    QSize target() const;
    QSize room() const { return ImageBox::targetSize(ground_, ground_->size()); }  ///< In device pixels.
    bool isWhole() const { return zoom_.isWhole(); }
    QRect seen() const { return picture_->geometry() & ground_->rect(); }  ///< Part of the ground with the picture.
    /// Whether the mouse has dragged since it was pressed: then its release is no click.
    bool wasDragged() const { return isOn_ && isDrag_; }

    void showWhole();
    void showOneToOne();
    void zoomBy(double factor);  ///< About the middle.

  Q_SIGNALS:
    void placed();              ///< Zoomed or moved.
    void leafWanted(int step);  ///< To the next pictures, or with less than 0 to those before.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void place();
    void zoomBy(double factor, QPointF fixedPoint);
    bool turnWheel(const QWidget* control, const QWheelEvent& wheel);
    bool take(const QWidget* control, QEvent* event);
    bool pinchPad(const QWidget* control, const QNativeGestureEvent& gesture);
    bool pinch(const QGestureEvent& gestures);
    void drag(QPointF point);
    void followMouse(const QWidget* control, const QMouseEvent& mouse);

    QWidget* ground_;
    ZoomBox* picture_;
    QLabel* words_;
    const bool isCentred_;
    ZoomedPlace zoom_;
    QSize pixels_;  ///< Of the whole picture.
    bool isOn_ = false;
    bool isHeld_ = false;  ///< The left button is down.
    bool isDrag_ = false;
    QPointF pressed_, last_;  ///< Points of the ground.
    int tilt_ = 0;            ///< Of the wheel, in eighths of a degree that have not turned a leaf yet.
};
