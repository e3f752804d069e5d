#include "catalogue/runs/picture_storing.h"

#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/base/odd_names.h"
#include "platform/base/unnamed_file.h"
#include "platform/picture/formats/any_picture.h"
#include "platform/picture/picture_size.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <optional>

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

/// The JPEG of a picture that is neither JPEG nor BMP; none for any other file. The bytes of the file go before the
/// JPEG is made: several threads do this at once.
QByteArray jpegOfOther(PictureInHand& file) {
    std::optional<AnyPicture> picture;
    file.use([&](QIODevice& bytes) {
        if (isOfOtherFormat(bytes)) picture = readAnyPicture(bytes, QDir::toNativeSeparators(file.path()));
    });
    if (!picture) return {};
    file.forgetBytes();
    return jpegOf(*picture);
}

QSize sizeOfJpeg(const QByteArray& jpeg, const QString& path) {
    QBuffer bytes;
    bytes.setData(jpeg);
    bytes.open(QIODevice::ReadOnly);
    return pictureSize(bytes, path);
}

/// Of a picture as an album keeps it.
void readAlbumFormat(ReadyPicture& picture) {
    picture.pixels = picture.file.pixels();
    picture.isTruncated = picture.file.wholeness() == PictureBytes::truncated;
    picture.jpeg = jpegOfBmp(picture.file);
    picture.isOfBmp = !picture.jpeg.isEmpty();
}

PictureFacts factsOf(ReadyPicture& picture) {
    QByteArray beginning = picture.jpeg;
    if (beginning.isEmpty()) picture.file.use([&](QIODevice& bytes) { beginning = bytes.peek(factsReach); });
    return pictureFacts(beginning);
}

}  // namespace

bool canBecomeJpeg(const QString& path) {
    const QFileInfo file(path);
    // It is written beside its place and renamed over it.
    if (!endsInBmp(path) || file.size() == 0 || !file.isWritable()) return false;
    QFile content;
    return QFileInfo(file.canonicalPath()).isWritable() && openForReading(content, path) && !isOfOtherFormat(content);
}

bool isOfOtherFormat(QIODevice& bytes) {
    const PictureFormat format = pictureFormat(bytes.peek(formatBytes));
    return format != PictureFormat::none && format != PictureFormat::jpeg && format != PictureFormat::bmp;
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

ReadyPicture readyPicture(const QString& path, PictureWish wish) {
    ReadyPicture picture{PictureInHand(path)};
    if (picture.file.length() == 0) return picture;
    if (wish.otherFormats) picture.jpeg = jpegOfOther(picture.file);
    if (picture.jpeg.isEmpty())
        readAlbumFormat(picture);
    else
        picture.pixels = sizeOfJpeg(picture.jpeg, path);
    picture.print = picture.jpeg.isEmpty() ? picture.file.fingerprint() : fingerprintOf(picture.jpeg);
    if (wish.facts) picture.facts = factsOf(picture);
    return picture;
}

qint64 bctp(ReadyPicture& picture, Recordset& recordset) {
    return store(picture.file, picture.jpeg, recordset);
}

void turnIntoJpeg(const ReadyPicture& picture) {
    if (picture.isOfBmp) attempt([&] { writeOver(picture.file, picture.jpeg); });
}
