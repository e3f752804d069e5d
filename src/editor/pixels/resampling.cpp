#include "editor/pixels/resampling.h"

#include "editor/pixels/row_blocks.h"

#include <algorithm>
#include <cmath>
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

/// Which source pixels of one direction make a target pixel: those from `first` on, one for each weight. The count of
/// weights is even, because the sums are taken in pairs; the last one may be 0, for a pixel behind the end.
struct Taps {
    int first;
    int count;
    const qint16* weights;
};

/// The taps of all target pixels of one direction.
class Direction {
  public:
    Direction(int source, int target) {
        for (int i = 0; i < target; ++i) {
            starts_.push_back(weights_.size());
            if (target < source)
                average(source, target, i);
            else
                interpolate(source, target, i);
            if ((weights_.size() - starts_.back()) % 2 != 0) weights_.push_back(0);
        }
        starts_.push_back(weights_.size());
    }

    Taps operator[](int i) const {
        const size_t start = starts_[size_t(i)];
        return {first_[size_t(i)], int(starts_[size_t(i) + 1] - start), weights_.data() + start};
    }

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
        weights_.push_back(qint16(second));
    }

    std::vector<int> first_;
    std::vector<size_t> starts_;
    std::vector<qint16> weights_;
};

/// Mixes the source rows of one target row into `mixed`, one value of 15 bits for each channel.
void mixRows(const ConstPixelRows& source, QSize size, const Taps& taps, qint16* mixed) {
    const auto row = [&](int tap) {
        return reinterpret_cast<const uchar*>(source[std::min(taps.first + tap, size.height() - 1)]);
    };
    const int values = size.width() * channels;
    int i = 0;
#ifdef __SSE2__
    const __m128i zero = _mm_setzero_si128();
    for (; i + 16 <= values; i += 16) {
        __m128i sums[4];
        std::fill_n(sums, 4, _mm_set1_epi32(1 << (rowShift - 1)));
        for (int tap = 0; tap < taps.count; tap += 2) {
            const __m128i weights = _mm_set1_epi32(taps.weights[tap] | taps.weights[tap + 1] << 16);
            const __m128i upper = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row(tap) + i));
            const __m128i lower = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row(tap + 1) + i));
            const __m128i left = _mm_unpacklo_epi8(upper, lower);
            const __m128i right = _mm_unpackhi_epi8(upper, lower);
            const auto add = [&](__m128i& sum, __m128i pairs) {
                sum = _mm_add_epi32(sum, _mm_madd_epi16(pairs, weights));
            };
            add(sums[0], _mm_unpacklo_epi8(left, zero));
            add(sums[1], _mm_unpackhi_epi8(left, zero));
            add(sums[2], _mm_unpacklo_epi8(right, zero));
            add(sums[3], _mm_unpackhi_epi8(right, zero));
        }
        const auto store = [&](int at, __m128i low, __m128i high) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(mixed + at),
                             _mm_packs_epi32(_mm_srai_epi32(low, rowShift), _mm_srai_epi32(high, rowShift)));
        };
        store(i, sums[0], sums[1]);
        store(i + 8, sums[2], sums[3]);
    }
#endif
    for (; i < values; ++i) {
        int sum = 1 << (rowShift - 1);
        for (int tap = 0; tap < taps.count; ++tap) sum += row(tap)[i] * taps.weights[tap];
        mixed[i] = qint16(sum >> rowShift);
    }
}

/// Mixes neighbours of a row of `mixRows` to one target pixel.
QRgb mixedColumns(const qint16* mixed, const Taps& taps) {
    const qint16* from = mixed + taps.first * channels;
    constexpr int half = 1 << (columnShift - 1);
#ifdef __SSE2__
    __m128i sum = _mm_set1_epi32(half);
    for (int tap = 0; tap < taps.count; tap += 2, from += 2 * channels) {
        const __m128i weights = _mm_set1_epi32(taps.weights[tap] | taps.weights[tap + 1] << 16);
        const __m128i two = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        sum = _mm_add_epi32(sum, _mm_madd_epi16(_mm_unpacklo_epi16(two, _mm_srli_si128(two, 8)), weights));
    }
    const __m128i words = _mm_packs_epi32(_mm_srai_epi32(sum, columnShift), sum);
    return QRgb(_mm_cvtsi128_si32(_mm_packus_epi16(words, words)));
#else
    QRgb pixel;
    auto* bytes = reinterpret_cast<uchar*>(&pixel);
    for (int channel = 0; channel < channels; ++channel) {
        int sum = half;
        for (int tap = 0; tap < taps.count; ++tap) sum += from[tap * channels + channel] * taps.weights[tap];
        bytes[channel] = uchar(sum >> columnShift);
    }
    return pixel;
#endif
}

QRgb meanOfFour(QRgb a, QRgb b, QRgb c, QRgb d) {
    constexpr QRgb everySecond = 0x00FF00FF;
    constexpr QRgb half = 0x00020002;
    const auto sum = [&](int shift) {
        const auto channelPair = [&](QRgb pixel) { return (pixel >> shift) & everySecond; };
        return channelPair(a) + channelPair(b) + channelPair(c) + channelPair(d) + half;
    };
    return (sum(0) >> 2 & everySecond) | (sum(8) >> 2 & everySecond) << 8;
}

/// The commonest factor has a shorter way to the same pixels.
void halveRow(const QRgb* upper, const QRgb* lower, int width, QRgb* row) {
    int i = 0;
#ifdef __SSE2__
    const __m128i zero = _mm_setzero_si128();
    const __m128i half = _mm_set1_epi16(2);
    const auto twoPixels = [&](int at) {
        const __m128i above = _mm_loadu_si128(reinterpret_cast<const __m128i*>(upper + at));
        const __m128i below = _mm_loadu_si128(reinterpret_cast<const __m128i*>(lower + at));
        const __m128i left = _mm_add_epi16(_mm_unpacklo_epi8(above, zero), _mm_unpacklo_epi8(below, zero));
        const __m128i right = _mm_add_epi16(_mm_unpackhi_epi8(above, zero), _mm_unpackhi_epi8(below, zero));
        const __m128i sums = _mm_add_epi16(_mm_unpacklo_epi64(left, right), _mm_unpackhi_epi64(left, right));
        return _mm_srli_epi16(_mm_add_epi16(sums, half), 2);
    };
    for (; i + 4 <= width; i += 4)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row + i), _mm_packus_epi16(twoPixels(2 * i), twoPixels(2 * i + 4)));
#endif
    for (; i < width; ++i) row[i] = meanOfFour(upper[2 * i], upper[2 * i + 1], lower[2 * i], lower[2 * i + 1]);
}

}  // namespace

QImage resampled(const QImage& picture, QSize target) {
    QImage result = blankPicture(target);
    const PixelRows resultRows(result);
    const ConstPixelRows source(picture);
    if (picture.size() == target * 2) {
        forRowBlocks(target, [&](int first, int end) {
            for (int j = first; j < end; ++j) halveRow(source[2 * j], source[2 * j + 1], target.width(), resultRows[j]);
        });
        return result;
    }
    const Direction columns(picture.width(), target.width());
    const Direction rows(picture.height(), target.height());

    forRowBlocks(target, [&](int first, int end) {
        // One pixel more than the row has: a weight of 0 may stand behind its end.
        std::vector<qint16> mixed(size_t(picture.width() + 1) * channels);
        for (int j = first; j < end; ++j) {
            mixRows(source, picture.size(), rows[j], mixed.data());
            QRgb* row = resultRows[j];
            for (int i = 0; i < target.width(); ++i) row[i] = mixedColumns(mixed.data(), columns[i]);
        }
    });
    return result;
}
