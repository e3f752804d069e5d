#include "intake/bmp_files.h"

#include "intake/intake_texts.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"
#include "platform/desktop/message_box.h"
#include "platform/picture/picture.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int jpegQuality = 80;

bool endsInBmp(const QString& path) {
    return path.endsWith(u"bmp"_s);
}

/// A file that an earlier run has turned: once more would cost it quality for nothing.
bool isJpegAlready(const QString& path) {
    QFile file;
    return openForReading(file, path) && file.read(2) == QByteArray("\xff\xd8");
}

QString question(const QStringList& names) {
    const QString which = names.size() == 1 ? u"“%1”是 BMP 文件。"_s.arg(names.first())
                                            : u"其中有 %1 个 BMP 文件："_s.arg(names.size()) + someOf(names);
    return which +
           u"\n\n存入的图片转成 JPG。磁盘上的文件也变成 JPG（文件名不变），按《转成 JPG》；\n"
           "磁盘上的文件不动，按《保留原文件》；不存入按《取消》。"_s;
}

}  // namespace

bool canBecomeJpeg(const QString& path) {
    const QFileInfo file(path);
    // It is written beside its place and renamed over it.
    return endsInBmp(path) && file.size() > 0 && file.isWritable() && QFileInfo(file.canonicalPath()).isWritable();
}

std::optional<BmpFiles> askAboutBmp(QWidget* parent, const QStringList& paths) {
    QStringList names;
    for (const QString& path : paths)
        if (canBecomeJpeg(path)) names << QFileInfo(path).fileName();
    if (names.isEmpty()) return BmpFiles::keep;
    constexpr int turn = 0, keep = 1, cancel = 2;
    switch (choose(parent, question(names), {u"转成 JPG"_s, u"保留原文件"_s, u"取消"_s}, keep, cancel)) {
        case turn:
            return BmpFiles::toJpeg;
        case keep:
            return BmpFiles::keep;
        default:
            return {};
    }
}

QByteArray convertBmp(const QString& path, BmpFiles bmp) {
    if (!endsInBmp(path) || FileLen(path) == 0 || isJpegAlready(path)) return {};
    const QImage picture = LoadPicture(path).image();
    if (bmp == BmpFiles::toJpeg && canBecomeJpeg(path) && attempt([&] { saveJpeg(picture, path, jpegQuality); }))
        return {};
    return encodeJpeg(picture, jpegQuality);
}
