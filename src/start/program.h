#pragma once

#include "start/help_key.h"
#include "windows/windows.h"

#include <QPointer>
#include <QWidget>
#include <map>

/// Makes the windows and hands over between them.
class Program : public Windows {
  public:
    Program() = default;
    ~Program() override;
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Shows the main window.
    void start();

    void handOver(WindowKind from, WindowKind to) override;
    void takeIn(const QString& table, const PictureOffer& offer) override;
    void show(WindowKind window) override;
    void unload(WindowKind window) override;
    void coloursChanged() override;
    void tryColours(const ColourScheme& scheme) override;
    void showHelp(const QString& topic) override;
    void endProgram() override;

  private:
    QWidget* makeWindow(WindowKind window);
    bool isShown(WindowKind window) const;
    /// A window that is made for it stands where the replaced one does, if there is one.
    void bring(WindowKind window, const QWidget* replaced);
    void forget(WindowKind window);
    /// Lets the main window show in its menu which other windows are open.
    void tellMainWindow();

    std::map<WindowKind, QPointer<QWidget>> windows_;
    HelpKey helpKey_{*this};
};
