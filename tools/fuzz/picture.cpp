// Pictures from memory: whole, and for targets of several sizes, which take different ways through the decoder; the
// small pictures that cameras put in front.

#include "platform/picture/picture.h"

#include "fuzzing.h"
#include "platform/picture/preview.h"

#include <QIODevice>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize smallest(1, 1);

/// A device that cannot go back, from which pictures are read by the library alone.
class ForwardOnly : public QIODevice {
  public:
    explicit ForwardOnly(const QByteArray& bytes) : bytes_(bytes) { open(ReadOnly); }
    bool isSequential() const override { return true; }
    qint64 size() const override { return bytes_.size(); }

  protected:
    qint64 readData(char* data, qint64 most) override {
        const QByteArrayView part = QByteArrayView(bytes_).sliced(at_).first(qMin(most, bytes_.size() - at_));
        std::copy(part.begin(), part.end(), data);
        at_ += part.size();
        return part.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    const QByteArray& bytes_;
    qint64 at_ = 0;
};

QImage readByLibrary(const QByteArray& bytes) {
    ForwardOnly device(bytes);
    return LoadPicture(device, u"图"_s, smallest).image();
}

void readForTargets(const QByteArray& bytes) {
    QSize whole;
    for (const QSize target : {QSize(), smallest, QSize(64, 48), QSize(300, 2)}) {
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
}

/// Whether some frame of a JPEG has colours of half the height and width, which the library reads finer than by their
/// means.
bool hasCoarseColours(const QByteArray& bytes) {
    constexpr qsizetype placeOfSampling = 11;
    for (qsizetype at = 0; at + placeOfSampling < bytes.size(); ++at) {
        const bool isFrame = bytes[at] == '\xFF' && (bytes[at + 1] == '\xC0' || bytes[at + 1] == '\xC1');
        if (isFrame && bytes[at + placeOfSampling] == '\x22') return true;
    }
    return false;
}

void readBothWays(const QByteArray& bytes) {
    QImage quick;
    QImage thorough;
    goesThrough([&] { quick = LoadPicture(bytes, u"图"_s, smallest).image(); });
    goesThrough([&] { thorough = readByLibrary(bytes); });
    expect(quick.size() == thorough.size() && (quick == thorough || hasCoarseColours(bytes)),
           "the quick way leads where the library's leads");
}

void readPreview(const QByteArray& bytes) {
    const Picture preview = LoadPreview(bytes.first(qMin(bytes.size(), previewReach)));
    expect(preview.isNull() || !preview.pixels().isEmpty(), "a preview is a picture or nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes = bytesOf(data, size);
    readForTargets(bytes);
    if (bytes.startsWith("\xFF")) readBothWays(bytes);
    goesThrough([&] { readPreview(bytes); });
    return 0;
}
