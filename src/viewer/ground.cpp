#include "viewer/ground.h"

#include "platform/desktop/theme.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

QColor inkOn(const QColor& ground) {
    return theme::readable(theme::worn().ink, ground);
}

}  // namespace

void setGround(QWidget* part, const QColor& ground) {
    QPalette palette = QApplication::palette(part);
    const QColor ink = inkOn(ground);
    palette.setColor(QPalette::Window, ground);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, ink);
        palette.setColor(QPalette::Disabled, role, theme::faded(ink, ground));
    }
    part->setPalette(palette);
}

void setInkFor(QWidget* part, const QColor& ground) {
    QPalette palette = QApplication::palette(part);
    palette.setColor(QPalette::Text, inkOn(ground));
    part->setPalette(palette);
}

// The program's own style sheet colours bars for the ground of the other windows. Another sheet takes time at start-up.
QString barStyle(const QColor& ground) {
    const QColor ink = inkOn(ground);
    if (ink == theme::worn().ink) return {};
    return u"QMenuBar::item { color: %1; } QMenuBar::item:disabled { color: %2; }"
           "QMenuBar::item:selected, QMenuBar::item:pressed, QToolButton:hover { background: %3; }"
           "QToolButton:focus { border-color: %4; } QStatusBar { border-top: 1px solid %5; }"
           "QStatusBar QLabel { color: %1; border-left: 1px solid %5; }"
           "QStatusBar QLabel[objectName=\"sta1:1\"] { border-left: 0px; }"_s.arg(
               ink.name(), theme::faded(ink, ground).name(), theme::mixed(ground, ink, 0.12).name(),
               theme::readable(theme::worn().accent, ground, theme::signContrast).name(),
               theme::mixed(ground, ink, 0.18).name());
}
