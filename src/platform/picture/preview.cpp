#include "platform/picture/preview.h"

#include "platform/base/error.h"
#include "platform/picture/exif.h"
#include "platform/picture/jpeg_reader.h"

#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int markerLength = 2;
constexpr int lengthLength = 2;
constexpr uchar startOfScan = 0xDA;
constexpr uchar app1 = 0xE1;
constexpr uchar app2 = 0xE2;
// Decoding it must cost next to nothing, whatever it claims to be.
constexpr int longestSide = 1024;

/// The contents of the first segment in front of the picture's data that is asked for; empty when there is none, or
/// only a part of it.
template <typename IsWanted>
QByteArrayView segmentOf(QByteArrayView file, const IsWanted& isWanted) {
    for (qsizetype at = markerLength; at + markerLength + lengthLength <= file.size();) {
        const auto marker = uchar(file[at + 1]);
        if (uchar(file[at]) != 0xFF || marker == startOfScan) return {};
        const qsizetype length = qFromBigEndian<quint16>(file.data() + at + markerLength);
        const qsizetype begin = at + markerLength + lengthLength;
        const qsizetype end = at + markerLength + length;
        if (length < lengthLength || end > file.size()) return {};
        const QByteArrayView segment = file.sliced(begin, end - begin);
        if (isWanted(marker, segment)) return segment;
        at = end;
    }
    return {};
}

QByteArrayView exifSegment(QByteArrayView file) {
    return segmentOf(file,
                     [](uchar marker, QByteArrayView segment) { return marker == app1 && segment.startsWith("Exif"); });
}

/// The profile in front of the picture's data. One in a single segment is found also where the rest is missing.
QByteArray profileIn(const QByteArray& beginning) {
    constexpr QByteArrayView only("ICC_PROFILE\0\1\1", 14);
    const QByteArrayView segment = segmentOf(
        beginning, [&](uchar marker, QByteArrayView bytes) { return marker == app2 && bytes.startsWith(only); });
    return segment.isEmpty() ? jpegProfile(beginning) : segment.sliced(only.size()).toByteArray();
}

bool isSmall(QByteArrayView jpeg) {
    constexpr int heightAt = 1, widthAt = 3, sidesEnd = 5;
    const QByteArrayView frame = segmentOf(jpeg, [](uchar marker, QByteArrayView) {
        const bool isTable = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
        return marker >= 0xC0 && marker <= 0xCF && !isTable;
    });
    const auto side = [&](int at) { return qFromBigEndian<quint16>(frame.data() + at); };
    return frame.size() >= sidesEnd && side(widthAt) <= longestSide && side(heightAt) <= longestSide;
}

}  // namespace

Picture LoadPreview(const QByteArray& beginning) {
    if (!beginning.startsWith("\xFF\xD8")) return {};
    const QByteArrayView segment = exifSegment(beginning);
    const QByteArrayView bytes = previewFromApp1(segment);
    if (!isSmall(bytes)) return {};
    Picture picture;
    attempt([&] {
        const Picture stored = LoadPicture(bytes.toByteArray(), u"preview"_s, {}, Colours::ofFile);
        const QImage image = uprightImage(stored.image(), orientationFromApp1(segment));
        picture = inScreenColours(
            {image, image.size(), stored.profile().isEmpty() ? profileIn(beginning) : stored.profile()});
    });
    return picture;
}
