#include "platform/picture/jpeg_reader.h"

#include "platform/base/error.h"
#include "platform/picture/block_means.h"
#include "platform/picture/colour_transform.h"
#include "platform/picture/exif.h"
#include "platform/picture/jpeg_source.h"
#include "platform/picture/memory_share.h"
#include "platform/picture/refusal.h"

#include <QBuffer>
#include <csetjmp>
#include <cstdlib>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int fullScale = 8;  // The library scales by eighths.

/// Red, green and blue of one row of cyan, magenta, yellow and black. The makers of such files store them inverted and
/// leave a mark that says so.
void convertInkRow(const JSAMPLE* ink, QRgb* row, int width, bool inverted, const ColourTransform* transform) {
    const JSAMPLE flip = inverted ? 0 : 255;
    if (transform != nullptr) {
        const JSAMPLE toAmount = 255 ^ flip;
        const auto amount = [&](int x, int channel) { return ink[4 * x + channel] ^ toAmount; };
        for (int x = 0; x < width; ++x) row[x] = qRgba(amount(x, 0), amount(x, 1), amount(x, 2), amount(x, 3));
        transform->apply(row, width);
        return;
    }
    for (int x = 0; x < width; ++x, ink += 4) {
        const int light = ink[3] ^ flip;
        const auto shade = [&](int channel) { return (ink[channel] ^ flip) * light / 255; };
        row[x] = qRgb(shade(0), shade(1), shade(2));
    }
}

/// One decompression. The library reports a failure by a jump back into `run`; nothing with a destructor lives in the
/// frames that the jump leaves out.
class JpegReader {
  public:
    JpegReader(QIODevice& device, const QString& name) : source_(device), name_(name) {
        codec_.err = jpeg_std_error(&errors_.base);
        errors_.base.error_exit = [](j_common_ptr codec) {
            std::longjmp(reinterpret_cast<Errors*>(codec->err)->jump, 1);
        };
        errors_.base.output_message = [](j_common_ptr) {};
        progress_.progress_monitor = refuseEndlessScans;
    }
    ~JpegReader() { jpeg_destroy_decompress(&codec_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    Picture read(QSize target) {
        const QSize pixels = prepare(target);
        const MemoryShare share(bytes_);
        QImage stored = decode();
        if (kind() == ColourKind::grey) convertGreys(stored);
        if (source_.readFailed()) refusePicture(name_, u"读取失败"_s);
        const QImage upright = uprightImage(stored, orientation_);
        if (upright.isNull()) refusePicture(name_, u"内存不足"_s);
        const bool isUsable = kind() == ColourKind::lights && ColourTransform::of(profile_, kind());
        return {upright, pixels, isUsable ? profile_ : QByteArray()};
    }

    /// Only the profile of red, green and blue; nothing else is read.
    QByteArray profile() {
        readSegments();
        return ColourTransform::of(profile_, ColourKind::lights) ? profile_ : QByteArray();
    }

    QSize size() {
        const QSize pixels = prepare({1, 1});
        run([this] {
            codec_.buffered_image = jpeg_has_multiple_scans(&codec_);  // or all scans would be read
            jpeg_start_decompress(&codec_);
        });
        return pixels;
    }

  private:
    struct Errors {
        jpeg_error_mgr base;
        std::jmp_buf jump;
    };

    /// Runs steps of the library; a failure in them ends here.
    template <typename Steps>
    void run(const Steps& steps) {
        if (!succeeds(steps)) refusePicture(name_, u"图片已损坏，或是不支持的 JPEG 格式"_s);
    }

    template <typename Steps>
    [[gnu::noinline]] bool succeeds(const Steps& steps) {
        if (setjmp(errors_.jump) != 0) return false;
        steps();
        return true;
    }

    static void refuseEndlessScans(j_common_ptr codec);
    QSize prepare(QSize target);
    void readHeader();
    void readSegments();
    void readProfile();
    ColourKind kind() const;
    void convertGreys(QImage& image) const;
    QSize storedSize() const { return {int(codec_.image_width), int(codec_.image_height)}; }
    Orientation storedOrientation() const;
    void chooseScale(QSize target);
    qint64 bytesToHold();
    QImage decode();
    bool readMeans(QImage& image);
    void readFirstColours();

    Errors errors_{};
    jpeg_progress_mgr progress_{};
    jpeg_decompress_struct codec_{};
    JpegSource source_;
    const QString& name_;
    Orientation orientation_ = uprightOrientation;
    QByteArray profile_;
    qint64 bytes_ = 0;  ///< Of memory that decoding takes.
};

/// What comes before decoding; returns the size of the upright picture.
QSize JpegReader::prepare(QSize target) {
    readHeader();
    orientation_ = storedOrientation();
    chooseScale(turned(target, orientation_));
    bytes_ = bytesToHold();
    const QSize pixels = turned(storedSize(), orientation_);
    checkMemory(bytes_, pixels, name_);
    return pixels;
}

/// Each scan costs a pass over the whole picture: a small file full of them would keep the program busy for hours. Even
/// the largest pictures come in no more than twenty.
void JpegReader::refuseEndlessScans(j_common_ptr codec) {
    constexpr qint64 mostPixels = 2'000'000'000;
    constexpr qint64 always = 32;
    constexpr qint64 atMost = 500;
    const auto* picture = reinterpret_cast<j_decompress_ptr>(codec);
    const qint64 pixels = qint64(picture->image_width) * picture->image_height;
    if (picture->input_scan_number > qBound(always, mostPixels / qMax(pixels, qint64(1)), atMost))
        codec->err->error_exit(codec);
}

void JpegReader::readSegments() {
    run([this] {
        jpeg_create_decompress(&codec_);
        codec_.src = source_.manager();
        codec_.progress = &progress_;
        codec_.mem->max_memory_to_use = long(pictureMemoryLimit());
        for (const int segment : {1, 2}) jpeg_save_markers(&codec_, JPEG_APP0 + segment, 0xFFFF);
        jpeg_read_header(&codec_, TRUE);
    });
    readProfile();
}

/// A profile comes in one segment or more, of which each says where it belongs.
void JpegReader::readProfile() {
    JOCTET* bytes = nullptr;
    unsigned length = 0;
    run([&] {
        if (!jpeg_read_icc_profile(&codec_, &bytes, &length)) length = 0;
    });
    profile_ = QByteArray(reinterpret_cast<const char*>(bytes), qsizetype(length));
    std::free(bytes);
}

ColourKind JpegReader::kind() const {
    if (codec_.jpeg_color_space == JCS_GRAYSCALE) return ColourKind::grey;
    const bool inks = codec_.jpeg_color_space == JCS_CMYK || codec_.jpeg_color_space == JCS_YCCK;
    return inks ? ColourKind::inks : ColourKind::lights;
}

void JpegReader::convertGreys(QImage& image) const {
    const auto transform = ColourTransform::of(profile_, ColourKind::grey);
    for (int y = 0; transform && y < image.height(); ++y)
        transform->apply(reinterpret_cast<QRgb*>(image.scanLine(y)), image.width());
}

void JpegReader::readHeader() {
    readSegments();
    checkSides(storedSize(), name_);
    checkSubstance(storedSize(), source_.size(), name_);
    if (!source_.hasPictureData()) refusePicture(name_, u"图片数据不完整"_s);
    const bool inks = kind() == ColourKind::inks;
    codec_.out_color_space = inks ? JCS_CMYK : Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;
}

Orientation JpegReader::storedOrientation() const {
    for (auto* marker = codec_.marker_list; marker; marker = marker->next) {
        const QByteArrayView segment(marker->data, qsizetype(marker->data_length));
        if (segment.startsWith("Exif")) return orientationFromApp1(segment);
    }
    return uprightOrientation;
}

/// Takes the smallest scale that still covers the target.
void JpegReader::chooseScale(QSize target) {
    codec_.scale_denom = fullScale;
    codec_.scale_num = fullScale;
    if (!target.isEmpty()) {
        const auto covers = [&](int eighths) {
            return (qint64(storedSize().width()) * eighths + fullScale - 1) / fullScale >= target.width() &&
                   (qint64(storedSize().height()) * eighths + fullScale - 1) / fullScale >= target.height();
        };
        int eighths = 1;
        while (eighths < fullScale && !covers(eighths)) ++eighths;
        codec_.scale_num = unsigned(eighths);
        codec_.do_fancy_upsampling = eighths == fullScale;
    }
    // An eighth needs nothing but the mean of each block, which a progressive file has in front.
    codec_.buffered_image = codec_.progressive_mode && codec_.scale_num == 1;
    run([this] { jpeg_calc_output_dimensions(&codec_); });
}

/// Reads the scans of a progressive picture until every colour has its means.
void JpegReader::readFirstColours() {
    codec_.do_block_smoothing = FALSE;
    const auto complete = [this] {
        for (int component = 0; component < codec_.num_components; ++component)
            if (codec_.coef_bits[component][0] < 0) return false;
        return true;
    };
    int state = JPEG_SUSPENDED;
    do {
        state = jpeg_consume_input(&codec_);
        refuseEndlessScans(reinterpret_cast<j_common_ptr>(&codec_));
    } while (state != JPEG_REACHED_EOI && !(state == JPEG_SCAN_COMPLETED && complete()));
    jpeg_start_output(&codec_, codec_.input_scan_number);
}

/// The image, its upright copy, and where the picture comes in several scans all of what was read of it.
qint64 JpegReader::bytesToHold() {
    const qint64 image = imageBytes({int(codec_.output_width), int(codec_.output_height)});
    qint64 bytes = orientation_ == uprightOrientation ? image : 2 * image;
    run([&] {
        if (!jpeg_has_multiple_scans(&codec_)) return;
        for (int i = 0; i < codec_.num_components; ++i) {
            const jpeg_component_info& component = codec_.comp_info[i];
            bytes += qint64(component.width_in_blocks) * component.height_in_blocks * qint64(sizeof(JBLOCK));
        }
    });
    return bytes;
}

/// At an eighth an ordinary picture is read without the library. Any other one the library reads from the start.
bool JpegReader::readMeans(QImage& image) {
    if (codec_.scale_num != 1 || !source_.canGoBack()) return false;
    const qint64 start = source_.position();
    if (readBlockMeans(codec_, source_, image)) return true;
    source_.goBackTo(start);
    return false;
}

QImage JpegReader::decode() {
    const QSize size(int(codec_.output_width), int(codec_.output_height));
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) refusePicture(name_, u"内存不足"_s);

    if (readMeans(image)) return image;

    const bool inks = kind() == ColourKind::inks;
    const auto transform = inks ? ColourTransform::of(profile_, kind()) : nullptr;
    std::vector<JSAMPLE> inkRow(inks ? size_t(size.width()) * 4 : 0);
    run([&] {
        jpeg_start_decompress(&codec_);
        if (codec_.buffered_image) readFirstColours();
        while (codec_.output_scanline < codec_.output_height) {
            uchar* line = image.scanLine(int(codec_.output_scanline));
            JSAMPROW row = inks ? inkRow.data() : line;
            jpeg_read_scanlines(&codec_, &row, 1);
            if (inks) {
                convertInkRow(row, reinterpret_cast<QRgb*>(line), size.width(), codec_.saw_Adobe_marker,
                              transform.get());
            }
        }
    });
    return image;
}

}  // namespace

Picture readJpeg(QIODevice& device, const QString& name, QSize target) {
    return JpegReader(device, name).read(target);
}

QSize jpegSize(QIODevice& device, const QString& name) {
    return JpegReader(device, name).size();
}

QByteArray jpegProfile(const QByteArray& beginning) {
    QBuffer buffer;
    buffer.setData(beginning);
    buffer.open(QIODevice::ReadOnly);
    QByteArray profile;
    attempt([&] { profile = JpegReader(buffer, {}).profile(); });
    return profile;
}
