#pragma once

#include "platform/picture/picture.h"

#include <QLabel>

/// An image control: shows a picture stretched to its own size, sharp on any screen. Without a picture it is empty and
/// lets its background through. `pixmap()` is the picture it shows. Its tool tip is plain text, whatever it looks like.
class ImageBox : public QLabel {
    Q_OBJECT

  public:
    explicit ImageBox(QWidget* parent = nullptr);

    void setPicture(const Picture& picture);  ///< A null picture empties the control.
    const Picture& picture() const { return picture_; }

    /// Takes the keyboard as a button does: Tab reaches it, Enter clicks it.
    void beButton();

    /// Text that a control carries with it without showing it.
    void setTag(const QString& tag) { tag_ = tag; }
    const QString& tag() const { return tag_; }

    /// The size in device pixels for which a picture should be decoded to look sharp here.
    QSize targetSize() const;
    static QSize targetSize(const QWidget* control, QSize pixels);

  Q_SIGNALS:
    void clicked();  ///< Pressed and released inside, left button; not sent for the second click of a double click.
    void doubleClicked();
    void mousePressed();
    void mouseReleased();
    void mouseMoved();

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void paintFocus(QPainter& painter) const;
    QPixmap fitted(QSize pixels);
    Picture picture_;
    QPixmap fitted_;  ///< The picture scaled down once for the present size.
    qint64 fittedKey_ = 0;
    QString tag_;
    bool pressedHere_ = false;
    bool isButton_ = false;
};
