#pragma once

#include <QImage>
#include <QWidget>

/// A surface that shows a picture at its own size, one picture pixel to a logical one, from the upper left corner. What
/// the picture does not cover is background.
class WorkSurface : public QWidget {
    Q_OBJECT

  public:
    explicit WorkSurface(QWidget* parent = nullptr);

    /// The stored picture; a null one clears it.
    void setPicture(const QImage& picture);
    const QImage& picture() const { return picture_; }

    /// Colour of a pixel of the surface; white outside.
    QRgb Point(int x, int y) const;

  Q_SIGNALS:
    void pressed(int x, int y);   ///< Left button, twips.
    void moved(int x, int y);     ///< Twips; also while the button is held outside.
    void released(int x, int y);  ///< Twips.
    void doubleClicked();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    QImage picture_;
};
