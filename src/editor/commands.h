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

    /// Runs `handler` on the item and on its tool button.
    void onCommand(QAction* item, const QString& key, const std::function<void()>& handler);

  private:
    EditorState& state_;
    QWidget* form_;
};
