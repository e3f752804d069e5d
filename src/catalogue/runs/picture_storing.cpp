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

/// The file is replaced only when it is still the one that the JPEG was made of.
void writeOver(const PictureInHand& file, const QByteArray& jpeg) {
    if (!canBecomeJpeg(file.path()) || !file.isUnchanged()) return;
    UnnamedFile written(file.path());
    written.write(jpeg);
    written.replace();
}

qint64 store(PictureInHand& file, const QByteArray& jpeg, Recordset& recordset) {
    const Field picture = recordset.Fields(u"图片"_s);
    return jpeg.isEmpty() ? file.storeIn(picture) : storePictureBytes(picture, jpeg);
}

}  // namespace

bool canBecomeJpeg(const QString& path) {
    const QFileInfo file(path);
    // It is written beside its place and renamed over it.
    return endsInBmp(path) && file.size() > 0 && file.isWritable() && QFileInfo(file.canonicalPath()).isWritable();
}

QByteArray jpegOfBmp(PictureInHand& file) {
    // A file that an earlier run has turned: once more would cost it quality for nothing.
    if (!endsInBmp(file.path()) || file.length() == 0 || file.isJpeg()) return {};
    const Picture picture = file.load({}, Colours::ofFile);
    return encodeJpeg(picture.image(), jpegQuality, picture.profile());
}

// Writes one file into the column 图片.
qint64 bctp(PictureInHand& file, Recordset& recordset, BmpFiles bmp) {
    const QByteArray jpeg = jpegOfBmp(file);
    if (!jpeg.isEmpty() && bmp == BmpFiles::toJpeg) attempt([&] { writeOver(file, jpeg); });
    return store(file, jpeg, recordset);
}

ReadyPicture readyPicture(const QString& path) {
    ReadyPicture picture{PictureInHand(path)};
    if (picture.file.length() == 0) return picture;
    picture.pixels = picture.file.pixels();
    picture.isTruncated = picture.file.wholeness() == PictureBytes::truncated;
    picture.jpeg = jpegOfBmp(picture.file);
    picture.print = picture.jpeg.isEmpty() ? picture.file.fingerprint() : fingerprintOf(picture.jpeg);
    return picture;
}

qint64 bctp(ReadyPicture& picture, Recordset& recordset) {
    return store(picture.file, picture.jpeg, recordset);
}

void turnIntoJpeg(const ReadyPicture& picture) {
    if (!picture.jpeg.isEmpty()) attempt([&] { writeOver(picture.file, picture.jpeg); });
}
