#include "editor/pixels/resampling.h"

#include "editor/pixels/row_blocks.h"

#include <QtEndian>
#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

constexpr int channels = 4;

/// The weights of all source pixels of one target pixel add up to this, in each direction.
constexpr int weightBits = 14;
constexpr int wholeWeight = 1 << weightBits;

/// Between the two directions a channel has 15 bits: as many as fit a signed 16-bit number.
constexpr int rowShift = weightBits - 7;
constexpr int columnShift = weightBits + 7;

/// Which source pixels of one direction make a target pixel: those from `first` on, one for each weight.
struct Taps {
    int first;
    int count;
    const qint16* weights;
};

/// The taps of the target pixels from `begin` to before `end` of one direction, counted from `begin`.
class Direction {
  public:
    Direction(int source, int target, int begin, int end) {
        for (int i = begin; i < end; ++i) {
            starts_.push_back(weights_.size());
            if (target < source)
                average(source, target, i);
            else
                interpolate(source, target, i);
        }
        starts_.push_back(weights_.size());
    }

    Taps operator[](int i) const {
        const size_t start = starts_[size_t(i)];
        return {first_[size_t(i)], int(starts_[size_t(i) + 1] - start), weights_.data() + start};
    }

    /// The source pixels that are read.
    int begin() const { return first_.front(); }
    int length() const { return first_.back() + int(weights_.size() - starts_[first_.size() - 1]) - begin(); }

  private:
    // Rounded at the borders between the pixels, not one by one, so that the weights add up exactly.
    void average(int source, int target, int i) {
        const double begin = double(i) * source / target;
        const double end = double(i + 1) * source / target;
        const int first = int(begin);
        first_.push_back(first);
        int before = 0;
        for (int x = first; before < wholeWeight; ++x) {
            const double part = (std::min(double(x) + 1, end) - begin) / (end - begin);
            const int upToHere = x + 1 < source ? int(std::lround(part * wholeWeight)) : wholeWeight;
            weights_.push_back(qint16(upToHere - before));
            before = upToHere;
        }
    }

    void interpolate(int source, int target, int i) {
        const double middle = std::clamp((i + 0.5) * source / target - 0.5, 0.0, source - 1.0);
        const int first = int(middle);
        const int second = int(std::lround((middle - first) * wholeWeight));
        first_.push_back(first);
        weights_.push_back(qint16(wholeWeight - second));
        if (second > 0) weights_.push_back(qint16(second));
    }

    std::vector<int> first_;
    std::vector<size_t> starts_;
    std::vector<qint16> weights_;
};

/// Mixes the source rows of one target row, from column `begin` on, into `mixed`, one value of 15 bits for each
/// channel. Factors of 16 bits: of these the compiler takes eight at a time. In short blocks the sums never leave the
/// nearest memory.
void mixRows(const ConstPixelRows& source, int begin, const Taps& taps, std::span<qint16> mixed) {
    constexpr size_t block = 128;
    std::array<int, block> sums;
    for (size_t start = 0; start < mixed.size(); start += block) {
        const size_t count = std::min(block, mixed.size() - start);
        sums.fill(1 << (rowShift - 1));
        for (int tap = 0; tap < taps.count; ++tap) {
            const auto* row = reinterpret_cast<const uchar*>(source[taps.first + tap] + begin) + start;
            const qint16 weight = taps.weights[tap];
            for (size_t i = 0; i < count; ++i) sums[i] += qint16(row[i]) * weight;
        }
        for (size_t i = 0; i < count; ++i) mixed[start + i] = qint16(sums[i] >> rowShift);
    }
}

#ifdef __SSE2__
/// Mixes neighbours of a row of `mixRows` to one target pixel, two at a time in all channels: the compiler does not
/// find this by itself, and half of the time of zooming was spent here. The row has a pixel more than is mixed.
QRgb mixedColumns(const qint16* mixed, int begin, const Taps& taps) {
    const qint16* from = mixed + (taps.first - begin) * channels;
    const auto pixel = [](const qint16* at) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(at)); };
    __m128i sums = _mm_set1_epi32(1 << (columnShift - 1));
    for (int tap = 0; tap < taps.count; tap += 2, from += 2 * channels) {
        const int next = tap + 1 < taps.count ? taps.weights[tap + 1] : 0;
        const __m128i weights = _mm_set1_epi32(taps.weights[tap] | next << 16);
        sums = _mm_add_epi32(sums, _mm_madd_epi16(_mm_unpacklo_epi16(pixel(from), pixel(from + channels)), weights));
    }
    const __m128i shifted = _mm_srai_epi32(sums, columnShift);
    const __m128i words = _mm_packs_epi32(shifted, shifted);
    return QRgb(_mm_cvtsi128_si32(_mm_packus_epi16(words, words)));
}
#else
/// Mixes neighbours of a row of `mixRows` to one target pixel.
QRgb mixedColumns(const qint16* mixed, int begin, const Taps& taps) {
    const qint16* from = mixed + (taps.first - begin) * channels;
    std::array<int, channels> sums;
    sums.fill(1 << (columnShift - 1));
    for (int tap = 0; tap < taps.count; ++tap, from += channels)
        for (size_t channel = 0; channel < sums.size(); ++channel) sums[channel] += from[channel] * taps.weights[tap];
    for (int& sum : sums) sum >>= columnShift;
    return qFromLittleEndian(QRgb(sums[0] | sums[1] << 8 | sums[2] << 16 | sums[3] << 24));
}
#endif

}  // namespace

QImage resampled(const QImage& picture, QSize target) {
    return resampled(picture, target, QRect(QPoint(), target));
}

QImage resampled(const QImage& picture, QSize target, const QRect& part) {
    QImage result = blankPicture(part.size());
    const PixelRows resultRows(result);
    const ConstPixelRows source(picture);
    const Direction columns(picture.width(), target.width(), part.left(), part.right() + 1);
    const Direction rows(picture.height(), target.height(), part.top(), part.bottom() + 1);
    const int begin = columns.begin();

    forRowBlocks(part.size(), [&](int first, int end) {
        std::vector<qint16> mixed(size_t(columns.length() + 1) * channels);
        const std::span used(mixed.data(), size_t(columns.length()) * channels);
        for (int j = first; j < end; ++j) {
            mixRows(source, begin, rows[j], used);
            QRgb* row = resultRows[j];
            for (int i = 0; i < part.width(); ++i) row[i] = mixedColumns(mixed.data(), begin, columns[i]);
        }
    });
    return result;
}

QImage inBlocks(const QImage& picture, QSize target, const QRect& part) {
    const auto at = [](int i, int length, int stretched) { return int(qint64(i) * length / stretched); };
    std::vector<int> columns;
    for (int x = part.left(); x <= part.right(); ++x) columns.push_back(at(x, picture.width(), target.width()));
    QImage result = blankPicture(part.size());
    const PixelRows resultRows(result);
    const ConstPixelRows source(picture);
    for (int j = 0; j < part.height(); ++j) {
        const QRgb* from = source[at(part.top() + j, picture.height(), target.height())];
        std::transform(columns.begin(), columns.end(), resultRows[j], [from](int x) { return from[x]; });
    }
    return result;
}
