#include "viewer/ground.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace {
const QColor lightInk(0xe6, 0xea, 0xef), fadedLightInk(0x8b, 0x93, 0x9d);
}  // namespace

bool isDark(const QColor& ground) {
    return qGray(ground.rgb()) < 128;
}

void setGround(QWidget* part, const QColor& ground) {
    QPalette palette = QApplication::palette(part);
    palette.setColor(QPalette::Window, ground);
    if (isDark(ground)) {
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) {
            palette.setColor(role, lightInk);
            palette.setColor(QPalette::Disabled, role, fadedLightInk);
        }
    }
    part->setPalette(palette);
}

void setInkFor(QWidget* part, const QColor& ground) {
    QPalette palette = QApplication::palette(part);
    if (isDark(ground)) palette.setColor(QPalette::Text, lightInk);
    part->setPalette(palette);
}

// The program's own style sheet colours bars for light grounds.
QString barStyle(const QColor& ground) {
    if (!isDark(ground)) return {};
    return u"QMenuBar::item { color: %1; }"
           "QMenuBar::item:selected, QMenuBar::item:pressed, QToolButton:hover { background: rgba(255, 255, 255, 40); }"
           "QToolButton:focus { border-color: #8fd0e6; }"
           "QMenuBar::item:disabled { color: %2; } QToolButton:hover { border-color: transparent; }"
           "QStatusBar { border-top: 1px solid rgba(255, 255, 255, 40); } QStatusBar QLabel { color: %1; }"_s.arg(
               lightInk.name(), fadedLightInk.name());
}
