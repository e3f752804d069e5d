#pragma once

#include <exiv2/exiv2.hpp>

#include <QByteArray>
#include <memory>

/// An open file in memory, whose tags are read. The bytes have to live as long as it. Throws the library's own errors;
/// its messages on the terminal help nobody.
inline std::unique_ptr<Exiv2::Image> openedTags(const QByteArray& jpeg) {
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    std::unique_ptr<Exiv2::Image> image(
        Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(jpeg.constData()), long(jpeg.size())).release());
    image->readMetadata();
    return image;
}
