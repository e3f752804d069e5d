#pragma once

#include "../../support/sample_catalogue.h"
#include "jet_maker/old_catalogue.h"

/// JPEG of several pages, all different.
inline QByteArray largePicture(int seed) {
    constexpr int width = 80, height = 60;
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(x * y * seed, x * 7 + seed, y * 11 * seed));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPG", 95);
    return bytes;
}

/// An album of each kind of picture that an old catalogue may have.
inline jet::OldCatalogue wholeCatalogue() {
    const QByteArray bmp = pictureBytes({40, 30}, Qt::red, "BMP"), jpeg = pictureBytes({40, 30}, Qt::blue);
    return {.albums = {{QStringLiteral("tc00"), QStringLiteral("演示"), {jpeg}},
                       {QStringLiteral("tc01"),
                        QStringLiteral("旅行"),
                        {jpeg, jet::withTail(largePicture(3)), jet::wrapped(bmp), jet::wrappedBitmap(bmp),
                         jet::wrappedMetafile(bmp), QByteArray(), jet::withTail(bmp)}},
                       {QStringLiteral("tc02"), QStringLiteral("空册"), {}},
                       {QStringLiteral("tc03"), QStringLiteral("编码和名称"), {largePicture(1), largePicture(2)}}},
            .buttonPicture = pictureBytes({100, 75}, Qt::green),
            .screenPicture = jpeg};
}

/// What `stored` of the same place becomes.
inline QByteArray unwrapped(const QByteArray& stored) {
    return stored.startsWith("\x15\x1C") ? pictureBytes({40, 30}, Qt::red, "BMP") : stored;
}
