#include "platform/desktop/look.h"

#include "platform/desktop/accessibility.h"
#include "platform/desktop/habits.h"
#include "platform/desktop/look_style.h"
#include "platform/desktop/theme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

using namespace Qt::Literals::StringLiterals;

namespace {

// The forms are laid out in twips for a text of this height, in logical pixels.
constexpr int textHeight = 12;

QFont programFont() {
    QFont font;
    font.setFamilies({u"Noto Sans CJK SC"_s, u"Source Han Sans SC"_s, u"Microsoft YaHei"_s, u"PingFang SC"_s,
                      u"WenQuanYi Micro Hei"_s, u"sans-serif"_s});
    font.setPixelSize(textHeight);
    return font;
}

QPalette programColours() {
    const QColor window(0xf5, 0xf2, 0xec);
    const QColor ink(0x2b, 0x2a, 0x28);

    QPalette colours;
    colours.setColor(QPalette::Window, window);
    colours.setColor(QPalette::WindowText, ink);
    colours.setColor(QPalette::Base, QColor(0xff, 0xfe, 0xfb));
    colours.setColor(QPalette::AlternateBase, QColor(0xf8, 0xf5, 0xef));
    colours.setColor(QPalette::Text, ink);
    colours.setColor(QPalette::PlaceholderText, theme::muted);
    colours.setColor(QPalette::Button, QColor(0xfb, 0xf9, 0xf5));
    colours.setColor(QPalette::ButtonText, ink);
    colours.setColor(QPalette::BrightText, Qt::white);
    colours.setColor(QPalette::Light, Qt::white);
    colours.setColor(QPalette::Midlight, QColor(0xec, 0xe7, 0xdd));
    colours.setColor(QPalette::Mid, theme::dial);
    colours.setColor(QPalette::Dark, theme::firmEdge);
    colours.setColor(QPalette::Shadow, theme::shade);
    colours.setColor(QPalette::Highlight, theme::accent);
    colours.setColor(QPalette::HighlightedText, Qt::white);
    colours.setColor(QPalette::Link, theme::accent);
    colours.setColor(QPalette::LinkVisited, QColor(0x6a, 0x5a, 0x8c));
    colours.setColor(QPalette::ToolTipBase, QColor(0x35, 0x33, 0x2f));
    colours.setColor(QPalette::ToolTipText, QColor(0xfb, 0xf8, 0xf1));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, theme::muted);
    colours.setColor(QPalette::Disabled, QPalette::Base, QColor(0xf3, 0xef, 0xe7));
    colours.setColor(QPalette::Disabled, QPalette::Highlight, theme::dial);
    colours.setColor(QPalette::Disabled, QPalette::HighlightedText, ink);
    return colours;
}

// Only what all windows share. The rules leave the ground of plain panels and labels alone, so that a window can set
// colours of its own on them.
QString details() {
    return theme::filledIn(
        uR"(
QPushButton {
    background: @panel; border: 1px solid @edge; border-radius: 4px; padding: 0px 4px; min-height: 0px;
}
QPushButton:hover { background: @accentTint; border-color: @accent; }
QPushButton:pressed { background: #d5e6ec; }
QPushButton:checked { background: #d5e6ec; border-color: @accent; }
QPushButton:default { border-color: @accent; }
QPushButton:focus { border: 2px solid @accent; padding: 0px 3px; }
QPushButton:disabled { background: #f3efe7; border-color: #ddd6c9; color: #9a9488; }
QMessageBox QPushButton, QFileDialog QPushButton, QColorDialog QPushButton {
    min-width: 68px; min-height: 22px; padding: 1px 8px;
}

QToolButton { border: 1px solid transparent; border-radius: 4px; padding: 0px; background: transparent; }
QToolButton:hover { background: #e4eef1; border-color: #b9d2db; }
QToolButton:pressed, QToolButton:checked { background: #cfe2e9; border-color: @accent; }
QToolButton:focus { border: 2px solid @accent; }
QToolButton:disabled { color: #b3ac9f; }

QGroupBox { border: 1px solid @line; border-radius: 5px; margin-top: 7px; }
QGroupBox::title {
    subcontrol-origin: margin; subcontrol-position: top left; left: 8px; padding: 0px 3px; color: @accent;
}
QGroupBox::title:disabled { color: @muted; }

QLineEdit { border: 1px solid @edge; border-radius: 3px; padding: 0px 2px; }
QLineEdit:hover { border-color: @firmEdge; }
QLineEdit:focus { border-color: @accent; }
QLineEdit:read-only { background: #efebe3; border-color: @line; }
QLineEdit:read-only:focus { border-color: @accent; }
QLineEdit:disabled { background: #f3efe7; border-color: #ddd6c9; color: #9a9488; }

QCheckBox, QRadioButton { spacing: 4px; }
QCheckBox::indicator, QRadioButton::indicator { width: 13px; height: 13px; }

QListView, QTreeView, QTableView, QTextEdit { border: 1px solid @edge; outline: 0px; }
QListView:focus, QTreeView:focus, QTableView:focus, QTextEdit:focus { border-color: @accent; }
QListView::item { min-height: 17px; padding: 0px 1px; border: 0px; }
QListView::item:hover:enabled { background: #e9f1f4; color: #2b2a28; }
QListView::item:selected:enabled { background: @accent; color: #ffffff; }
QListView::item:selected:!active:enabled { background: #3f849c; color: #ffffff; }
QTableView { gridline-color: #ebe5da; selection-background-color: @accent; selection-color: #ffffff; }
QTableView::item { padding: 0px 3px; border: 0px; }
QTableView:disabled {
    background: #f3efe7; color: #9a9488; alternate-background-color: #f0ebe2;
    selection-background-color: #dcd5c8; selection-color: @shade;
}
QHeaderView { background: #f1ece3; border: 0px; }
QHeaderView::section {
    background: #f1ece3; color: #5d574c; border: 0px; border-right: 1px solid #e1dacd;
    border-bottom: 1px solid @line; padding: 0px 3px;
}

QScrollBar:vertical { background: #f1ede4; width: 11px; margin: 0px; border: 0px; }
QScrollBar:horizontal { background: #f1ede4; height: 11px; margin: 0px; border: 0px; }
QScrollBar::handle { background: #cbc3b4; border-radius: 4px; margin: 1px; }
QScrollBar::handle:vertical { min-height: 24px; }
QScrollBar::handle:horizontal { min-width: 24px; }
QScrollBar::handle:hover { background: @firmEdge; }
QScrollBar::handle:pressed { background: @accent; }
QScrollBar::handle:disabled { background: @groove; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0px; height: 0px; border: 0px; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QAbstractScrollArea::corner { background: transparent; }

QTabBar { font-size: 12px; }
QTabBar::tab {
    height: 24px; width: 62px; margin: 0px; padding: 0px; border: 0px; color: #5d574c;
    border-bottom: 2px solid #ddd6c9; background: transparent;
}
QTabBar::tab:hover:!selected { background: #ece6da; color: #2b2a28; border-bottom-color: @edge; }
QTabBar::tab:selected { color: @accent; background: #fffefb; border-bottom-color: @accent; }
QTabBar::tab:disabled { color: #b3ac9f; }

QProgressBar {
    border: 1px solid @edge; border-radius: 3px; background: #fffefb; text-align: center;
}
QProgressBar::chunk { background: @accent; border-radius: 2px; }

QMenuBar { background: transparent; padding: 0px; }
QMenuBar::item { padding: 3px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: #e4eef1; }
QMenuBar::item:pressed { background: #cfe2e9; }
QMenuBar::item:disabled { color: #b3ac9f; }
QMenu { background: #fffefb; border: 1px solid @edge; padding: 4px; }
QMenu::item { padding: 4px 24px 4px 22px; border-radius: 3px; }
QMenu::item:selected { background: @accent; color: #ffffff; }
QMenu::item:disabled { color: #a59e92; background: transparent; }
QMenu::separator { height: 1px; background: @groove; margin: 4px 8px; }

QStatusBar { border-top: 1px solid #ddd6c9; }
QStatusBar::item { border: 0px; }
QToolTip { background: #35332f; color: #fbf8f1; border: 1px solid #35332f; padding: 2px 5px; }
)"_s);
}

}  // namespace

void applyLook(QApplication& application) {
    QApplication::setStyle(new LookStyle);
    QApplication::setFont(programFont());
    QApplication::setPalette(programColours());
    application.setStyleSheet(details());
    application.installEventFilter(new Accessibility(&application));
    application.installEventFilter(new Habits(&application));
}
