#include "catalogue/runs/picture_storing.h"

#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/base/unnamed_file.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int jpegQuality = 80;

bool endsInBmp(const QString& path) {
    return path.endsWith(u"bmp"_s);
}

void writeOver(const QString& path, const QByteArray& bytes) {
    UnnamedFile file(path);
    file.write(bytes);
    file.replace();
}

}  // namespace

bool canBecomeJpeg(const QString& path) {
    const QFileInfo file(path);
    // It is written beside its place and renamed over it.
    return endsInBmp(path) && file.size() > 0 && file.isWritable() && QFileInfo(file.canonicalPath()).isWritable();
}

QByteArray jpegOfBmp(PictureInHand& file, BmpFiles bmp) {
    // A file that an earlier run has turned: once more would cost it quality for nothing.
    if (!endsInBmp(file.path()) || file.length() == 0 || file.isJpeg()) return {};
    const QByteArray jpeg = encodeJpeg(file.load().image(), jpegQuality);
    if (bmp == BmpFiles::toJpeg && canBecomeJpeg(file.path())) attempt([&] { writeOver(file.path(), jpeg); });
    return jpeg;
}

// Writes one file into the column 图片.
qint64 bctp(PictureInHand& file, Recordset& recordset, BmpFiles bmp) {
    const QByteArray jpeg = jpegOfBmp(file, bmp);
    const Field picture = recordset.Fields(u"图片"_s);
    return jpeg.isEmpty() ? file.storeIn(picture) : storePictureBytes(picture, jpeg);
}
