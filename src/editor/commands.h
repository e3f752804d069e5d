#pragma once

#include "editor/document/document.h"
#include "platform/desktop/tool_bar.h"

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QMenuBar>
#include <functional>

/// The commands of the editor: a menu item and a tool button each, known by the button's key. Those of the operations
/// come from their list. Items and buttons are enabled at the places that know.
class Commands : public QObject {
    Q_OBJECT

  public:
    Commands(const Document& document, QMenuBar* bar, ToolBar* tlb1, QWidget* form);

    /// Runs `handler` on a menu item and on its tool button, which may be enabled apart from each other.
    void onCommand(const QString& key, const std::function<void()>& handler);
    /// Clicks a tool button, where it is enabled.
    void press(const QString& key) { tlb1_->button(key)->click(); }

    /// Switches a menu item and its tool button together.
    void enable(const QString& key, bool on);
    void enableItem(const QString& key, bool on) { items_[key]->setEnabled(on); }

    /// Enables or disables the processing commands; the stepping buttons follow the document whatever `on` says.
    void szan(bool on);
    /// A picture was opened.
    void showOpened();
    /// No picture is at hand: nothing can be done but opening one.
    void showNothingOpen();

    /// A menu item and a tool button that read as the state of a view setting.
    void showToggle(const QString& key, const QString& caption, const QString& image);

  Q_SIGNALS:
    void menuOpens();  ///< 打开, or 处理 with a picture open.

  private:
    void make(QMenuBar* bar);
    void addGap(int left);
    void refuseWithoutPicture(QAction* parent);
    QMenu* menuUnder(QAction* parent, QMenuBar* bar);

    const Document& document_;
    ToolBar* tlb1_;
    QWidget* form_;
    QHash<QString, QAction*> items_;  ///< Of the commands, by key.
    QAction* mnuQh_ = nullptr;        ///< 切换, with the commands of stepping.
    QAction* mnuCl_ = nullptr;        ///< 处理, with the operations.
    QAction* mnuB0_ = nullptr;        ///< 保存, with the two ways of saving.
    QMenu *processing_ = nullptr, *saving_ = nullptr;
};
