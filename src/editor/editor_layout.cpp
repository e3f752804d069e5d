#include "editor/editor_layout.h"

#include "platform/base/twips.h"

namespace {

constexpr int barThickness = 250;
constexpr int margin = 30;

/// How the picture meets the room that the screen leaves.
struct Fit {
    bool overWidth, overHeight;
    QSize view;
};

Fit fitted(const EditorLayoutInput& input) {
    const int availableWidth = input.screen.width() - 150;
    const int availableHeight = input.screen.height() - 765 - input.toolbarHeight - input.titleBarExtra;
    const int width = input.picture.width();
    const int height = input.picture.height();
    const bool overWidth = width > availableWidth;
    const bool overHeight = height > availableHeight;
    return {overWidth,
            overHeight,
            {overWidth ? availableWidth - (overHeight ? barThickness : 0) : width,
             overHeight ? availableHeight - (overWidth ? barThickness : 0) : height}};
}

int windowWidth(const EditorLayoutInput& input, const Fit& fit) {
    if (fit.overWidth) return input.screen.width();
    if (input.picture.width() <= 9450) return 9600;
    return fit.view.width() + 150 + (fit.overHeight ? barThickness : 0);
}

int windowHeight(const EditorLayoutInput& input, const Fit& fit) {
    if (fit.overHeight) return input.screen.height();
    if (input.picture.height() <= 6435) return leastWindowHeight;
    return fit.view.height() + 735 + input.titleBarExtra + input.toolbarHeight + (fit.overWidth ? barThickness : 0);
}

}  // namespace

EditorLayout editorLayout(const EditorLayoutInput& input) {
    const Fit fit = fitted(input);
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
