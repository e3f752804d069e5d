#include "editor/operations/trail.h"

#include "editor/operations/typed_numbers.h"
#include "platform/picture/lossless_turn.h"

#include <QStringList>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr Orientation mirrored = 2;
constexpr Orientation upsideDown = 4;
/// By quarters, counter-clockwise.
constexpr std::array<Orientation, 4> quarters{uprightOrientation, 8, 3, 6};

std::optional<Orientation> turnOf(const QString& word) {
    if (word == u"水平翻转") return mirrored;
    if (word == u"垂直翻转") return upsideDown;
    if (!word.endsWith(u'度')) return {};
    const double degrees = std::fmod(numberFromText(word.chopped(1)), 360);
    const double quarter = degrees / 90;
    if (!std::isfinite(quarter) || quarter != std::trunc(quarter)) return {};
    return quarters[size_t(int(quarter) + 4) % quarters.size()];
}

}  // namespace

std::optional<Orientation> turnOfTrail(const QString& trail) {
    Orientation whole = uprightOrientation;
    for (const QString& word : trail.split(u' ', Qt::SkipEmptyParts)) {
        const auto turn = turnOf(word);
        if (!turn) return {};
        whole = composed(whole, *turn);
    }
    return whole;
}
