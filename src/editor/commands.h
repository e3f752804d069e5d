#pragma once

#include "editor/editor_state.h"
#include "platform/desktop/tool_bar.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <functional>

/// The menus of the editor and its tool bar, whose buttons do what the menu items do. Items and buttons are enabled by
/// name and key at the places that know.
class Commands : public QObject {
    Q_OBJECT

  public:
    Commands(EditorState& state, QMenuBar* bar, QWidget* form);

    ToolBar* tlb1;
    QAction *mnuDk, *mnuCw, *mnuCs;
    QAction *mnuQh, *mnuTy, *mnuSy, *mnuXy, *mnuHy;
    QAction *mnuCl, *mnuSf, *mnuCj, *mnuXz, *mnuFs, *mnuFc;
    QAction *mnuAt, *mnuB0, *mnuBc, *mnuLc, *mnuCx;
    QAction *mnuGj, *mnuTg, *mnuGx, *mnuBz, *mnuFh, *mnuGb;

    /// Enables or disables the processing commands; the stepping buttons follow the state whatever `on` says.
    void szan(bool on);
    /// The menus that a first picture brings up.
    void showPictureMenus();

    /// Switches a menu item and its tool button together.
    void setEnabled(QAction* item, const QString& key, bool on);

    /// Runs `handler` on the item and on its tool button, which may be enabled apart from each other.
    void onCommand(QAction* item, const QString& key, const std::function<void()>& handler);

    /// Items of menu and tool bar that read as the state of a view setting.
    void showToggle(QAction* item, const QString& key, const QString& caption, const QString& image);

  Q_SIGNALS:
    void menuOpens();  ///< mnuDk, or mnuCl with a picture open.

  private:
    void makeMenus(QMenuBar* bar);
    void makeToolBar();
    void refuseWithoutPicture(QAction* parent);

    EditorState& state_;
    QWidget* form_;
    QMenu *processing_ = nullptr, *saving_ = nullptr;
};
