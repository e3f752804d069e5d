#include "settings/setup_page.h"

#include "platform/base/error.h"
#include "settings/album_lines.h"

using namespace Qt::Literals::StringLiterals;

SetupPage::SetupPage(SharedControls& controls, FormState& state, HintLine& hints, PreviewPanel& preview)
    : hints_(hints),
      buttons_(controls, state, hints, preview),
      newAlbum_(controls, state),
      album_(controls, state),
      title_(controls, state),
      backup_(controls) {
    QComboBox* cboBm = controls.cboBm;
    QObject::connect(&newAlbum_, &NewAlbumGroup::created, cboBm, [this, cboBm](const QString& line) {
        addAlbumLine(*cboBm, line);
        album_.addLine(line);
    });
    QObject::connect(&newAlbum_, &NewAlbumGroup::undone, cboBm, [this, cboBm](const QString& table) {
        removeAlbumLine(*cboBm, table);
        album_.removeLine(table);
    });
}

void SetupPage::enter() {
    hints_.show(
        u"操作提示：按《开始》或《编辑》按钮开始操作。如修改图片选择按钮请在上表中点击，如添加请按添加按钮。"_s);
    newAlbum_.reset();
    attempt([&] { buttons_.reset(); });
    title_.reset();
    attempt([&] { album_.reset(); });
    backup_.reset();
}

bool SetupPage::mayLeave() {
    return newAlbum_.mayLeave() && album_.mayLeave() && title_.mayLeave() && buttons_.mayLeave();
}
