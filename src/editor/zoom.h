#pragma once

#include <QRect>
#include <QString>

/// How large the picture is shown. A scale is logical pixels of the screen to one pixel of the picture; other lengths
/// are twips, on the screen 15 to the logical pixel. A picture of more than 32,767 twips a side is fitted into the room
/// for it, until the person chooses a scale.
class Zoom {
  public:
    double scale() const { return scale_; }
    bool isOneToOne() const { return scale_ == 1; }
    /// Size of the picture on the screen.
    QSize shown() const;
    /// " 35%"; empty one to one.
    QString text() const;

    /// Another picture is opened.
    void open(QSize picture);
    /// The open picture has changed. One of another size that was reduced is opened anew.
    void follow(QSize picture);
    /// Room for the picture in the window.
    void setRoom(QSize room);

    /// Reduced to the room, or one to one where it is smaller.
    void showWhole();
    void setScale(double scale);
    /// So many times as large. It stops at one to one on its way, and ends where the picture is whole.
    void scaleBy(double factor);

  private:
    double wholeScale() const;

    QSize picture_;
    QSize room_;
    double scale_ = 1;
    bool fits_ = false;  ///< It follows the room.
};
