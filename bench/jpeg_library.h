#pragma once

#include <QImage>
#include <QThread>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

// The library's header leans on these two.
// clang-format off
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>
// clang-format on

/// A JPEG at an eighth of its size by the JPEG library alone.
inline QImage eighthByLibrary(const QByteArray& bytes) {
    jpeg_decompress_struct codec{};
    jpeg_error_mgr errors{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&codec);
    jpeg_mem_src(&codec, reinterpret_cast<const uchar*>(bytes.data()), static_cast<unsigned long>(bytes.size()));
    jpeg_read_header(&codec, TRUE);
    codec.scale_num = 1;
    codec.scale_denom = 8;
    codec.do_fancy_upsampling = FALSE;
    codec.out_color_space = JCS_EXT_BGRX;
    jpeg_start_decompress(&codec);
    QImage image(int(codec.output_width), int(codec.output_height), QImage::Format_RGB32);
    while (codec.output_scanline < codec.output_height) {
        JSAMPROW row = image.scanLine(int(codec.output_scanline));
        jpeg_read_scanlines(&codec, &row, 1);
    }
    jpeg_finish_decompress(&codec);
    jpeg_destroy_decompress(&codec);
    return image;
}

/// Does the work for 0, 1, 2 … in as many threads as there are processors.
inline void onAllProcessors(int count, const std::function<void(int)>& work) {
    std::atomic<int> next = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < QThread::idealThreadCount(); ++i)
        threads.emplace_back([&] {
            for (int number = next++; number < count; number = next++) work(number);
        });
}
