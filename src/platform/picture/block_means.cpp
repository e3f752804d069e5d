#include "platform/picture/block_means.h"

#include "platform/picture/huffman_tables.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

/// The tables of a picture, each made when it is first asked for.
template <typename Table>
class Tables {
  public:
    explicit Tables(JHUFF_TBL* const (&stored)[NUM_HUFF_TBLS]) : stored_(stored) {}

    /// nullptr when there is no valid one.
    std::shared_ptr<const Table> at(int number) {
        if (number < 0 || number >= NUM_HUFF_TBLS || !stored_[number]) return nullptr;
        std::shared_ptr<const Table>& table = made_[size_t(number)];
        if (!table) {
            const auto made = std::make_shared<Table>();
            if (made->assign(*stored_[number])) table = made;
        }
        return table;
    }

  private:
    JHUFF_TBL* const (&stored_)[NUM_HUFF_TBLS];
    std::array<std::shared_ptr<const Table>, NUM_HUFF_TBLS> made_;
};

/// One colour of the picture, and the shades of one row of units.
struct Colour {
    int across = 1;  ///< Blocks of it in a unit.
    int down = 1;
    int quantum = 1;  ///< Of a mean, in eighths of a shade.
    std::shared_ptr<const MeanTable> means = {};
    std::shared_ptr<const DetailTable> details = {};  ///< None where there are none in the scan.
    int mean = 0;                                     ///< Of the block before.
    size_t width = 0;
    std::vector<uchar> shades = {};

    /// The shades of a row of the image.
    const uchar* row(int y, int rows) const { return shades.data() + size_t(y * down / rows) * width; }
};

QRgb rgb(int y, int cb, int cr) {
    constexpr int bits = 16;
    constexpr int half = 1 << (bits - 1);
    constexpr auto fixed = [](double factor) { return int(factor * (1 << bits) + 0.5); };
    const auto light = [](int value) { return std::clamp(value, 0, MAXJSAMPLE); };
    cb -= CENTERJSAMPLE;
    cr -= CENTERJSAMPLE;
    return qRgb(light(y + ((fixed(1.402) * cr + half) >> bits)),
                light(y + ((-fixed(0.34414) * cb - fixed(0.71414) * cr + half) >> bits)),
                light(y + ((fixed(1.772) * cb + half) >> bits)));
}

/// Reads the one scan of a picture unit by unit: the blocks of each colour that cover the same area.
class MeansReader {
  public:
    MeansReader(const jpeg_decompress_struct& codec, JpegSource& source)
        : codec_(codec), bits_(source), unitsToRestart_(codec.restart_interval) {}

    /// Both are false where the library has to do it.
    bool prepare();
    bool read(QImage& image);

  private:
    /// 0 for none that is usual.
    int quantumOf(int table) const;
    bool readRow();
    bool readBlock(BitCursor& cursor, Colour& colour, uchar& shade);
    bool restart(BitCursor& cursor);
    void paint(int y, QRgb* line, int width) const;

    const jpeg_decompress_struct& codec_;
    ScanBits bits_;
    BitCursor cursor_ = bits_.begin();
    unsigned unitsToRestart_;
    int nextRestart_ = 0;
    size_t unitsAcross_ = 0;
    std::vector<Colour> colours_;
};

bool MeansReader::prepare() {
    // A progressive picture begins with a scan of nothing but the means, without their lowest bits.
    constexpr int mostLowestBits = 13;
    const bool holdsDetails = !codec_.progressive_mode;
    const bool isUsual = !codec_.arith_code && codec_.data_precision == BITS_IN_JSAMPLE && codec_.Ss == 0 &&
                         codec_.Se == (holdsDetails ? DCTSIZE2 - 1 : 0) && codec_.Ah == 0 &&
                         codec_.Al <= (holdsDetails ? 0 : mostLowestBits) &&
                         codec_.comps_in_scan == codec_.num_components;
    const bool isGrey = codec_.num_components == 1 && codec_.jpeg_color_space == JCS_GRAYSCALE;
    const bool isColoured = codec_.num_components == 3 && codec_.jpeg_color_space == JCS_YCbCr;
    if (!isUsual || !(isGrey || isColoured)) return false;

    Tables<MeanTable> means(codec_.dc_huff_tbl_ptrs);
    Tables<DetailTable> details(codec_.ac_huff_tbl_ptrs);
    for (int i = 0; i < codec_.num_components; ++i) {
        const jpeg_component_info& component = codec_.comp_info[i];
        // Only the brightness may be finer than the colours; without colours its blocks follow each other singly.
        Colour colour{.across = isGrey ? 1 : component.h_samp_factor, .down = isGrey ? 1 : component.v_samp_factor};
        const int most = i == 0 ? 2 : 1;
        if (codec_.cur_comp_info[i] != &component || colour.across > most || colour.down > most) return false;
        colour.means = means.at(component.dc_tbl_no);
        if (holdsDetails) colour.details = details.at(component.ac_tbl_no);
        colour.quantum = quantumOf(component.quant_tbl_no);
        if (!colour.means || (holdsDetails && !colour.details) || colour.quantum == 0) return false;
        colours_.push_back(colour);
    }
    const auto unitWidth = unsigned(DCTSIZE * colours_.front().across);
    unitsAcross_ = (codec_.image_width + unitWidth - 1) / unitWidth;
    for (Colour& colour : colours_) {
        colour.width = unitsAcross_ * size_t(colour.across);
        colour.shades.resize(colour.width * size_t(colour.down));
    }
    return true;
}

int MeansReader::quantumOf(int table) const {
    constexpr int most = 255;
    if (table < 0 || table >= NUM_QUANT_TBLS || !codec_.quant_tbl_ptrs[table]) return 0;
    const int quantum = codec_.quant_tbl_ptrs[table]->quantval[0];
    return quantum <= most ? quantum << codec_.Al : 0;
}

bool MeansReader::read(QImage& image) {
    const int rows = colours_.front().down;
    for (int y = 0; y < image.height(); y += rows) {
        if (!readRow()) return false;
        for (int i = 0; i < std::min(rows, image.height() - y); ++i)
            paint(i, reinterpret_cast<QRgb*>(image.scanLine(y + i)), image.width());
    }
    return true;
}

bool MeansReader::readRow() {
    BitCursor cursor = cursor_;
    for (size_t unit = 0; unit < unitsAcross_; ++unit) {
        if (codec_.restart_interval > 0 && unitsToRestart_-- == 0 && !restart(cursor)) return false;
        for (Colour& colour : colours_) {
            uchar* shade = colour.shades.data() + unit * size_t(colour.across);
            for (int y = 0; y < colour.down; ++y, shade += colour.width)
                for (int x = 0; x < colour.across; ++x)
                    if (!readBlock(cursor, colour, shade[x])) return false;
        }
    }
    cursor_ = cursor;
    return !bits_.isPassedBy(cursor);
}

inline bool MeansReader::readBlock(BitCursor& cursor, Colour& colour, uchar& shade) {
    if (bits_.runsLow(cursor)) {
        cursor = bits_.supply(cursor);
        if (bits_.isPassedBy(cursor)) return false;
    }
    cursor.refill();
    if (!colour.means->read(cursor, colour.mean)) return false;
    // Beyond this the library's own way of clipping wraps around.
    constexpr int most = 2 * (MAXJSAMPLE + 1);
    const qint64 value = (qint64(colour.mean) * colour.quantum + 4) >> 3;
    if (value < -most || value >= most) return false;
    shade = uchar(std::clamp(int(value) + CENTERJSAMPLE, 0, MAXJSAMPLE));
    return !colour.details || colour.details->pass(cursor);
}

bool MeansReader::restart(BitCursor& cursor) {
    constexpr int restartMarkers = 8;
    if (!bits_.passRestart(cursor, nextRestart_)) return false;
    nextRestart_ = (nextRestart_ + 1) % restartMarkers;
    unitsToRestart_ = codec_.restart_interval - 1;
    for (Colour& colour : colours_) colour.mean = 0;
    return true;
}

void MeansReader::paint(int y, QRgb* line, int width) const {
    const Colour& light = colours_.front();
    const uchar* lights = light.row(y, light.down);
    if (colours_.size() == 1) {
        std::transform(lights, lights + width, line, [](int shade) { return qRgb(shade, shade, shade); });
        return;
    }
    const uchar* blues = colours_[1].row(y, light.down);
    const uchar* reds = colours_[2].row(y, light.down);
    const int shift = light.across - 1;
    for (int x = 0; x < width; ++x) line[x] = rgb(lights[x], blues[x >> shift], reds[x >> shift]);
}

}  // namespace

bool readBlockMeans(const jpeg_decompress_struct& codec, JpegSource& source, QImage& image) {
    MeansReader reader(codec, source);
    return reader.prepare() && reader.read(image);
}
