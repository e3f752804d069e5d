#pragma once

#include <exiv2/exiv2.hpp>

#include <QByteArray>
#include <memory>
#include <mutex>

/// Readies the library, once. The part of it that reads XMP is one for all threads, and takes turns only with a lock
/// that it is given. Its messages on the terminal help nobody.
inline void readyExifLibrary() {
    static std::recursive_mutex mutex;
    [[maybe_unused]] static const bool isReady = [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        return Exiv2::XmpParser::initialize(
            [](void* lock, bool locks) {
                auto* const held = static_cast<std::recursive_mutex*>(lock);
                locks ? held->lock() : held->unlock();
            },
            &mutex);
    }();
}

/// An open file in memory, whose tags are read. The bytes have to live as long as it. Throws the library's own errors.
inline std::unique_ptr<Exiv2::Image> openedTags(const QByteArray& jpeg) {
    readyExifLibrary();
    std::unique_ptr<Exiv2::Image> image(
        Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte*>(jpeg.constData()), long(jpeg.size())).release());
    image->readMetadata();
    return image;
}
