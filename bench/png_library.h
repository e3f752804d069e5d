#pragma once

#include "jpeg_library.h"

#include <png.h>

#include <QByteArray>
#include <cstdlib>
#include <vector>

/// A PNG as a JPEG by the two libraries alone, with as many colours as it has.
inline QByteArray jpegByLibraries(const QByteArray& bytes, int quality) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png_image_begin_read_from_memory(&png, bytes.data(), size_t(bytes.size()));
    png.format = PNG_FORMAT_RGB;
    std::vector<uchar> pixels(PNG_IMAGE_SIZE(png));
    png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr);

    jpeg_compress_struct codec{};
    jpeg_error_mgr errors{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    uchar* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&codec, &memory, &size);
    codec.image_width = png.width;
    codec.image_height = png.height;
    codec.input_components = 3;
    codec.in_color_space = JCS_RGB;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, quality, TRUE);
    codec.comp_info[0].h_samp_factor = codec.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&codec, TRUE);
    while (codec.next_scanline < codec.image_height) {
        JSAMPROW line = pixels.data() + size_t(3) * png.width * codec.next_scanline;
        jpeg_write_scanlines(&codec, &line, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    QByteArray jpeg(reinterpret_cast<const char*>(memory), qsizetype(size));
    std::free(memory);
    return jpeg;
}
