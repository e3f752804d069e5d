#include "help/manual_colours.h"

#include "platform/desktop/theme.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double tint = 0.13;           // that the ground of a table cell keeps on a dark ground
constexpr float lightnessShare = 0.7F;  // dark texts become light ones of the same hue

QColor ground(const QColor& colour) {
    return theme::mixed(theme::worn().base, colour, tint);
}

QColor text(const QColor& colour) {
    const QColor light =
        QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF(), 1 - lightnessShare * colour.lightnessF());
    return theme::readable(light, ground(Qt::white));
}

}  // namespace

QString inWornColours(const QString& html) {
    if (!theme::isDark(theme::worn().base)) return html;
    static const QRegularExpression colours(u"(background-)?color: *(#[0-9a-fA-F]{6})"_s);
    QString worn;
    qsizetype done = 0;
    for (auto found = colours.globalMatch(html); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QColor colour(match.captured(2));
        worn += html.mid(done, match.capturedStart(2) - done);
        worn += (match.hasCaptured(1) ? ground(colour) : text(colour)).name();
        done = match.capturedEnd(2);
    }
    return worn + html.mid(done);
}
