#pragma once

#include <QFrame>
#include <QPoint>

/// A picture surface: a plain panel for other controls. As a small dialog inside a window it can be dragged with the
/// mouse.
class Surface : public QFrame {
    Q_OBJECT

  public:
    explicit Surface(QWidget* parent = nullptr);

    /// Looks like a small dialog: a ground with an edge around it.
    void beDialog() { setProperty("isDialog", true); }
    void setDraggable(bool on) { draggable_ = on; }

  Q_SIGNALS:
    void mouseMoved();
    void mousePressed();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    bool draggable_ = false;
    QPoint grip_;
};
