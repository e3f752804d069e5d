#include "editor/opening.h"

#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/file_dialogs.h"

#include <QScopeGuard>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int jpegFilter = 2;
}  // namespace

Opening::Opening(const Workplace& at, AlbumChooser& chooser, std::function<bool()> mayGo)
    : Chapter(at), chooser_(chooser), mayGo_(std::move(mayGo)) {
    commands_.onCommand(u"wk"_s, [this] { mnuCwClick(); });
}

/// Asks for a file and opens it.
void Opening::mnuCwClick() {
    const bool wasChoosing = chooser_.isOpen();
    chooser_.hide();
    auto back = qScopeGuard([&] {
        if (wasChoosing) chooser_.showAgain();
    });
    const QString path = askOpenFile(form_, u"打开图片文件  （选中后按“打开”，放弃选择按“取消”）"_s,
                                     u"BMP文件|*.bmp|JPG文件|*.jpg|所有文件|*.*"_s, {}, jpegFilter);
    if (path.isEmpty() || !mayGo_()) return;
    open(path);
    back.dismiss();
}

/// A file that cannot be read leaves everything as it was.
void Opening::open(const QString& path) {
    const Hourglass hourglass;
    const Picture picture = LoadPicture(path, {}, Colours::ofFile);
    const qint64 bytes = FileLen(path);
    const PictureFile file{path, bytes, {picture.Width(), picture.Height()}, bytes};
    attempt([&] { document_.clearSteps(); });
    document_.open(file, picture, view_.hint().text());
}
