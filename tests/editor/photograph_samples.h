#pragma once

#include "../support/sample_catalogue.h"

/// An orientation tag that turns by a quarter, as cameras write it.
inline QByteArray jpegOnItsSide() {
    const QByteArray plain = pictureBytes({60, 40}, Qt::darkGreen);
    const QByteArray exif = QByteArray::fromHex(
        "ffe10022457869660000"
        "49492a0008000000"
        "010012010300010000000600000000000000");
    return plain.left(2) + exif + plain.mid(2);
}
