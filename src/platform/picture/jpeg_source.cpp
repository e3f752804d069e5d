#include "platform/picture/jpeg_source.h"

#include <utility>

JpegSource::JpegSource(QIODevice& device) : device_(device) {
    manager_.source = this;
    manager_.base.init_source = [](j_decompress_ptr) {};
    manager_.base.term_source = [](j_decompress_ptr) {};
    manager_.base.resync_to_restart = jpeg_resync_to_restart;
    manager_.base.fill_input_buffer = [](j_decompress_ptr codec) -> boolean {
        of(codec).fill();
        return TRUE;
    };
    manager_.base.skip_input_data = [](j_decompress_ptr codec, long count) { of(codec).skip(count); };
}

bool JpegSource::hasPictureData() {
    if (manager_.base.bytes_in_buffer == 0) fill();
    if (ended_) return false;
    const JOCTET* next = manager_.base.next_input_byte;
    return manager_.base.bytes_in_buffer < 2 || next[0] != 0xFF || next[1] != JPEG_EOI;
}

QByteArrayView JpegSource::take() {
    if (manager_.base.bytes_in_buffer == 0) fill();
    if (ended_) return {};
    return {manager_.base.next_input_byte, qsizetype(std::exchange(manager_.base.bytes_in_buffer, 0))};
}

void JpegSource::goBackTo(qint64 position) {
    readFailed_ = !device_.seek(position);
    manager_.base.bytes_in_buffer = 0;
}

void JpegSource::fill() {
    const qint64 count = device_.read(reinterpret_cast<char*>(buffer_.data()), qint64(buffer_.size()));
    readFailed_ = readFailed_ || count < 0;
    ended_ = count <= 0;
    if (ended_) {
        buffer_[0] = 0xFF;
        buffer_[1] = JPEG_EOI;
    }
    manager_.base.next_input_byte = buffer_.data();
    manager_.base.bytes_in_buffer = ended_ ? 2 : size_t(count);
}

void JpegSource::skip(long count) {
    for (auto left = size_t(qMax(count, 0L)); left > 0;) {
        if (manager_.base.bytes_in_buffer == 0) fill();
        if (ended_) return;
        const size_t step = qMin(left, manager_.base.bytes_in_buffer);
        manager_.base.next_input_byte += step;
        manager_.base.bytes_in_buffer -= step;
        left -= step;
    }
}
