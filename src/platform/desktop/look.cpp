#include "platform/desktop/look.h"

#include "platform/desktop/accessibility.h"
#include "platform/desktop/habits.h"
#include "platform/desktop/look_style.h"
#include "platform/desktop/theme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <initializer_list>
#include <utility>

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
    const theme::Colours& worn = theme::worn();
    QPalette colours;
    for (const auto& [role, colour] : std::initializer_list<std::pair<QPalette::ColorRole, QColor>>{
             {QPalette::Window, worn.window},     {QPalette::WindowText, worn.ink},
             {QPalette::Base, worn.base},         {QPalette::AlternateBase, worn.alternate},
             {QPalette::Text, worn.ink},          {QPalette::PlaceholderText, worn.faint},
             {QPalette::Button, worn.button},     {QPalette::ButtonText, worn.ink},
             {QPalette::BrightText, Qt::white},   {QPalette::Light, worn.lit},
             {QPalette::Midlight, worn.midlight}, {QPalette::Mid, worn.dial},
             {QPalette::Dark, worn.firmEdge},     {QPalette::Shadow, worn.shade},
             {QPalette::Highlight, worn.accent},  {QPalette::HighlightedText, worn.onAccent},
             {QPalette::Link, worn.accent},       {QPalette::LinkVisited, worn.visited},
             {QPalette::ToolTipBase, worn.tip},   {QPalette::ToolTipText, worn.tipText}})
        colours.setColor(role, colour);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText})
        colours.setColor(QPalette::Disabled, role, worn.muted);
    colours.setColor(QPalette::Disabled, QPalette::Base, worn.off);
    colours.setColor(QPalette::Disabled, QPalette::Highlight, worn.dial);
    colours.setColor(QPalette::Disabled, QPalette::HighlightedText, worn.ink);
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
QPushButton:pressed { background: @pressed; }
QPushButton:checked { background: @pressed; border-color: @accent; }
QPushButton:default { border-color: @accent; }
QPushButton:focus { border: 2px solid @accent; padding: 0px 3px; }
QPushButton:disabled { background: @off; border-color: @offEdge; color: @muted; }
QMessageBox QPushButton, QFileDialog QPushButton, QColorDialog QPushButton {
    min-width: 68px; min-height: 22px; padding: 1px 8px;
}

QToolButton { border: 1px solid transparent; border-radius: 4px; padding: 0px; background: transparent; }
QToolButton:hover { background: @hover; border-color: @hoverEdge; }
QToolButton:pressed, QToolButton:checked { background: @pressed; border-color: @accent; }
QToolButton:focus { border: 2px solid @accent; }
QToolButton:disabled { color: @muted; }

QGroupBox { border: 1px solid @line; border-radius: 5px; margin-top: 7px; }
QGroupBox::title {
    subcontrol-origin: margin; subcontrol-position: top left; left: 8px; padding: 0px 3px; color: @accent;
}
QGroupBox::title:disabled { color: @muted; }

QLineEdit { border: 1px solid @edge; border-radius: 3px; padding: 0px 2px; }
QLineEdit:hover { border-color: @firmEdge; }
QLineEdit:focus { border-color: @accent; }
QLineEdit:read-only { background: @locked; border-color: @line; }
QLineEdit:read-only:focus { border-color: @accent; }
QLineEdit:disabled { background: @off; border-color: @offEdge; color: @muted; }

QCheckBox, QRadioButton { spacing: 4px; }
QCheckBox::indicator, QRadioButton::indicator { width: 13px; height: 13px; }

QListView, QTreeView, QTableView, QTextEdit { border: 1px solid @edge; outline: 0px; }
QListView:focus, QTreeView:focus, QTableView:focus, QTextEdit:focus { border-color: @accent; }
QListView::item { min-height: 17px; padding: 0px 1px; border: 0px; }
QListView::item:hover:enabled { background: @hover; color: @ink; }
QListView::item:selected:enabled { background: @accent; color: @onAccent; }
QListView::item:selected:!active:enabled { background: @quietChoice; color: @onAccent; }
QTableView { gridline-color: @groove; selection-background-color: @accent; selection-color: @onAccent; }
QTableView::item { padding: 0px 3px; border: 0px; }
QTableView:disabled {
    background: @off; color: @muted; alternate-background-color: @locked;
    selection-background-color: @dial; selection-color: @faint;
}
QHeaderView { background: @header; border: 0px; }
QHeaderView::section {
    background: @header; color: @headerText; border: 0px; border-right: 1px solid @line;
    border-bottom: 1px solid @line; padding: 0px 3px;
}

QScrollBar:vertical { background: @header; width: 11px; margin: 0px; border: 0px; }
QScrollBar:horizontal { background: @header; height: 11px; margin: 0px; border: 0px; }
QScrollBar::handle { background: @handle; border-radius: 4px; margin: 1px; }
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
    height: 24px; width: 62px; margin: 0px; padding: 0px; border: 0px; color: @headerText;
    border-bottom: 2px solid @offEdge; background: transparent;
}
QTabBar::tab:hover:!selected { background: @groove; color: @ink; border-bottom-color: @edge; }
QTabBar::tab:selected { color: @accent; background: @base; border-bottom-color: @accent; }
QTabBar::tab:disabled { color: @muted; }

QProgressBar {
    border: 1px solid @edge; border-radius: 3px; background: @base; text-align: center;
}
QProgressBar::chunk { background: @accent; border-radius: 2px; }

QMenuBar { background: transparent; padding: 0px; }
QMenuBar::item { padding: 3px 9px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected { background: @hover; }
QMenuBar::item:pressed { background: @pressed; }
QMenuBar::item:disabled { color: @muted; }
QMenu { background: @base; border: 1px solid @edge; padding: 4px; }
QMenu::item { padding: 4px 24px 4px 22px; border-radius: 3px; }
QMenu::item:selected { background: @accent; color: @onAccent; }
QMenu::item:disabled { color: @muted; background: transparent; }
QMenu::separator { height: 1px; background: @groove; margin: 4px 8px; }

Surface[isDialog="true"] { background: @panel; border: 1px solid @firmEdge; border-radius: 6px; }

QStatusBar { border-top: 1px solid @offEdge; }
QStatusBar::item { border: 0px; }
QStatusBar QLabel { border-left: 1px solid @line; }
QStatusBar QLabel[objectName="sta1:1"] { border-left: 0px; }
QToolTip { background: @tip; color: @tipText; border: 1px solid @tip; padding: 2px 5px; }
)"_s);
}

void wearWorn() {
    QApplication::setPalette(programColours());
    qApp->setStyleSheet(details());
}

}  // namespace

void applyLook(QApplication& application) {
    QApplication::setStyle(new LookStyle);
    QApplication::setFont(programFont());
    wearWorn();
    application.installEventFilter(new Accessibility(&application));
    application.installEventFilter(new Habits(&application));
}

void wearColours(const theme::Colours& colours) {
    if (colours == theme::worn()) return;
    theme::setWorn(colours);
    if (!qApp->styleSheet().isEmpty()) wearWorn();
}
