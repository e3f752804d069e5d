#pragma once

#include <QPointF>
#include <QRect>
#include <QSizeF>

/// How large a picture is in its room, and where: whole at first, then zoomed and moved. The part of the room that the
/// picture can fill is never empty. All lengths are logical pixels.
class ZoomedPlace {
  public:
    ZoomedPlace() = default;
    /// `whole` is the size at which all of the picture is seen, `pixels` its size at one to one. In a direction in
    /// which the room is larger, the picture is at the upper left, or with `isCentred` in the middle.
    ZoomedPlace(QSize room, QSize whole, QSize pixels, bool isCentred);

    bool isWhole() const { return isWhole_; }
    QRect place() const;
    bool canMove() const;  ///< Whether a part of the picture is outside the room.

    void showWhole();
    void showOneToOne();  ///< About the middle of the room.
    /// The point of the picture that is there stays there.
    void zoomBy(double factor, QPointF fixedPoint);
    void moveBy(QPointF way);
    QPointF middleOfRoom() const { return {room_.width() / 2, room_.height() / 2}; }

  private:
    QSizeF size() const { return isWhole_ ? whole_ : pixels_ * scale_; }
    void zoomTo(double scale, QPointF fixedPoint);
    void keepInRoom();

    QSizeF room_{1, 1}, whole_{1, 1}, pixels_{1, 1};
    double wholeScale_ = 1;
    double scale_ = 1;  ///< Logical pixels to a pixel of the picture.
    bool isCentred_ = false;
    bool isWhole_ = true;
    QPointF corner_;
};
