#include "settings/frame/bmp_question.h"

#include "platform/desktop/message_box.h"
#include "settings/frame/name_lists.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

QString bmpQuestion(const QStringList& names) {
    const QString which = names.size() == 1 ? u"“%1”是 BMP 文件。"_s.arg(names.first())
                                            : u"其中有 %1 个 BMP 文件："_s.arg(names.size()) + someOf(names);
    return which +
           u"\n\n存入的图片转成 JPG。磁盘上的文件也变成 JPG（文件名不变），按《转成 JPG》；\n"
           "磁盘上的文件不动，按《保留原文件》；不存入按《取消》。"_s;
}

}  // namespace

std::optional<BmpFiles> askAboutBmp(QWidget* parent, const QStringList& paths) {
    QStringList names;
    for (const QString& path : paths)
        if (canBecomeJpeg(path)) names << QFileInfo(path).fileName();
    if (names.isEmpty()) return BmpFiles::keep;
    constexpr int turn = 0, keep = 1, cancel = 2;
    switch (choose(parent, bmpQuestion(names), {u"转成 JPG"_s, u"保留原文件"_s, u"取消"_s}, keep, cancel)) {
        case turn:
            return BmpFiles::toJpeg;
        case keep:
            return BmpFiles::keep;
        default:
            return {};
    }
}
