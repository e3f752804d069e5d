#include "editor/editor_layout.h"

#include "platform/base/twips.h"

namespace {

constexpr int barThickness = 250;
constexpr int margin = 30;

/// How the picture meets the room that there is.
struct Fit {
    bool overWidth, overHeight;
    QSize view;
};

Fit fittedInto(QSize room, QSize picture, bool overWidth, bool overHeight) {
    return {overWidth,
            overHeight,
            {overWidth ? room.width() - (overHeight ? barThickness : 0) : picture.width(),
             overHeight ? room.height() - (overWidth ? barThickness : 0) : picture.height()}};
}

/// The window may take the screen.
Fit fittedToScreen(const EditorLayoutInput& input) {
    const QSize room(input.screen.width() - 150,
                     input.screen.height() - 765 - input.toolbarHeight - input.titleBarExtra);
    return fittedInto(room, input.picture, input.picture.width() > room.width(),
                      input.picture.height() > room.height());
}

/// The window stays as it is. A bar takes room that may make the other one necessary.
Fit fittedToWindow(const EditorLayoutInput& input) {
    const QSize least(barThickness, barThickness);
    const QSize room = pictureRoom(input.form, input.toolbarHeight).expandedTo(least);
    const QSize picture = input.picture;
    const QSize withBars = room - least;
    const bool overWidth =
        picture.width() > room.width() || (picture.height() > room.height() && picture.width() > withBars.width());
    const bool overHeight = picture.height() > room.height() || (overWidth && picture.height() > withBars.height());
    Fit fit = fittedInto(room, picture, overWidth, overHeight);
    if (input.fills)
        fit.view = {room.width() - (overHeight ? barThickness : 0), room.height() - (overWidth ? barThickness : 0)};
    return fit;
}

int windowWidth(const EditorLayoutInput& input, const Fit& fit) {
    if (fit.overWidth) return input.screen.width();
    if (input.picture.width() <= 9450) return leastWindowWidth;
    return fit.view.width() + 150 + (fit.overHeight ? barThickness : 0);
}

int windowHeight(const EditorLayoutInput& input, const Fit& fit) {
    if (fit.overHeight) return input.screen.height();
    if (input.picture.height() <= 6435) return leastWindowHeight;
    return fit.view.height() + 735 + input.titleBarExtra + input.toolbarHeight + (fit.overWidth ? barThickness : 0);
}

}  // namespace

QSize pictureRoom(QSize form, int toolbarHeight) {
    return {form.width() - 2 * margin, form.height() - toolbarHeight - 2 * margin};
}

EditorLayout editorLayout(const EditorLayoutInput& input) {
    const Fit fit = input.form.isEmpty() ? fittedToScreen(input) : fittedToWindow(input);
    const QSize view = fit.view;
    const QPoint corner(margin, input.toolbarHeight + margin);
    EditorLayout layout;
    layout.view = view;
    layout.window = {windowWidth(input, fit), windowHeight(input, fit)};

    const int horizontalMaximum = fit.overWidth ? input.picture.width() - view.width() : input.horizontalMaximum;
    const auto bar = [&](bool over, QRect place, int maximum) {
        return EditorLayout::Bar{over,
                                 over,
                                 place,
                                 maximum,
                                 roundHalfEven(horizontalMaximum / 10.0),
                                 roundHalfEven(horizontalMaximum / 20.0)};
    };
    layout.horizontal =
        bar(fit.overWidth, {margin, corner.y() + view.height(), view.width(), barThickness}, horizontalMaximum);
    layout.vertical = bar(fit.overHeight, {margin + view.width(), corner.y(), barThickness, view.height()},
                          input.picture.height() - view.height());
    if (input.welcome) layout.vertical.visible = false;

    layout.picture =
        input.welcome ? QSize(input.picture.width(), view.height() - input.toolbarHeight + 330) : input.picture;
    layout.viewport = {corner, input.welcome ? layout.picture : view};
    layout.background = {0, input.toolbarHeight, layout.window.width() - 85,
                         layout.window.height() - 680 - input.toolbarHeight - input.titleBarExtra};
    return layout;
}
