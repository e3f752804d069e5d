// Pictures of formats other than JPEG and BMP. Those that the program leaves to helper processes are decoded by the
// same code here.

#include "fuzzing.h"
#include "picture_reader/reading.h"
#include "platform/picture/exif.h"
#include "platform/picture/formats/any_picture.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

void readInProcess(const QByteArray& bytes) {
    goesThrough([&] {
        const AnyPicture any = readAnyPicture(bytes, u"图"_s);
        expect(!any.picture.isNull() && any.picture.image().format() == QImage::Format_RGB32,
               "what is read is a picture");
        expect(orientationFromTiff(any.exif) == uprightOrientation, "what is read is upright");
        expect(LoadPicture(jpegOf(any), u"图"_s).pixels() == any.picture.pixels(), "it becomes a JPEG of its size");
    });
}

template <typename Decode>
void readAsHelper(const QByteArray& bytes, const Decode& decode) {
    const int file = memfd_create("picture", 0);
    try {
        Output output(file);
        decode({reinterpret_cast<const unsigned char*>(bytes.data()), size_t(bytes.size())}, output);
        DecodedPicture header;
        struct stat status {};
        const bool isRead =
            pread(file, &header, sizeof header, 0) == ssize_t(sizeof header) && fstat(file, &status) == 0;
        expect(isRead && header.isSound() && header.bytes() == uint64_t(status.st_size), "what is written is whole");
    } catch (const ReadingFailure&) {
    }
    close(file);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = bytesOf(data, size);
    uprightExif(bytes, {30, 20});
    switch (pictureFormat(bytes.left(formatBytes))) {
        case PictureFormat::png:
        case PictureFormat::gif:
            readInProcess(bytes);
            break;
        case PictureFormat::webp:
            readAsHelper(bytes, decodeWebp);
            break;
        case PictureFormat::tiff:
            readAsHelper(bytes, decodeTiff);
            break;
        case PictureFormat::heic:
        case PictureFormat::avif:
            readAsHelper(bytes, decodeHeif);
            break;
        default:
            break;
    }
    return 0;
}
