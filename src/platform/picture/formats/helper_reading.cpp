#include "platform/picture/formats/helper_reading.h"

#include "platform/base/helper_program.h"
#include "platform/picture/formats/decoded_layout.h"
#include "platform/picture/formats/finishing.h"
#include "platform/picture/memory_share.h"
#include "platform/picture/refusal.h"
#include "platform/picture/wide_colours.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <cstring>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

PictureReaders& chosenReaders() {
    static PictureReaders readers;
    return readers;
}

QString programOf(PictureFormat format) {
    const QString folder = chosenReaders().folder;
    const QString name = format == PictureFormat::webp   ? u"lunq-webp"_s
                         : format == PictureFormat::tiff ? u"lunq-tiff"_s
                                                         : u"lunq-heif"_s;
    return (folder.isEmpty() ? QCoreApplication::applicationDirPath() : folder) + u'/' + name;
}

/// The packages with what a program needs.
QString packagesOf(PictureFormat format) {
    switch (format) {
        case PictureFormat::webp:
            return u"libwebp7 和 libwebpdemux2"_s;
        case PictureFormat::tiff:
            return u"libtiff6"_s;
        case PictureFormat::avif:
            return u"libheif1（新的系统还要 libheif-plugin-dav1d 或 libheif-plugin-aomdec）"_s;
        default:
            return u"libheif1（新的系统还要 libheif-plugin-libde265）"_s;
    }
}

[[noreturn]] void refuse(ReadingOutcome outcome, PictureFormat format, const QString& name) {
    const QString kind = formatName(format);
    switch (outcome) {
        case ReadingOutcome::libraryMissing:
        case ReadingOutcome::noDecoder:
            refusePicture(name, u"读取 %1 图片的程序库没有安装，请安装软件包 %2"_s.arg(kind, packagesOf(format)));
        case ReadingOutcome::unsupported:
            refusePicture(name, u"是不支持的 %1 格式"_s.arg(kind));
        case ReadingOutcome::tooLarge:
            refusePicture(name, u"图片太大"_s);
        case ReadingOutcome::limitExceeded:
            refusePicture(name, u"读取它超出了时间或内存的限制，它可能已损坏"_s);
        case ReadingOutcome::wrongCall:
            refusePicture(name, u"读取 %1 图片的程序与本软件的版本不符，请重新安装本软件"_s.arg(kind));
        default:
            refusePicture(name, u"图片已损坏，或是不支持的 %1 格式"_s.arg(kind));
    }
}

/// A file in memory, which goes with this object.
class MemoryFile {
  public:
    explicit MemoryFile(const QString& name) : file_(memfd_create("lunq-picture", MFD_CLOEXEC)) {
        if (file_ < 0) refusePicture(name, u"内存不足"_s);
    }
    ~MemoryFile() { close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int file() const { return file_; }

  private:
    int file_;
};

/// The bytes of the device as an open file.
class Input {
  public:
    Input(QIODevice& device, const QString& name) {
        if (const auto* file = qobject_cast<QFileDevice*>(&device)) {
            file_ = file->handle();
            if (file_ >= 0) return;
        }
        copy_ = std::make_unique<MemoryFile>(name);
        file_ = copy_->file();
        const QByteArray bytes = device.readAll();
        for (qint64 at = 0; at < bytes.size();) {
            const ssize_t count = write(file_, bytes.constData() + at, size_t(bytes.size() - at));
            if (count <= 0) refusePicture(name, u"内存不足"_s);
            at += count;
        }
    }

    int file() const { return file_; }

  private:
    int file_ = -1;
    std::unique_ptr<MemoryFile> copy_;
};

void run(PictureFormat format, int input, int output, const QString& name) {
    const HelperEnd end = runHelper({programOf(format),
                                     {QString::number(input), QString::number(output)},
                                     {input, output},
                                     chosenReaders().patienceMs});
    if (!end.obstacle.isEmpty()) refusePicture(name, end.obstacle);
    const auto outcome = end.isOutOfTime ? ReadingOutcome::limitExceeded : ReadingOutcome(end.code);
    if (outcome != ReadingOutcome::done) refuse(outcome, format, name);
}

/// What the program has written, in memory. Nothing in it is trusted.
class Result {
  public:
    Result(int file, PictureFormat format, const QString& name) {
        struct stat status {};
        if (fstat(file, &status) != 0 || status.st_size < qint64(sizeof header_))
            refuse(ReadingOutcome::damaged, format, name);
        bytes_ = size_t(status.st_size);
        memory_ = mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_PRIVATE, file, 0);
        if (memory_ == MAP_FAILED) refusePicture(name, u"内存不足"_s);
        std::memcpy(&header_, memory_, sizeof header_);
        if (!header_.isSound() || header_.bytes() != bytes_) {
            munmap(memory_, bytes_);
            refuse(ReadingOutcome::damaged, format, name);
        }
    }
    ~Result() { munmap(memory_, bytes_); }
    Result(const Result&) = delete;
    Result& operator=(const Result&) = delete;

    const DecodedPicture& header() const { return header_; }
    QByteArray profile() const { return beside(0, header_.profileBytes); }
    QByteArray exif() const { return beside(header_.profileBytes, header_.exifBytes); }
    QByteArray xmp() const { return beside(header_.profileBytes + header_.exifBytes, header_.xmpBytes); }
    uchar* pixels() const { return static_cast<uchar*>(memory_) + header_.pixelsAt(); }

  private:
    QByteArray beside(quint32 place, quint32 length) const {
        return {static_cast<const char*>(memory_) + sizeof header_ + place, qsizetype(length)};
    }

    DecodedPicture header_;
    void* memory_ = nullptr;
    size_t bytes_ = 0;
};

/// The image takes the memory over.
QImage imageOf(const std::shared_ptr<Result>& result) {
    const DecodedPicture& header = result->header();
    const QImage::Format format = header.colours >= DecodedPicture::inks          ? QImage::Format_ARGB32
                                  : header.alpha == DecodedPicture::straight      ? QImage::Format_ARGB32
                                  : header.alpha == DecodedPicture::premultiplied ? QImage::Format_ARGB32_Premultiplied
                                                                                  : QImage::Format_RGB32;
    const auto release = [](void* owner) { delete static_cast<std::shared_ptr<Result>*>(owner); };
    return {result->pixels(),
            int(header.width),
            int(header.height),
            qsizetype(4) * header.width,
            format,
            release,
            new std::shared_ptr<Result>(result)};
}

QByteArray profileOf(const Result& result) {
    if (result.header().colours == DecodedPicture::lab) return labProfile();
    return result.header().profileBytes > 0 ? result.profile() : wideProfile(result.header().primaries);
}

}  // namespace

void setPictureReaders(const PictureReaders& readers) {
    chosenReaders() = readers;
}

/// The picture and what decoding leaves beside it, for 12 megapixels. How large one is nobody knows before.
constexpr qint64 usualBytes = 128 << 20;

AnyPicture readInHelper(PictureFormat format, QIODevice& device, const QString& name) {
    const MemoryFile output(name);
    {
        const Input input(device, name);
        const MemoryShare share(usualBytes);
        run(format, input.file(), output.file(), name);
    }
    const auto result = std::make_shared<Result>(output.file(), format, name);
    const DecodedPicture& header = result->header();
    // The last steps make copies.
    const QSize pixels(int(header.width), int(header.height));
    checkMemory(3 * imageBytes(pixels), pixels, name);
    const MemoryShare share(3 * imageBytes(pixels));
    // Both decoders turn by what their own formats say; the camera's data says it once more.
    const bool turnsByExif = format == PictureFormat::webp;
    const QByteArray exif = result->exif();
    return finished({.format = format,
                     .image = imageOf(result),
                     .kind = ColourKind(header.colours),
                     .orientation = turnsByExif ? orientationFromTiff(exif) : Orientation(header.orientation),
                     .pixelsOfColour = {int(header.across), int(header.down)},
                     .profile = profileOf(*result),
                     .exif = exif,
                     .xmp = result->xmp()},
                    name);
}
