#pragma once

#include <QIODevice>
#include <array>

// The library's header leans on these two.
// clang-format off
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>
// clang-format on

/// Feeds the JPEG library from a device through a small buffer. Where the data ends early it goes on with end-of-image
/// markers, on which the library stops.
class JpegSource {
  public:
    explicit JpegSource(QIODevice& device);
    JpegSource(const JpegSource&) = delete;
    JpegSource& operator=(const JpegSource&) = delete;

    jpeg_source_mgr* manager() { return &manager_.base; }

    /// Whether picture data follows what has been read so far, and not the end of file or picture.
    bool hasPictureData();
    /// Bytes that the device holds.
    qint64 size() const { return device_.size(); }
    /// The next bytes of the file, to be read past the library; empty at its end. Valid until the next call.
    QByteArrayView take();
    /// The place up to which the data has been read, and the way back to there.
    bool canGoBack() const { return !device_.isSequential(); }
    qint64 position() const { return device_.pos() - qint64(manager_.base.bytes_in_buffer); }
    void goBackTo(qint64 position);
    /// Whether the device itself has failed.
    bool readFailed() const { return readFailed_; }

  private:
    /// The library hands back the pointer to its base, which is also the pointer to the whole.
    struct Manager {
        jpeg_source_mgr base;
        JpegSource* source;
    };

    static JpegSource& of(j_decompress_ptr codec) { return *reinterpret_cast<Manager*>(codec->src)->source; }
    void fill();
    void skip(long count);

    QIODevice& device_;
    std::array<JOCTET, 16384> buffer_;
    Manager manager_{};
    bool ended_ = false;
    bool readFailed_ = false;
};
