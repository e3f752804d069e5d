#pragma once

#include "editor/pixels/scaled_picture.h"
#include "platform/picture/colour_transform.h"

#include <QWidget>

/// A surface that shows a picture from the upper left corner, at a scale of logical pixels to one of its own. What the
/// picture does not cover is background. Places in the picture are whole pixels of it, in twips.
class WorkSurface : public QWidget {
    Q_OBJECT

  public:
    explicit WorkSurface(QWidget* parent = nullptr);

    /// The stored picture; a null one clears it. With a profile its colours are turned into those of the screen while
    /// they are painted.
    void setPicture(const QImage& picture, const QByteArray& profile = {});
    const QImage& picture() const { return picture_.whole(); }
    void setScale(double scale);

    /// Colour of a pixel of the picture; white outside.
    QRgb Point(int x, int y) const;
    /// Where a part of the picture is on the surface; both are pixels.
    QRect onSurface(const QRect& part) const;

  Q_SIGNALS:
    void pressed(int x, int y);   ///< Left button, place in the picture.
    void moved(int x, int y);     ///< The same; also while the button is held outside.
    void released(int x, int y);  ///< The same.
    void doubleClicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    QPoint twipsOf(const QMouseEvent& event) const;
    void drawPart(QPainter& painter, const QRect& part);
    QImage partForScreen(QSize target, const QRect& part);

    ScaledPicture picture_;
    std::shared_ptr<const ColourTransform> transform_;  ///< nullptr where nothing has to be turned.
    double scale_ = 1;
};
