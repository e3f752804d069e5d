#include "picture_reader/tiff_exif.h"

#include <tiffio.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace {

/// The bytes of a file as the library reads them.
struct Source {
    Bytes bytes;
    uint64_t place = 0;

    static Source& of(thandle_t handle) { return *static_cast<Source*>(handle); }
};

tmsize_t readBytes(thandle_t handle, void* to, tmsize_t count) {
    Source& source = Source::of(handle);
    const uint64_t left = source.bytes.size() - std::min<uint64_t>(source.place, source.bytes.size());
    const uint64_t step = std::min(left, uint64_t(std::max<tmsize_t>(count, 0)));
    if (step > 0) std::memcpy(to, source.bytes.data() + source.place, step);
    source.place += step;
    return tmsize_t(step);
}

toff_t seekTo(thandle_t handle, toff_t offset, int from) {
    Source& source = Source::of(handle);
    const uint64_t start = from == SEEK_CUR ? source.place : from == SEEK_END ? source.bytes.size() : 0;
    return source.place = start + offset;
}

struct TiffEnd {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using Tiff = std::unique_ptr<TIFF, TiffEnd>;

Tiff opened(Source& source) {
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    return Tiff(TIFFClientOpen(
        "picture", "rm", &source, readBytes, [](thandle_t, void*, tmsize_t) { return tmsize_t{0}; }, seekTo,
        [](thandle_t) { return 0; }, [](thandle_t handle) { return toff_t(Source::of(handle).bytes.size()); }, nullptr,
        nullptr));
}

template <typename Number>
Number valueOf(TIFF* tiff, ttag_t tag, Number otherwise = 0) {
    Number value = otherwise;
    return TIFFGetFieldDefaulted(tiff, tag, &value) ? value : otherwise;
}

Bytes blockOf(TIFF* tiff, ttag_t tag) {
    uint32_t count = 0;
    const unsigned char* bytes = nullptr;
    return TIFFGetField(tiff, tag, &count, &bytes) ? Bytes(bytes, count) : Bytes();
}

bool isLab(int colours) {
    return colours == PHOTOMETRIC_CIELAB || colours == PHOTOMETRIC_ICCLAB;
}

/// Inks with a profile, and Lab, in rows of eight bits. The library knows no profiles, and takes the white of paper for
/// that of a screen.
bool isReadByRows(TIFF* tiff) {
    const auto colours = valueOf<uint16_t>(tiff, TIFFTAG_PHOTOMETRIC);
    const int samples = isLab(colours) ? 3 : 4;
    const bool hasInks = colours == PHOTOMETRIC_SEPARATED && !blockOf(tiff, TIFFTAG_ICCPROFILE).empty();
    return (hasInks || isLab(colours)) && valueOf<uint16_t>(tiff, TIFFTAG_SAMPLESPERPIXEL) == samples &&
           valueOf<uint16_t>(tiff, TIFFTAG_BITSPERSAMPLE) == 8 &&
           valueOf<uint16_t>(tiff, TIFFTAG_PLANARCONFIG) == PLANARCONFIG_CONTIG && !TIFFIsTiled(tiff);
}

void readRows(TIFF* tiff, const DecodedPicture& picture, unsigned char* pixel) {
    const bool isSigned = valueOf<uint16_t>(tiff, TIFFTAG_PHOTOMETRIC) == PHOTOMETRIC_CIELAB;
    const auto flip = static_cast<unsigned char>(isSigned ? 128 : 0);
    const size_t samples = picture.colours == DecodedPicture::lab ? 3 : 4;
    std::vector<unsigned char> row(size_t(TIFFScanlineSize(tiff)));
    if (row.size() < samples * picture.width) throw ReadingFailure{ReadingOutcome::damaged};
    for (uint32_t y = 0; y < picture.height; ++y) {
        if (TIFFReadScanline(tiff, row.data(), y) != 1) throw ReadingFailure{ReadingOutcome::damaged};
        const unsigned char* from = row.data();
        for (uint32_t x = 0; x < picture.width; ++x, pixel += 4, from += samples) {
            pixel[0] = from[2] ^ flip;
            pixel[1] = from[1] ^ flip;
            pixel[2] = from[0];
            pixel[3] = samples == 4 ? from[3] : 0xFF;
        }
    }
}

/// The library's own way to red, green and blue, for all other kinds of colours.
class Lights {
  public:
    explicit Lights(TIFF* tiff) {
        char reason[1024];
        if (!TIFFRGBAImageOK(tiff, reason) || !TIFFRGBAImageBegin(&image_, tiff, 1, reason))
            throw ReadingFailure{ReadingOutcome::unsupported};
        // Turning is left to others: the library only mirrors.
        image_.orientation = image_.req_orientation = ORIENTATION_TOPLEFT;
    }
    ~Lights() { TIFFRGBAImageEnd(&image_); }
    Lights(const Lights&) = delete;
    Lights& operator=(const Lights&) = delete;

    bool hasAlpha() const { return image_.alpha != 0; }

    void read(const DecodedPicture& picture, unsigned char* pixels) {
        const size_t count = size_t{picture.width} * picture.height;
        std::span raster(reinterpret_cast<uint32_t*>(pixels), count);
        if (!TIFFRGBAImageGet(&image_, raster.data(), picture.width, picture.height))
            throw ReadingFailure{ReadingOutcome::damaged};
        for (uint32_t& colour : raster) colour = (colour & 0xFF00FF00) | TIFFGetR(colour) << 16 | TIFFGetB(colour);
    }

  private:
    TIFFRGBAImage image_{};
};

DecodedPicture headerOf(TIFF* tiff) {
    DecodedPicture picture{.width = valueOf<uint32_t>(tiff, TIFFTAG_IMAGEWIDTH),
                           .height = valueOf<uint32_t>(tiff, TIFFTAG_IMAGELENGTH)};
    Output::check(picture.width, picture.height);
    const auto colours = valueOf<uint16_t>(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    if (colours == PHOTOMETRIC_MINISBLACK || colours == PHOTOMETRIC_MINISWHITE) picture.colours = DecodedPicture::grey;
    const auto orientation = valueOf<uint16_t>(tiff, TIFFTAG_ORIENTATION, 1);
    if (orientation >= 1 && orientation <= 8) picture.orientation = orientation;
    uint16_t across = 1, down = 1;
    if (colours == PHOTOMETRIC_YCBCR) TIFFGetFieldDefaulted(tiff, TIFFTAG_YCBCRSUBSAMPLING, &across, &down);
    picture.across = across > 1 ? 2 : 1;
    picture.down = down > 1 ? 2 : 1;
    return picture;
}

}  // namespace

void decodeTiff(Bytes file, Output& output) {
    Source source{file};
    const Tiff tiff = opened(source);
    if (!tiff) throw ReadingFailure{ReadingOutcome::damaged};
    // The raw files of cameras begin with a small picture of what they hold.
    if (valueOf<uint32_t>(tiff.get(), TIFFTAG_SUBFILETYPE) & FILETYPE_REDUCEDIMAGE)
        throw ReadingFailure{ReadingOutcome::unsupported};
    DecodedPicture picture = headerOf(tiff.get());
    output.setProfile(blockOf(tiff.get(), TIFFTAG_ICCPROFILE));
    output.setXmp(blockOf(tiff.get(), TIFFTAG_XMLPACKET));
    const std::vector<unsigned char> exif = exifOfTiff(file);
    output.setExif(exif);
    const auto colours = valueOf<uint16_t>(tiff.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    if (isReadByRows(tiff.get())) {
        picture.colours = isLab(colours) ? DecodedPicture::lab : DecodedPicture::inks;
        readRows(tiff.get(), picture, output.begin(picture));
        return;
    }
    // What the library turns into the colours of the screen needs no profile any more.
    if (colours == PHOTOMETRIC_SEPARATED || isLab(colours) || colours == PHOTOMETRIC_LOGLUV) output.setProfile({});
    Lights lights(tiff.get());
    if (lights.hasAlpha()) picture.alpha = DecodedPicture::premultiplied;
    lights.read(picture, output.begin(picture));
}
