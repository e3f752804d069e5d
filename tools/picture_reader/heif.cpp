#include "picture_reader/reading.h"

#include <libheif/heif.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct ContextEnd {
    void operator()(heif_context* context) const { heif_context_free(context); }
};
struct HandleEnd {
    void operator()(heif_image_handle* handle) const { heif_image_handle_release(handle); }
};
struct ImageEnd {
    void operator()(heif_image* image) const { heif_image_release(image); }
};
using Handle = std::unique_ptr<heif_image_handle, HandleEnd>;
using Block = std::vector<unsigned char>;

void require(const heif_error& error) {
    if (error.code == heif_error_Ok) return;
    const bool isTooLarge = error.subcode == heif_suberror_Security_limit_exceeded;
    const bool hasNoDecoder =
        error.subcode == heif_suberror_Unsupported_codec || error.code == heif_error_Plugin_loading_error;
    const bool isUnsupported =
        error.code == heif_error_Unsupported_feature || error.code == heif_error_Unsupported_filetype;
    throw ReadingFailure{error.code == heif_error_Memory_allocation_error ? ReadingOutcome::limitExceeded
                         : isTooLarge                                     ? ReadingOutcome::tooLarge
                         : hasNoDecoder                                   ? ReadingOutcome::noDecoder
                         : isUnsupported                                  ? ReadingOutcome::unsupported
                                                                          : ReadingOutcome::damaged};
}

/// The first block of a type, for which `fits` has a use.
template <typename Fits>
Block blockOf(const heif_image_handle* handle, const char* type, const Fits& fits) {
    heif_item_id ids[16];
    const int count = heif_image_handle_get_list_of_metadata_block_IDs(handle, type, ids, int(std::size(ids)));
    for (int i = 0; i < count; ++i) {
        const size_t size = heif_image_handle_get_metadata_size(handle, ids[i]);
        if (!fits(ids[i]) || size > DecodedPicture::mostBeside) continue;
        Block block(size);
        if (heif_image_handle_get_metadata(handle, ids[i], block.data()).code == heif_error_Ok) return block;
    }
    return {};
}

/// In front of the block there is a number: how many bytes follow before it begins.
Block exifOf(const heif_image_handle* handle) {
    Block block = blockOf(handle, "Exif", [](heif_item_id) { return true; });
    if (block.size() < 4) return {};
    const uint64_t skipped = uint64_t{4} + (uint32_t{block[0]} << 24 | block[1] << 16 | block[2] << 8 | block[3]);
    if (skipped > block.size()) return {};
    block.erase(block.begin(), block.begin() + std::ptrdiff_t(skipped));
    return block;
}

Block xmpOf(const heif_image_handle* handle) {
    return blockOf(handle, "mime", [&](heif_item_id id) {
        return std::string_view(heif_image_handle_get_metadata_content_type(handle, id)) == "application/rdf+xml";
    });
}

Block profileOf(const heif_image_handle* handle) {
    const size_t size = heif_image_handle_get_raw_color_profile_size(handle);
    Block profile(size <= DecodedPicture::mostBeside ? size : 0);
    if (profile.empty() || heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok)
        return {};
    return profile;
}

uint32_t primariesOf(const heif_image_handle* handle) {
    heif_color_profile_nclx* profile = nullptr;
    if (heif_image_handle_get_nclx_color_profile(handle, &profile).code != heif_error_Ok) return 0;
    const auto primaries = uint32_t(profile->color_primaries);
    heif_nclx_color_profile_free(profile);
    return primaries;
}

/// How many pixels share a colour. The library does not say it of what it has turned into red, green and blue; the
/// settings of the decoder in the file do.
void findSharing(Bytes file, DecodedPicture& picture) {
    const auto settings = [&](std::string_view name) {
        const auto found = std::search(file.begin(), file.end(), name.begin(), name.end());
        return file.subspan(size_t(found - file.begin()));
    };
    picture.across = picture.down = 2;
    const Bytes hevc = settings("hvcC"), av1 = settings("av1C");
    if (hevc.size() > 20) {
        const int chroma = hevc[20] & 3;
        picture.across = chroma == 3 ? 1 : 2;
        picture.down = chroma >= 2 ? 1 : 2;
    } else if (av1.size() > 6) {
        picture.across = av1[6] & 8 ? 2 : 1;
        picture.down = av1[6] & 4 ? 2 : 1;
    }
}

/// Gives the whole pages back that hold these bytes. Nobody reads them again.
void giveBack(const uint8_t* from, const uint8_t* to) {
    static const auto page = uintptr_t(sysconf(_SC_PAGESIZE));
    const uintptr_t first = (reinterpret_cast<uintptr_t>(from) + page - 1) / page * page;
    const uintptr_t end = reinterpret_cast<uintptr_t>(to) / page * page;
    if (first < end) madvise(reinterpret_cast<void*>(first), end - first, MADV_DONTNEED);
}

/// Turns the library's rows of red, green, blue and perhaps alpha into those of the output. What was read is given back
/// at once, so that there is never much more than one of both: several of these programs may work at a time.
template <int bytesOfPixel>
void copyRows(const uint8_t* rows, int stride, unsigned char* pixel, const DecodedPicture& picture) {
    constexpr uint32_t rowsTogether = 64;
    const uint8_t* kept = rows;
    for (uint32_t y = 0; y < picture.height; ++y) {
        const uint8_t* from = rows + size_t(stride) * y;
        if (y % rowsTogether == 0) giveBack(std::exchange(kept, from), from);
        for (uint32_t x = 0; x < picture.width; ++x, from += bytesOfPixel, pixel += 4) {
            pixel[0] = from[2];
            pixel[1] = from[1];
            pixel[2] = from[0];
            pixel[3] = bytesOfPixel == 4 ? from[bytesOfPixel - 1] : 0xFF;
        }
    }
}

}  // namespace

void decodeHeif(Bytes file, Output& output) {
    const std::unique_ptr<heif_context, ContextEnd> context(heif_context_alloc());
    heif_context_set_maximum_image_size_limit(context.get(), int(DecodedPicture::longestSide));
    require(heif_context_read_from_memory_without_copy(context.get(), file.data(), file.size(), nullptr));
    heif_image_handle* primary = nullptr;
    require(heif_context_get_primary_image_handle(context.get(), &primary));
    const Handle handle(primary);
    Output::check(uint64_t(std::max(0, heif_image_handle_get_width(primary))),
                  uint64_t(std::max(0, heif_image_handle_get_height(primary))));

    const std::unique_ptr<heif_decoding_options, decltype(&heif_decoding_options_free)> options(
        heif_decoding_options_alloc(), heif_decoding_options_free);
    options->convert_hdr_to_8bit = 1;
    heif_image* decoded = nullptr;
    const bool hasAlpha = heif_image_handle_has_alpha_channel(primary) != 0;
    require(heif_decode_image(primary, &decoded, heif_colorspace_RGB,
                              hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, options.get()));
    const std::unique_ptr<heif_image, ImageEnd> image(decoded);
    int stride = 0;
    const uint8_t* row = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &stride);
    if (row == nullptr) throw ReadingFailure{ReadingOutcome::damaged};

    const Block profile = profileOf(primary), exif = exifOf(primary), xmp = xmpOf(primary);
    output.setProfile(profile);
    output.setExif(exif);
    output.setXmp(xmp);
    DecodedPicture picture{.width = uint32_t(std::max(0, heif_image_get_width(decoded, heif_channel_interleaved))),
                           .height = uint32_t(std::max(0, heif_image_get_height(decoded, heif_channel_interleaved))),
                           .alpha = hasAlpha ? DecodedPicture::straight : DecodedPicture::opaque,
                           .primaries = primariesOf(primary)};
    findSharing(file, picture);
    unsigned char* const pixels = output.begin(picture);
    if (hasAlpha)
        copyRows<4>(row, stride, pixels, picture);
    else
        copyRows<3>(row, stride, pixels, picture);
}
