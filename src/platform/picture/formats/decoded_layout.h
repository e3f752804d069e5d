#pragma once

#include <cstddef>
#include <cstdint>

/// How the reading of a picture by a helper program has ended: its exit code.
enum class ReadingOutcome {
    done = 0,
    wrongCall = 64,
    damaged,
    unsupported,           ///< A kind of the format that nobody here can read.
    noDecoder,             ///< The library has come without the part that reads this.
    tooLarge,              ///< A side, or all pixels together.
    limitExceeded,         ///< Of time or memory.
    libraryMissing = 127,  ///< The system could not start the program.
};

/// What a helper program writes: this header, an ICC profile, an EXIF block (as a TIFF file begins) and an XMP packet,
/// and from `pixelsAt` on the rows from top to bottom, four bytes to the pixel.
struct DecodedPicture {
    static constexpr uint32_t rightMark = 0x1C0A51A9;
    static constexpr uint64_t mostBytes = uint64_t{1536} << 20;  ///< All together.
    static constexpr uint64_t mostBeside = uint64_t{4} << 20;    ///< A profile, a block or a packet.
    static constexpr uint32_t longestSide = 32767;

    /// The bytes of a pixel are blue, green, red and alpha; yellow, magenta, cyan and black; b and a (around 128) and
    /// L.
    enum Colours : uint32_t { grey, lights, inks, lab };
    enum Alpha : uint32_t { opaque, straight, premultiplied };

    uint32_t mark = rightMark;
    uint32_t width = 0;
    uint32_t height = 0;
    Colours colours = lights;
    Alpha alpha = opaque;
    uint32_t orientation = 1;  ///< How it still has to be turned, as EXIF counts it.
    uint32_t across = 1;       ///< Pixels that share one colour in a row...
    uint32_t down = 1;         ///< ...and in a column of the file.
    uint32_t primaries = 0;    ///< By their number in ISO 23091-2 where the file has no profile; 0 is not known.
    uint32_t profileBytes = 0;
    uint32_t exifBytes = 0;
    uint32_t xmpBytes = 0;

    uint64_t pixelBytes() const { return uint64_t{4} * width * height; }
    uint64_t pixelsAt() const {
        const uint64_t end = sizeof(DecodedPicture) + uint64_t{profileBytes} + exifBytes + xmpBytes;
        return (end + 63) / 64 * 64;
    }
    uint64_t bytes() const { return pixelsAt() + pixelBytes(); }
    bool isSound() const {
        return mark == rightMark && width > 0 && height > 0 && width <= longestSide && height <= longestSide &&
               profileBytes <= mostBeside && exifBytes <= mostBeside && xmpBytes <= mostBeside &&
               bytes() <= mostBytes && colours <= lab && alpha <= premultiplied && orientation >= 1 &&
               orientation <= 8 && across >= 1 && across <= 2 && down >= 1 && down <= 2;
    }
};
