#pragma once

#include <QString>

/// The windows of the program, named by what they are for.
enum class WindowKind { viewer, settings, editor, colours, help, about };

/// How a window asks for another one without knowing it. The program has one object of this kind; every window is given
/// a reference that outlives it.
class Windows {
  public:
    virtual ~Windows() = default;

    /// Shows `to` and unloads `from` once the calling handler has returned: the large windows take turns.
    virtual void handOver(WindowKind from, WindowKind to) = 0;

    /// Brings a window to the front, as new or as it stands. In the place of the main window comes the other large one
    /// that is at work.
    virtual void show(WindowKind window) = 0;

    /// Hides a window at once and lets it go once the calling handler has returned. With the last window that is shown
    /// the program ends.
    virtual void unload(WindowKind window) = 0;

    /// Another colour scheme is the active one: a main window that stands wears it at once.
    virtual void coloursChanged() = 0;

    /// Shows the help window at the place where `topic` stands in the manual; without a topic just shows it.
    virtual void showHelp(const QString& topic) = 0;

    /// Ends the program once the calling handler has returned.
    virtual void endProgram() = 0;
};
