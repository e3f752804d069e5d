#include "settings/setup/setup_page.h"

#include "platform/base/error.h"

#include <QGroupBox>

using namespace Qt::Literals::StringLiterals;

SetupPage::SetupPage(const SettingsFrame& frame, Preview& preview)
    : hints_(frame.hints), buttons_(frame, preview), newAlbum_(frame), album_(frame), title_(frame), backup_(frame) {
    AlbumEntry& albums = frame.albums;
    QObject::connect(&newAlbum_, &NewAlbumGroup::created, &albums, [this, &albums](const QString& line) {
        albums.addLine(line);
        album_.addLine(line);
    });
    QObject::connect(&newAlbum_, &NewAlbumGroup::undone, &albums, [this, &albums](const QString& table) {
        albums.removeLine(table);
        album_.removeLine(table);
    });
    QObject::connect(&backup_, &BackupGroup::albumsChanged, &albums, [this, &albums] {
        albums.addMissing();
        album_.addMissing();
    });
}

PageLayout SetupPage::layout() const {
    return {.outerFrame = {255, 0, 255},
            .innerFrame = {192, 255, 255},
            .grid = {200, 400, 4330, 3400},
            .gridGrowth = fills,
            .gridGroup = buttons_.frame(),
            .gridHeadings = u"^序号|^编号|^ 名  称 |^      相 关 图 册      "_s};
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

void SetupPage::catalogueRestored() {
    album_.addMissing();
    attempt([&] { buttons_.reset(); });
}
