#pragma once

#include <QRect>
#include <QSize>

/// The places of everything in the editor for a picture of a given size. All lengths are twips.

struct EditorLayoutInput {
    QSize picture;  ///< As large as it shows.
    QSize screen;   ///< Room that a window may take.
    int toolbarHeight = 0;
    int titleBarExtra = 0;
    bool welcome = false;  ///< Nothing is open: the welcome picture shows.
    QSize form;            ///< Room below the menu of a window that has another size than its picture would give it.
    bool fills = false;    ///< The viewport takes all of `form`, also for a smaller picture.
    int horizontalMaximum =
        32767;  ///< Present maximum of hsc1; the steps of vsc1 follow it even when it was not set anew.
};

struct EditorLayout {
    QSize view;  ///< viewWidth, viewHeight
    QSize window;
    QRect viewport;    ///< picGd
    QSize picture;     ///< picYu (and img1)
    QRect background;  ///< shpBj

    struct Bar {
        bool visible = false;
        bool placed = false;  ///< `place` and `maximum` are set; otherwise the bar stays where it was.
        QRect place;
        int maximum = 0;
        int largeStep = 0, smallStep = 0;
    };
    Bar horizontal, vertical;
};

EditorLayout editorLayout(const EditorLayoutInput& input);

/// Room in `form` for a picture without scroll bars.
QSize pictureRoom(QSize form, int toolbarHeight);

/// The least window for a picture. A lower one is short; its background panel has another height once it has grown.
inline constexpr int leastWindowWidth = 9600;
inline constexpr int leastWindowHeight = 7200;
inline constexpr int grownBackgroundHeight = 6525;
