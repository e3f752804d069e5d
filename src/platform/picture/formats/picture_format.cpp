#include "platform/picture/formats/picture_format.h"

#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Beginning {
    QByteArrayView bytes;
    PictureFormat format;
};

constexpr Beginning beginnings[] = {
    {"\xFF\xD8\xFF", PictureFormat::jpeg},
    {"BM", PictureFormat::bmp},
    {"\x89PNG\r\n\x1A\n", PictureFormat::png},
    {"GIF87a", PictureFormat::gif},
    {"GIF89a", PictureFormat::gif},
    {{"II*\0", 4}, PictureFormat::tiff},
    {{"MM\0*", 4}, PictureFormat::tiff},
    {{"II+\0", 4}, PictureFormat::tiff},
    {{"MM\0+", 4}, PictureFormat::tiff},
};

/// Such files name first the brand that they are made for, and then others that fit.
PictureFormat formatOfBrands(QByteArrayView bytes) {
    constexpr qsizetype brandLength = 4, mainAt = 8, othersAt = 16;
    const qsizetype end = qMin(bytes.size(), qsizetype(qFromBigEndian<quint32>(bytes.data())));
    for (qsizetype at = mainAt; at + brandLength <= end; at = at == mainAt ? othersAt : at + brandLength) {
        const QByteArrayView brand = bytes.sliced(at, brandLength);
        if (brand == "avif" || brand == "avis") return PictureFormat::avif;
        for (const QByteArrayView known : {"heic", "heix", "heim", "heis", "hevc", "hevx"})
            if (brand == known) return PictureFormat::heic;
    }
    const QByteArrayView main = bytes.sliced(mainAt, brandLength);
    return main == "mif1" || main == "msf1" ? PictureFormat::heic : PictureFormat::none;
}

}  // namespace

PictureFormat pictureFormat(QByteArrayView beginning) {
    for (const Beginning& each : beginnings)
        if (beginning.startsWith(each.bytes)) return each.format;
    if (beginning.size() < 12) return PictureFormat::none;
    if (beginning.startsWith("RIFF") && beginning.sliced(8, 4) == "WEBP") return PictureFormat::webp;
    return beginning.sliced(4, 4) == "ftyp" ? formatOfBrands(beginning) : PictureFormat::none;
}

QString formatName(PictureFormat format) {
    switch (format) {
        case PictureFormat::none:
            return {};
        case PictureFormat::jpeg:
            return u"JPEG"_s;
        case PictureFormat::bmp:
            return u"BMP"_s;
        case PictureFormat::png:
            return u"PNG"_s;
        case PictureFormat::gif:
            return u"GIF"_s;
        case PictureFormat::webp:
            return u"WebP"_s;
        case PictureFormat::tiff:
            return u"TIFF"_s;
        case PictureFormat::heic:
            return u"HEIC"_s;
        case PictureFormat::avif:
            return u"AVIF"_s;
    }
    return {};
}
