#include "platform/picture/lossless_turn.h"

#include <turbojpeg.h>

#include <array>
#include <memory>

namespace {

constexpr Orientation lastOrientation = 8;

/// The library's number for each orientation; the places begin with orientation 1.
constexpr std::array<TJXOP, lastOrientation> moves{TJXOP_NONE,      TJXOP_HFLIP, TJXOP_ROT180,     TJXOP_VFLIP,
                                                   TJXOP_TRANSPOSE, TJXOP_ROT90, TJXOP_TRANSVERSE, TJXOP_ROT270};

/// Four points, no two of them alike: each turn puts them in another order.
QImage fourPoints() {
    QImage image(2, 2, QImage::Format_RGB32);
    for (int i = 0; i < 4; ++i) image.setPixel(i % 2, i / 2, qRgb(i, 0, 0));
    return image;
}

struct End {
    void operator()(void* transformer) const { tjDestroy(transformer); }
    void operator()(unsigned char* bytes) const { tjFree(bytes); }
};

}  // namespace

Orientation composed(Orientation first, Orientation then) {
    const QImage turned = uprightImage(uprightImage(fourPoints(), first), then);
    Orientation both = uprightOrientation;
    while (uprightImage(fourPoints(), both) != turned) ++both;
    return both;
}

std::optional<QByteArray> turnedJpeg(const QByteArray& jpeg, Orientation turn) {
    const std::unique_ptr<void, End> transformer(tjInitTransform());
    tjtransform move{};
    move.op = moves[size_t(turn - uprightOrientation)];
    move.options = TJXOPT_PERFECT;
    unsigned char* made = nullptr;
    unsigned long length = 0;
    const int failure = tjTransform(transformer.get(), reinterpret_cast<const unsigned char*>(jpeg.constData()),
                                    static_cast<unsigned long>(jpeg.size()), 1, &made, &length, &move, 0);
    const std::unique_ptr<unsigned char, End> bytes(made);
    if (failure != 0) return {};
    return QByteArray(reinterpret_cast<const char*>(made), qsizetype(length));
}
