#include "platform/picture/preview.h"

#include "platform/base/error.h"
#include "platform/picture/exif.h"

#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int markerLength = 2;
constexpr int lengthLength = 2;
constexpr uchar startOfScan = 0xDA;
constexpr uchar app1 = 0xE1;
// What claims to be a preview and is much larger is decoded at a reduced scale.
constexpr QSize usualSize(320, 320);

/// The contents of the EXIF segment in front of the picture; empty when there is none, or only a part of it.
QByteArrayView exifSegment(QByteArrayView file) {
    for (qsizetype at = markerLength; at + markerLength + lengthLength <= file.size();) {
        const auto marker = static_cast<uchar>(file[at + 1]);
        if (static_cast<uchar>(file[at]) != 0xFF || marker == startOfScan) return {};
        const qsizetype length = qFromBigEndian<quint16>(file.data() + at + markerLength);
        const qsizetype begin = at + markerLength + lengthLength;
        const qsizetype end = at + markerLength + length;
        if (length < lengthLength || end > file.size()) return {};
        const QByteArrayView segment = file.sliced(begin, end - begin);
        if (marker == app1 && segment.startsWith("Exif")) return segment;
        at = end;
    }
    return {};
}

}  // namespace

Picture LoadPreview(const QByteArray& beginning) {
    if (!beginning.startsWith("\xFF\xD8")) return {};
    const QByteArrayView segment = exifSegment(beginning);
    const QByteArrayView bytes = previewFromApp1(segment);
    if (bytes.isEmpty()) return {};
    Picture picture;
    attempt([&] {
        const Picture stored = LoadPicture(bytes.toByteArray(), u"preview"_s, usualSize);
        picture = Picture(uprightImage(stored.image(), orientationFromApp1(segment)));
    });
    return picture;
}
