#include "editor/view_settings.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int shownToolBarHeight = 330;
constexpr int chooserTopAlone = 200;
const QString toolBarColumn = u"处理工具条"_s;
const QString hintColumn = u"处理提示"_s;

Recordset settingsRow() {
    Recordset settings = mekTp::catalogue.OpenRecordset(u"tcsz"_s);
    settings.MoveFirst();
    return settings;
}

void store(const QString& column, bool value) {
    Recordset settings = settingsRow();
    settings.Edit();
    settings.Fields(column).SetValue(value);
    settings.Update();
}

bool stored(const QString& column) {
    bool value = true;  // also without a catalogue the editor has its tools
    attempt([&] { value = settingsRow().Fields(column).Value().toBool(); });
    return value;
}

}  // namespace

ViewSettings::ViewSettings(EditorState& state, Commands& commands, EditorView& view)
    : QObject(&view), state_(state), commands_(commands), view_(view) {}

void ViewSettings::read() {
    applyToolBar(stored(toolBarColumn));
    applyHints(stored(hintColumn));
}

void ViewSettings::applyToolBar(bool shown) {
    state_.toolbarHeight = shown ? shownToolBarHeight : 0;
    commands_.showToggle(commands_.mnuGx, u"gj"_s, shown ? u"隐藏工具条"_s : u"显示工具条"_s,
                         shown ? u"gg"_s : u"gj"_s);
}

void ViewSettings::applyHints(bool shown) {
    hintsOn_ = shown;
    view_.setHintsOn(shown);
    commands_.showToggle(commands_.mnuTg, u"ts"_s, shown ? u"关闭提示"_s : u"打开提示"_s, shown ? u"tg"_s : u"ts"_s);
}

void ViewSettings::mnuGxClick() {
    const bool shown = state_.toolbarHeight == 0;
    applyToolBar(shown);
    if (!view_.picCs->isHidden()) {
        // The window is the chooser's now, whatever picture is behind it.
        place(view_.picCs, leftOf(view_.picCs), shown ? state_.toolbarHeight : chooserTopAlone);
        view_.showBar();
    } else {
        view_.pmsz();
    }
    view_.centreHint();
    store(toolBarColumn, shown);
}

void ViewSettings::mnuTgClick() {
    applyHints(!hintsOn_);
    const bool shown = hintsOn_;
    if (state_.isOpen) view_.tscz(state_.editState);
    store(hintColumn, shown);
}
