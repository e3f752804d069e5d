#include "editor/pixels/rotation.h"

#include "editor/pixels/row_blocks.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

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
    return int(std::lrint(coordinate));
}

/// Fills the columns of a span, all of which come from inside the source.
void copyNearest(const ConstPixelRows& source, const Coordinate& u, const Coordinate& v, Span span, QRgb* target) {
    for (int i = span.begin; i < span.end; ++i) target[i] = source[nearest(float(v.at(i)))][nearest(float(u.at(i)))];
}

/// One rotation of a picture. The target is filled tile by tile: small enough that the lines of the source that a tile
/// comes from stay at hand while its rows are filled.
class Rotation {
  public:
    Rotation(const QImage& source, QImage& target, double degrees, QRgb background)
        // The way back from a target pixel to the source turns by the negative angle.
        : turn_(turnBy(-degrees)),
          source_(source),
          sourceSize_(source.size()),
          target_(target),
          targetSize_(target.size()),
          background_(background),
          uTerms_(columnTerms(turn_.cosine)),
          vTerms_(columnTerms(-turn_.sine)) {}

    void fillRows(int first, int end) const {
        for (int begin = 0; begin < targetSize_.width(); begin += tileColumns) {
            const Span columns{begin, std::min(begin + tileColumns, targetSize_.width())};
            fetchSource(columns, first, end);
            for (int j = first; j < end; ++j) fillRow(columns, j);
        }
    }

  private:
    static constexpr int tileColumns = 128;

    /// In the middle of an even length the pixel behind it is taken.
    static int middle(int length) { return length / 2; }

    std::vector<double> columnTerms(double factor) const {
        std::vector<double> terms(size_t(targetSize_.width()));
        for (int i = 0; i < targetSize_.width(); ++i) terms[size_t(i)] = (i - middle(targetSize_.width())) * factor;
        return terms;
    }

    double rowTerm(int j, double factor) const { return (j - middle(targetSize_.height())) * factor; }
    Coordinate u(int j) const { return {uTerms_.data(), rowTerm(j, turn_.sine), double(middle(sourceSize_.width()))}; }
    Coordinate v(int j) const {
        return {vTerms_.data(), rowTerm(j, turn_.cosine), double(middle(sourceSize_.height()))};
    }

    void fillRow(Span columns, int j) const {
        const Span span =
            inside(u(j), columns, sourceSize_.width() - 1) & inside(v(j), columns, sourceSize_.height() - 1) & columns;
        QRgb* row = target_[j];
        std::fill(row + columns.begin, row + span.begin, background_);
        copyNearest(source_, u(j), v(j), span, row);
        std::fill(row + span.end, row + columns.end, background_);
    }

    /// Touches the part of the source that a tile comes from, line by line. The processor then fetches many lines at
    /// once; on the slanted way of the tile's rows it guesses none and waits for each, which takes twice as long as all
    /// the rest.
    void fetchSource(Span columns, int first, int end) const {
        const auto range = [&](const Coordinate& top, const Coordinate& bottom, int length) {
            const auto [least, most] = std::minmax(
                {top.at(columns.begin), top.at(columns.end - 1), bottom.at(columns.begin), bottom.at(columns.end - 1)});
            return Span{int(std::clamp<double>(least, 0, length)), int(std::clamp<double>(most, 0, length))};
        };
        constexpr int pixelsInLine = 16;
        const Span x = range(u(first), u(end - 1), sourceSize_.width());
        const Span y = range(v(first), v(end - 1), sourceSize_.height());
        QRgb seen = 0;
        for (int row = y.begin; row < y.end; ++row)
            for (int column = x.begin & -pixelsInLine; column < x.end; column += pixelsInLine)
                seen ^= source_[row][column];
        [[maybe_unused]] const volatile QRgb kept = seen;
    }

    Turn turn_;
    ConstPixelRows source_;
    QSize sourceSize_;
    PixelRows target_;
    QSize targetSize_;
    QRgb background_;
    std::vector<double> uTerms_, vTerms_;
};

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
    QImage result = blankPicture(target);
    const Rotation rotation(source, result, degrees, background);
    forRowBlocks(
        target, [&](int first, int end) { rotation.fillRows(first, end); }, progress);
    return result;
}
