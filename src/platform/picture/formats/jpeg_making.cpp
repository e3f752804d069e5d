#include "platform/base/error.h"
#include "platform/picture/formats/any_picture.h"

#include <csetjmp>
#include <cstdlib>

// The library's header leans on these two.
// clang-format off
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>
// clang-format on

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int cameraSegment = JPEG_APP0 + 1;
constexpr qsizetype longestSegment = 65533;

/// Packets end in blanks, as room to grow: without them more fit into a segment.
QByteArray trimmedPacket(const QByteArray& xmp) {
    constexpr QByteArrayView end("<?xpacket end=");
    const qsizetype mark = xmp.lastIndexOf(end);
    if (mark < 0 || xmp.size() < longestSegment / 2) return xmp;
    return xmp.first(mark).trimmed() + '\n' + xmp.sliced(mark).trimmed();
}

/// One compression. The library reports a failure by a jump back; nothing with a destructor lives in the frames that
/// the jump leaves out.
class JpegMaker {
  public:
    explicit JpegMaker(const AnyPicture& picture) : picture_(picture) {
        codec_.err = jpeg_std_error(&errors_.base);
        errors_.base.error_exit = [](j_common_ptr codec) {
            std::longjmp(reinterpret_cast<Errors*>(codec->err)->jump, 1);
        };
        errors_.base.output_message = [](j_common_ptr) {};
    }
    ~JpegMaker() {
        jpeg_destroy_compress(&codec_);
        std::free(memory_);
    }
    JpegMaker(const JpegMaker&) = delete;
    JpegMaker& operator=(const JpegMaker&) = delete;

    QByteArray make(int quality) {
        if (!succeeds(quality)) throw Error(u"图片不能变成 JPEG：内存不足。"_s);
        return {reinterpret_cast<const char*>(memory_), qsizetype(bytes_)};
    }

  private:
    struct Errors {
        jpeg_error_mgr base;
        std::jmp_buf jump;
    };

    [[gnu::noinline]] bool succeeds(int quality) {
        if (setjmp(errors_.jump) != 0) return false;
        jpeg_create_compress(&codec_);
        jpeg_mem_dest(&codec_, &memory_, &bytes_);
        setUp(quality);
        jpeg_start_compress(&codec_, TRUE);
        writeSegments();
        const QImage& image = picture_.picture.image();
        while (codec_.next_scanline < codec_.image_height) {
            // The library only reads what it is given to change.
            auto* row = const_cast<JSAMPLE*>(image.constScanLine(int(codec_.next_scanline)));
            jpeg_write_scanlines(&codec_, &row, 1);
        }
        jpeg_finish_compress(&codec_);
        return true;
    }

    void setUp(int quality) {
        const QSize size = picture_.picture.image().size();
        codec_.image_width = unsigned(size.width());
        codec_.image_height = unsigned(size.height());
        codec_.input_components = 4;
        codec_.in_color_space = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;
        jpeg_set_defaults(&codec_);
        if (picture_.isGrey) jpeg_set_colorspace(&codec_, JCS_GRAYSCALE);
        jpeg_set_quality(&codec_, quality, TRUE);
        codec_.optimize_coding = FALSE;
        codec_.comp_info[0].h_samp_factor = picture_.isGrey ? 1 : picture_.pixelsOfColour.width();
        codec_.comp_info[0].v_samp_factor = picture_.isGrey ? 1 : picture_.pixelsOfColour.height();
    }

    void writeSegments() {
        writeSegment(QByteArrayView("Exif\0\0", 6), picture_.exif);
        writeSegment(QByteArrayView("http://ns.adobe.com/xap/1.0/\0", 29), trimmedPacket(picture_.xmp));
        const QByteArray& profile = picture_.picture.profile();
        if (!profile.isEmpty())
            jpeg_write_icc_profile(&codec_, reinterpret_cast<const JOCTET*>(profile.data()), unsigned(profile.size()));
    }

    void writeSegment(QByteArrayView mark, const QByteArray& content) {
        if (content.isEmpty() || mark.size() + content.size() > longestSegment) return;
        const QByteArray segment = mark.toByteArray() + content;
        jpeg_write_marker(&codec_, cameraSegment, reinterpret_cast<const JOCTET*>(segment.data()),
                          unsigned(segment.size()));
    }

    Errors errors_{};
    jpeg_compress_struct codec_{};
    const AnyPicture& picture_;
    unsigned char* memory_ = nullptr;
    unsigned long bytes_ = 0;
};

}  // namespace

QByteArray jpegOf(const AnyPicture& picture, int quality) {
    if (picture.picture.isNull()) throw Error(u"图片不能变成 JPEG：没有图片。"_s);
    return JpegMaker(picture).make(quality);
}
