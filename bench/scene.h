#pragma once

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QRandomGenerator>

/// A picture of 12 megapixels, as cameras take them: large shapes with fine noise, so that its coded length is that of
/// a photograph. Each number gives another one.
inline QImage photograph(int number = 0) {
    QImage image(4000, 3000, QImage::Format_RGB32);
    QRandomGenerator noise(quint32(number) + 1);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grain = int(noise.generate() % 24);
            row[x] = qRgb(x * 200 / image.width() + grain, y * 200 / image.height() + grain,
                          (x / 300 + y / 300 + number) % 2 * 120 + grain);
        }
    }
    return image;
}

/// A photograph's file.
inline QByteArray coded(const QImage& image, bool progressive = false) {
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(85);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return buffer.data();
}
