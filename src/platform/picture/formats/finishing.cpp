#include "platform/picture/formats/finishing.h"

#include "platform/picture/on_white.h"
#include "platform/picture/refusal.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

void applyTo(QImage& image, const ColourTransform& transform) {
    for (int y = 0; y < image.height(); ++y) transform.apply(reinterpret_cast<QRgb*>(image.scanLine(y)), image.width());
}

/// As the JPEG reader shows inks that have no profile.
void showPlainInks(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(row, row + image.width(), row, [](QRgb inks) {
            const int light = 255 - qAlpha(inks);
            const auto shade = [&](int ink) { return (255 - ink) * light / 255; };
            return qRgb(shade(qRed(inks)), shade(qGreen(inks)), shade(qBlue(inks)));
        });
    }
}

QImage inLights(QImage image, ColourKind kind, const QByteArray& profile) {
    const auto transform = kind == ColourKind::lights ? nullptr : ColourTransform::of(profile, kind);
    if (kind == ColourKind::grey || kind == ColourKind::lights) image = onWhite(image);
    if (transform)
        applyTo(image, *transform);
    else if (kind == ColourKind::inks)
        showPlainInks(image);
    // The bytes of inks are no alpha any more.
    return image.format() == QImage::Format_RGB32 ? image : std::move(image).convertToFormat(QImage::Format_RGB32);
}

/// Some programs turn a picture by its packet. Its bytes stay as they are otherwise, sound or not.
QByteArray uprightXmp(const QByteArray& xmp) {
    static const QRegularExpression orientation(uR"((?<=tiff:Orientation="|tiff:Orientation='|tiff:Orientation>)\d)"_s);
    return QString::fromLatin1(xmp).replace(orientation, u"1"_s).toLatin1();
}

}  // namespace

AnyPicture finished(Decoded decoded, const QString& name) {
    QImage image = inLights(std::move(decoded.image), decoded.kind, decoded.profile);
    image = uprightImage(image, decoded.orientation);
    if (image.isNull()) refusePicture(name, u"内存不足"_s);
    const bool keepsProfile =
        decoded.kind == ColourKind::lights && ColourTransform::of(decoded.profile, ColourKind::lights);
    const QSize shared = turned(decoded.pixelsOfColour, decoded.orientation);
    return {.format = decoded.format,
            .picture = {image, image.size(), keepsProfile ? decoded.profile : QByteArray()},
            .isGrey = decoded.kind == ColourKind::grey,
            .pixelsOfColour = shared,
            .exif = uprightExif(decoded.exif, image.size()),
            .xmp = uprightXmp(decoded.xmp)};
}
