#include "platform/picture/picture_bytes.h"

#include "platform/picture/bmp_header.h"
#include "platform/picture/picture_file.h"
#include "platform/picture/refusal.h"

#include <QDir>
#include <QFile>
#include <cstring>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Bytes from front to back: those of memory, or of a device through a small buffer.
class Bytes {
  public:
    explicit Bytes(QByteArrayView bytes) : at_(bytes.begin()), end_(bytes.end()) {}
    Bytes(QIODevice& device, const QString& name) : device_(&device), name_(name), buffer_(size_t(1) << 16) {}

    /// -1 at the end.
    int next() { return at_ < end_ || fill() ? quint8(*at_++) : -1; }

    /// The number of two bytes, the higher first; -1 at the end.
    int nextPair() {
        const int high = next(), low = next();
        return low < 0 ? -1 : high << 8 | low;
    }

    /// Goes on behind the next byte of this value; false when there is none.
    bool skipTo(char byte) {
        while (at_ < end_ || fill()) {
            const auto* const found = static_cast<const char*>(std::memchr(at_, byte, size_t(end_ - at_)));
            at_ = found == nullptr ? end_ : found + 1;
            if (found != nullptr) return true;
        }
        return false;
    }

    bool skip(qint64 count) {
        while (count > 0 && (at_ < end_ || fill())) {
            const qint64 step = qMin(count, qint64(end_ - at_));
            at_ += step;
            count -= step;
        }
        return count == 0;
    }

  private:
    bool fill() {
        if (device_ == nullptr) return false;
        const qint64 count = device_->read(buffer_.data(), qint64(buffer_.size()));
        if (count < 0) refusePicture(name_, u"读取失败"_s);
        at_ = buffer_.data();
        end_ = at_ + count;
        return count > 0;
    }

    QIODevice* device_ = nullptr;
    QString name_;
    std::vector<char> buffer_;
    const char* at_ = nullptr;
    const char* end_ = nullptr;
};

constexpr int endOfImage = 0xD9, startOfScan = 0xDA;

/// Within a scan FF 00 means the byte FF. FF also begins the restart marks, at which a decoder can go on after damage.
bool belongsToScan(int marker) {
    return marker == 0 || (marker >= 0xD0 && marker <= 0xD7);
}

/// The next marker, behind whatever does not belong to a segment; -1 at the end.
int nextMarker(Bytes& bytes) {
    int marker = 0;
    do {
        if (!bytes.skipTo('\xFF')) return -1;
        do marker = bytes.next();
        while (marker == 0xFF);
    } while (belongsToScan(marker));
    return marker;
}

/// Segment after segment up to the end of the image. Thumbnails, which have an end mark too, are inside segments.
PictureBytes jpegBytes(Bytes& bytes) {
    bool isScanSeen = false;
    bytes.skip(2);
    for (int marker = nextMarker(bytes); marker >= 0; marker = nextMarker(bytes)) {
        if (marker == endOfImage) return isScanSeen ? PictureBytes::whole : PictureBytes::truncated;
        isScanSeen = isScanSeen || marker == startOfScan;
        if (!bytes.skip(bytes.nextPair() - 2)) break;
    }
    return PictureBytes::truncated;
}

/// Some writers leave out the bytes that would fill up the last row.
PictureBytes bmpBytes(const BmpHeader& header, Bytes& bytes) {
    const bool whole = bytes.skip(header.pixelOffset) && bytes.skip(header.pixelBytes);
    return whole ? PictureBytes::whole : PictureBytes::truncated;
}

PictureBytes judged(QByteArrayView beginning, Bytes bytes) {
    if (beginning.startsWith("\xFF\xD8") && (beginning.size() == 2 || beginning[2] == '\xFF')) return jpegBytes(bytes);
    if (const auto header = bmpHeader(beginning)) return bmpBytes(*header, bytes);
    return PictureBytes::notAPicture;
}

}  // namespace

PictureBytes pictureBytes(QIODevice& device, const QString& name) {
    return judged(device.peek(BmpHeader::needed), Bytes(device, name));
}

PictureBytes pictureBytes(const QByteArray& bytes) {
    return judged(QByteArrayView(bytes).first(qMin(bytes.size(), BmpHeader::needed)), Bytes(bytes));
}

PictureBytes pictureBytesOfFile(const QString& path) {
    const QString name = QDir::toNativeSeparators(path);
    QFile file(path);
    openPicture(file);
    return pictureBytes(file, name);
}
