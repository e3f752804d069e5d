#include "editor/rotation.h"

#include "editor/row_blocks.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace {

struct Turn {
    double cosine, sine;
};

Turn turnBy(double degrees) {
    const double angle = (std::isfinite(degrees) ? degrees : 0) * 3.14 / 180;
    return {std::cos(angle), std::sin(angle)};
}

/// Columns from `begin` up to `end`.
struct Span {
    int begin, end;

    /// What both have in common; where that is nothing, an empty span at the beginning of the other.
    Span operator&(Span other) const {
        const Span common{std::max(begin, other.begin), std::min(end, other.end)};
        return common.begin < common.end ? common : Span{other.begin, other.begin};
    }
};

/// First column of a strip from which `holds` stays true; it must not turn false again.
template <typename Predicate>
int firstColumn(Span strip, Predicate holds) {
    while (strip.begin < strip.end) {
        const int middle = strip.begin + (strip.end - strip.begin) / 2;
        if (holds(middle))
            strip.end = middle;
        else
            strip.begin = middle + 1;
    }
    return strip.begin;
}

/// One coordinate in the source along a row of the target: a term for the column, one for the row, and half the
/// source's size, added in this order. The sums have to be these very ones, rounded at each step: they decide which
/// pixels lie outside and which of two neighbours is nearest.
struct Coordinate {
    const double* columnTerms;
    double rowTerm;
    double half;

    double at(int column) const { return (columnTerms[column] + rowTerm) + half; }
};

/// Columns of a strip whose coordinate lies strictly between 0 and `last`. The coordinate only rises or only falls
/// along a row, so they are one span.
Span inside(const Coordinate& coordinate, Span strip, double last) {
    const auto aboveFirst = [&](int column) { return coordinate.at(column) > 0; };
    const auto belowLast = [&](int column) { return coordinate.at(column) < last; };
    if (aboveFirst(strip.begin) && belowLast(strip.begin) && aboveFirst(strip.end - 1) && belowLast(strip.end - 1))
        return strip;
    if (coordinate.at(strip.begin) <= coordinate.at(strip.end - 1))
        return {firstColumn(strip, aboveFirst), firstColumn(strip, std::not_fn(belowLast))};
    return {firstColumn(strip, belowLast), firstColumn(strip, std::not_fn(aboveFirst))};
}

int nearest(float coordinate) {
    return int(std::nearbyint(coordinate));
}

/// Fills the columns of a span, all of which come from inside the source.
void copyNearest(const ConstPixelRows& source, const Coordinate& u, const Coordinate& v, Span span, QRgb* target) {
    int i = span.begin;
#ifdef __SSE2__
    const auto four = [](const Coordinate& coordinate, int column) {
        const __m128d row = _mm_set1_pd(coordinate.rowTerm);
        const __m128d half = _mm_set1_pd(coordinate.half);
        const auto two = [&](int first) {
            const __m128d term = _mm_loadu_pd(coordinate.columnTerms + first);
            return _mm_cvtpd_ps(_mm_add_pd(_mm_add_pd(term, row), half));
        };
        return _mm_cvtps_epi32(_mm_movelh_ps(two(column), two(column + 2)));
    };
    for (; i + 4 <= span.end; i += 4) {
        alignas(16) int x[4];
        alignas(16) int y[4];
        _mm_store_si128(reinterpret_cast<__m128i*>(x), four(u, i));
        _mm_store_si128(reinterpret_cast<__m128i*>(y), four(v, i));
        for (int k = 0; k < 4; ++k) target[i + k] = source[y[k]][x[k]];
    }
#endif
    for (; i < span.end; ++i) target[i] = source[nearest(float(v.at(i)))][nearest(float(u.at(i)))];
}

/// Columns worked on together: few enough that the source lines they come from stay at hand from one row to the next.
constexpr int stripColumns = 512;

}  // namespace

QSize rotatedSize(QSize twips, double degrees) {
    const Turn turn = turnBy(degrees);
    const double cosine = std::fabs(turn.cosine);
    const double sine = std::fabs(turn.sine);
    return {int(std::floor(cosine * twips.width() + sine * twips.height())),
            int(std::floor(cosine * twips.height() + sine * twips.width()))};
}

QImage rotated(const QImage& picture, QSize target, double degrees, QRgb background,
               const std::function<void(int percent)>& progress) {
    const QImage source = inEditorFormat(picture);
    const ConstPixelRows sourceRows(source);
    QImage result = blankPicture(target);
    const PixelRows resultRows(result);

    // The way back from a target pixel to the source turns by the negative angle.
    const Turn turn = turnBy(-degrees);
    const auto columnTerms = [&](double factor) {
        std::vector<double> terms(static_cast<size_t>(target.width()));
        for (int i = 0; i < target.width(); ++i) terms[size_t(i)] = (i - target.width() / 2) * factor;
        return terms;
    };
    const std::vector<double> uTerms = columnTerms(turn.cosine);
    const std::vector<double> vTerms = columnTerms(-turn.sine);

    const auto fillRow = [&](int j, Span strip) {
        const double dy = j - target.height() / 2;
        const Coordinate u{uTerms.data(), dy * turn.sine, double(source.width() / 2)};
        const Coordinate v{vTerms.data(), dy * turn.cosine, double(source.height() / 2)};
        const Span span = inside(u, strip, source.width() - 1) & inside(v, strip, source.height() - 1) & strip;
        QRgb* row = resultRows[j];
        std::fill(row + strip.begin, row + span.begin, background);
        copyNearest(sourceRows, u, v, span, row);
        std::fill(row + span.end, row + strip.end, background);
    };
    const auto fillRows = [&](int first, int end) {
        for (int begin = 0; begin < target.width(); begin += stripColumns)
            for (int j = first; j < end; ++j) fillRow(j, {begin, std::min(begin + stripColumns, target.width())});
    };
    forRowBlocks(target, fillRows, progress);
    return result;
}
