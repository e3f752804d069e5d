#include "editor/view_settings.h"

#include "catalogue/settings_row.h"
#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString toolBarColumn = u"处理工具条"_s;
const QString hintColumn = u"处理提示"_s;

bool stored(const QString& column) {
    bool value = true;  // also without a catalogue the editor has its tools
    attempt([&] { value = setting(column).toBool(); });
    return value;
}

}  // namespace

ViewSettings::ViewSettings(const Workplace& at) : Chapter(at) {
    commands_.onCommand(u"gj"_s, [this] { mnuGxClick(); });
    commands_.onCommand(u"ts"_s, [this] { mnuTgClick(); });
}

void ViewSettings::read() {
    applyToolBar(stored(toolBarColumn));
    applyHints(stored(hintColumn));
}

void ViewSettings::applyToolBar(bool shown) {
    view_.setToolBarShown(shown);
    commands_.showToggle(u"gj"_s, shown ? u"隐藏工具条"_s : u"显示工具条"_s, shown ? u"gg"_s : u"gj"_s);
}

void ViewSettings::applyHints(bool shown) {
    hintsOn_ = shown;
    view_.hint().setOn(shown);
    commands_.showToggle(u"ts"_s, shown ? u"关闭提示"_s : u"打开提示"_s, shown ? u"tg"_s : u"ts"_s);
}

/// Shows or hides the tool bar.
void ViewSettings::mnuGxClick() {
    const bool shown = view_.toolbarHeight() == 0;
    applyToolBar(shown);
    Q_EMIT toolBarChanged();
    view_.hint().lay();
    storeSetting(toolBarColumn, shown);
}

/// Lets the hint box show, or not.
void ViewSettings::mnuTgClick() {
    applyHints(!hintsOn_);
    const bool shown = hintsOn_;
    if (document_.isOpen()) view_.hint().tscz(document_.code());
    storeSetting(hintColumn, shown);
}
