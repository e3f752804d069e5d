// ICC profiles: the first byte says for which kind of colours, the others are the profile.

#include "fuzzing.h"
#include "platform/picture/colour_transform.h"

#include <algorithm>
#include <array>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const auto kind = ColourKind(data[0] % 4);
    const auto transform = ColourTransform::of(bytesOf(data + 1, size - 1), kind);
    if (!transform) return 0;
    std::array<QRgb, 256> pixels;
    for (uint i = 0; i < pixels.size(); ++i)
        pixels[i] = kind == ColourKind::grey ? qRgb(int(i), int(i), int(i)) : i * 0x01030507U;
    transform->apply(pixels.data(), qsizetype(pixels.size()));
    expect(transform->changesNothing() || std::ranges::all_of(pixels, [](QRgb pixel) { return qAlpha(pixel) == 255; }),
           "what is shown is opaque");
    return 0;
}
