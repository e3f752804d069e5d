#include "platform/picture/picture_tags.h"

#include "platform/base/error.h"
#include "platform/picture/exif_library.h"
#include "platform/picture/picture.h"
#include "platform/picture/picture_size.h"

#include <QBuffer>

using namespace Qt::Literals::StringLiterals;

struct PictureTags::Blocks {
    Exiv2::ExifData exif;
    Exiv2::IptcData iptc;
    Exiv2::XmpData xmp;
    std::string comment;
};

namespace {

constexpr QSize previewBox(160, 120);  // the size that the standard for cameras sets
constexpr int previewQuality = 80;

template <class Key, class Tags>
void changeIfThere(Tags& tags, std::initializer_list<const char*> names, int value) {
    for (const char* name : names) {
        const auto found = tags.findKey(Key(name));
        if (found != tags.end()) found->setValue(std::to_string(value));
    }
}

void tellUpright(Exiv2::ExifData& exif, Exiv2::XmpData& xmp) {
    changeIfThere<Exiv2::ExifKey>(exif, {"Exif.Image.Orientation"}, uprightOrientation);
    changeIfThere<Exiv2::XmpKey>(xmp, {"Xmp.tiff.Orientation"}, uprightOrientation);
}

void tellSize(Exiv2::ExifData& exif, Exiv2::XmpData& xmp, QSize pixels) {
    if (!exif.empty()) {
        exif["Exif.Photo.PixelXDimension"] = uint32_t(pixels.width());
        exif["Exif.Photo.PixelYDimension"] = uint32_t(pixels.height());
    }
    changeIfThere<Exiv2::ExifKey>(exif, {"Exif.Image.ImageWidth"}, pixels.width());
    changeIfThere<Exiv2::ExifKey>(exif, {"Exif.Image.ImageLength"}, pixels.height());
    changeIfThere<Exiv2::XmpKey>(xmp, {"Xmp.tiff.ImageWidth", "Xmp.exif.PixelXDimension"}, pixels.width());
    changeIfThere<Exiv2::XmpKey>(xmp, {"Xmp.tiff.ImageLength", "Xmp.exif.PixelYDimension"}, pixels.height());
}

QSize sizeOf(const QByteArray& jpeg) {
    QBuffer device;
    device.setData(jpeg);
    device.open(QIODevice::ReadOnly);
    return pictureSize(device, u"picture"_s);
}

void renewPreview(Exiv2::ExifData& exif, const QByteArray& jpeg) {
    Exiv2::ExifThumb preview(exif);
    if (preview.copy().size_ == 0) return;
    const QImage small = LoadPicture(jpeg, u"preview"_s, previewBox)
                             .image()
                             .scaled(previewBox, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const QByteArray bytes = encodeJpeg(small, previewQuality);
    preview.setJpegThumbnail(reinterpret_cast<const Exiv2::byte*>(bytes.constData()), long(bytes.size()));
}

}  // namespace

QByteArray PictureTags::written(const QByteArray& jpeg, const Blocks& blocks) {
    const auto image = openedTags(jpeg);
    image->setExifData(blocks.exif);
    image->setIptcData(blocks.iptc);
    image->setXmpData(blocks.xmp);
    image->setComment(blocks.comment);
    image->writeMetadata();
    Exiv2::BasicIo& file = image->io();
    file.open();
    const Exiv2::DataBuf bytes = file.read(long(file.size()));
    return {reinterpret_cast<const char*>(bytes.pData_), qsizetype(bytes.size_)};
}

/// The library leaves large tags out without a word where a segment has no room for them.
bool PictureTags::hasAll(const QByteArray& jpeg, const Blocks& blocks) {
    const auto exif = openedTags(jpeg)->exifData();
    return std::all_of(blocks.exif.begin(), blocks.exif.end(), [&](const Exiv2::Exifdatum& tag) {
        return exif.findKey(Exiv2::ExifKey(tag.key())) != exif.end();
    });
}

PictureTags::PictureTags(const QByteArray& jpeg) {
    if (!jpeg.startsWith("\xff\xd8")) return;
    try {
        const auto image = openedTags(jpeg);
        const bool isBare = image->exifData().empty() && image->iptcData().empty() && image->xmpData().empty() &&
                            image->comment().empty();
        if (isBare) return;
        blocks_ =
            std::make_shared<Blocks>(Blocks{image->exifData(), image->iptcData(), image->xmpData(), image->comment()});
    } catch (const Exiv2::AnyError&) {
        isUnreadable_ = true;
    }
}

Orientation PictureTags::orientation() const {
    if (isEmpty()) return uprightOrientation;
    const auto found = blocks_->exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    const long value = found == blocks_->exif.end() || found->count() == 0 ? 0 : found->toLong();
    return value >= 1 && value <= 8 ? Orientation(value) : uprightOrientation;
}

QByteArray PictureTags::in(const QByteArray& jpeg) const {
    if (isEmpty()) return jpeg;
    Blocks blocks = *blocks_;
    tellUpright(blocks.exif, blocks.xmp);
    try {
        // Of blocks that were turned the tags still say how the photograph was stored.
        const QByteArray upright = written(jpeg, blocks);
        tellSize(blocks.exif, blocks.xmp, sizeOf(upright));
        renewPreview(blocks.exif, upright);
        QByteArray bytes = written(jpeg, blocks);
        if (hasAll(bytes, blocks)) return bytes;
        Exiv2::ExifThumb(blocks.exif).erase();
        bytes = written(jpeg, blocks);
        if (!hasAll(bytes, blocks)) throw Error(u"照片的拍摄资料太多，不能写入图片。"_s);
        return bytes;
    } catch (const Exiv2::AnyError& failure) {
        throw Error(u"照片的拍摄资料不能写入图片：%1。"_s.arg(QString::fromUtf8(failure.what())));
    }
}
