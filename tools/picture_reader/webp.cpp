#include "picture_reader/reading.h"

#include <webp/decode.h>
#include <webp/demux.h>

#include <algorithm>
#include <memory>

namespace {

struct DemuxerEnd {
    void operator()(WebPDemuxer* demuxer) const { WebPDemuxDelete(demuxer); }
};

/// A part beside the pixels; it is within the file.
Bytes chunkOf(const WebPDemuxer* demuxer, const char* name) {
    WebPChunkIterator chunk;
    if (!WebPDemuxGetChunk(demuxer, name, 1, &chunk)) return {};
    const Bytes bytes(chunk.chunk.bytes, chunk.chunk.size);
    WebPDemuxReleaseChunkIterator(&chunk);
    return bytes;
}

Bytes withoutExifMark(Bytes bytes) {
    constexpr unsigned char mark[] = {'E', 'x', 'i', 'f', 0, 0};
    const bool hasMark = bytes.size() > sizeof mark && std::equal(std::begin(mark), std::end(mark), bytes.begin());
    return hasMark ? bytes.subspan(sizeof mark) : bytes;
}

}  // namespace

/// Of an animation the first frame, on the empty canvas.
void decodeWebp(Bytes file, Output& output) {
    const WebPData data{file.data(), file.size()};
    const std::unique_ptr<WebPDemuxer, DemuxerEnd> demuxer(WebPDemux(&data));
    WebPIterator frame;
    if (!demuxer || !WebPDemuxGetFrame(demuxer.get(), 1, &frame)) throw ReadingFailure{ReadingOutcome::damaged};
    WebPBitstreamFeatures features;
    if (WebPGetFeatures(frame.fragment.bytes, frame.fragment.size, &features) != VP8_STATUS_OK)
        throw ReadingFailure{ReadingOutcome::damaged};
    const uint32_t width = WebPDemuxGetI(demuxer.get(), WEBP_FF_CANVAS_WIDTH);
    const uint32_t height = WebPDemuxGetI(demuxer.get(), WEBP_FF_CANVAS_HEIGHT);
    const auto end = [](int offset, int length) { return uint64_t(offset) + uint64_t(length); };
    if (frame.x_offset < 0 || frame.y_offset < 0 || end(frame.x_offset, features.width) > width ||
        end(frame.y_offset, features.height) > height)
        throw ReadingFailure{ReadingOutcome::damaged};

    constexpr int lossy = 1;
    const bool coversAll = features.width == int(width) && features.height == int(height);
    const uint32_t shared = features.format == lossy ? 2 : 1;
    output.setProfile(chunkOf(demuxer.get(), "ICCP"));
    output.setExif(withoutExifMark(chunkOf(demuxer.get(), "EXIF")));
    output.setXmp(chunkOf(demuxer.get(), "XMP "));
    unsigned char* const pixels =
        output.begin({.width = width,
                      .height = height,
                      .alpha = features.has_alpha || !coversAll ? DecodedPicture::straight : DecodedPicture::opaque,
                      .across = shared,
                      .down = shared});
    const size_t stride = size_t{4} * width;
    const size_t first = size_t(frame.y_offset) * stride + size_t{4} * size_t(frame.x_offset);
    if (WebPDecodeBGRAInto(frame.fragment.bytes, frame.fragment.size, pixels + first, stride * height - first,
                           int(stride)) == nullptr)
        throw ReadingFailure{ReadingOutcome::damaged};
    WebPDemuxReleaseIterator(&frame);
}
