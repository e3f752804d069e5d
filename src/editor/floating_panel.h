#pragma once

#include "platform/desktop/surface.h"

/// The look of the panels over the picture.
void dressAsPanel(Surface* surface);

/// A small dialog over the picture, which the mouse drags by whatever does not answer to it.
class FloatingPanel : public Surface {
    Q_OBJECT

  public:
    /// A dragged panel goes with its corner to where the pointer is in the viewport.
    FloatingPanel(const QString& name, const QWidget* viewport, QWidget* form);

  Q_SIGNALS:
    void toggled();  ///< It shows, or does so no more.

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    const QWidget* viewport_;
    QPoint dragFrom_;  ///< Where the mouse went down, on the screen.
};
