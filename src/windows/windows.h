#pragma once

#include <QString>

/// The windows of the program, named by what they are for.
enum class WindowKind { viewer, settings, editor, colours, help, about };

struct ColourScheme;
struct PictureOffer;

/// How a window asks for another one without including it. The program has one object of this kind; every window gets a
/// reference that outlives it.
class Windows {
  public:
    virtual ~Windows() = default;

    /// Shows `to`, and unloads `from` once the calling handler has returned: only one large window is open at a time.
    virtual void handOver(WindowKind from, WindowKind to) = 0;

    /// Hands over from the main window to the settings window, which takes the pictures in: for the album of a table,
    /// or for one that is chosen there when it is empty.
    virtual void takeIn(const QString& table, const PictureOffer& offer) = 0;

    /// Brings a window to the front, and makes it if it is not there. While another large window is open, asking for
    /// the main window brings that one to the front.
    virtual void show(WindowKind window) = 0;

    /// Hides a window at once, and deletes it once the calling handler has returned. The program ends with its last
    /// visible window.
    virtual void unload(WindowKind window) = 0;

    /// Call it when another colour scheme has become the active one: an open main window takes it over at once.
    virtual void coloursChanged() = 0;

    /// Shows an open main window in other colours than those of the active scheme, until `coloursChanged` is called.
    virtual void tryColours(const ColourScheme& scheme) = 0;

    /// Shows the help window with the place of `topic` in the manual at the top. Without a topic it just shows the
    /// window.
    virtual void showHelp(const QString& topic) = 0;

    /// Ends the program once the calling handler has returned.
    virtual void endProgram() = 0;
};
