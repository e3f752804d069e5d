// Pictures from memory: whole, and for targets of several sizes, which take different ways through the decoder.

#include "platform/picture/picture.h"

#include "fuzzing.h"

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

extern "C" {

/// Stands in for the system's function (the linker wraps it): a computer of little memory, whose limits keep the runs
/// short.
long __real_sysconf(int name);
long __wrap_sysconf(int name) {
    constexpr long pagesOfSmallComputer = 1 << 15;
    return name == _SC_PHYS_PAGES ? pagesOfSmallComputer : __real_sysconf(name);
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = bytesOf(data, size);
    QSize whole;
    for (const QSize target : {QSize(), QSize(1, 1), QSize(64, 48), QSize(300, 2)}) {
        goesThrough([&] {
            const Picture picture = LoadPicture(bytes, u"图"_s, target);
            const QSize image = picture.image().size();
            const QSize pixels = picture.pixels();
            expect(!picture.isNull() && picture.image().format() == QImage::Format_RGB32, "what is read is a picture");
            expect(qMax(pixels.width(), pixels.height()) <= longestPictureSide, "too large pictures are refused");
            expect(whole.isEmpty() || whole == pixels, "the size is the same for every target");
            expect(image == pixels || !target.isEmpty(), "without a target the whole is read");
            expect(image.width() >= qMin(target.width(), pixels.width()) &&
                       image.height() >= qMin(target.height(), pixels.height()),
                   "the image covers the target");
            whole = pixels;
        });
    }
    return 0;
}

}  // extern "C"
