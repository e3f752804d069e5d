#pragma once

#include "viewer/stage.h"

#include <QTimer>

/// A picture alone on black over the whole screen. The pointer hides while it rests.
class Alone : public QWidget {
    Q_OBJECT

  public:
    /// It comes on the screen of that window, and hides it.
    explicit Alone(QWidget* window);

    Stage& stage() { return *stage_; }
    void open();
    void leave();  ///< The window behind it is seen again.

  Q_SIGNALS:
    void left();
    void resized();
    void keyPressed(QKeyEvent* event);  ///< Any key but those that leave.

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void click();
    void showPointer();

    ZoomBox* imgQp;  ///< The picture.
    QLabel* lblQp;   ///< Words in place of the picture.
    std::unique_ptr<Stage> stage_;
    QTimer pointerRests_;
};
