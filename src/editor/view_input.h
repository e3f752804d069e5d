#pragma once

#include "editor/editor_view.h"

#include <QMenu>

class QGestureEvent;

/// What a person does to look at the picture, with wheel, fingers, mouse and keys. The wheel scrolls; with Ctrl, as a
/// pinch does, it zooms towards the pointer. The middle button moves the picture, and so does the left one while the
/// space bar is down. The right one opens a menu of the commands, which have keys of their own.
class ViewInput : public QObject {
    Q_OBJECT

  public:
    ViewInput(EditorView& view, QWidget* form);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeCommands();
    void addCommand(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                    const std::function<void()>& command);
    bool onForm(QEvent& event);
    bool onPicture(QEvent& event, bool isViewport);
    bool turnWheel(const QWheelEvent& wheel);
    bool pinch(QGestureEvent& event);
    bool pinch(const QNativeGestureEvent& event);
    bool showMenu(const QContextMenuEvent& event);
    bool useSpaceBar(const QKeyEvent& event);
    void setSpaceDown(bool on);
    void showHand();
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);

    EditorView& view_;
    QWidget* form_;
    QWidget* viewport_;
    QMenu* menu_;  ///< At the right mouse button.
    bool isSpaceDown_ = false;
    Qt::MouseButton moving_ = Qt::NoButton;  ///< The button that moves the picture.
    QPoint grip_;                            ///< Where the mouse was last, on the screen.
};
