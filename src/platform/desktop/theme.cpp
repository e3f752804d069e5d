#include "platform/desktop/theme.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace theme {

namespace {

constexpr double step = 0.05;
constexpr double fadedContrast = 2;
constexpr double deepest = 0.035;  // luminance up to which light texts and panels find room above a ground

// From the standard for contrast on screens.
double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

QColor deep(QColor ground) {
    while (luminance(ground) > deepest) ground = mixed(ground, Qt::black, step);
    return ground;
}

Colours& worn_() {
    static Colours colours = light();
    return colours;
}

using Name = std::pair<QString, QColor Colours::*>;

/// Longer names first: some begin with others.
std::array<Name, 27> names() {
    std::array<Name, 27> all{{
        {u"@window"_s, &Colours::window},
        {u"@base"_s, &Colours::base},
        {u"@alternate"_s, &Colours::alternate},
        {u"@panel"_s, &Colours::panel},
        {u"@ink"_s, &Colours::ink},
        {u"@faint"_s, &Colours::faint},
        {u"@muted"_s, &Colours::muted},
        {u"@accent"_s, &Colours::accent},
        {u"@onAccent"_s, &Colours::onAccent},
        {u"@quietChoice"_s, &Colours::quietChoice},
        {u"@accentTint"_s, &Colours::accentTint},
        {u"@hover"_s, &Colours::hover},
        {u"@hoverEdge"_s, &Colours::hoverEdge},
        {u"@pressed"_s, &Colours::pressed},
        {u"@line"_s, &Colours::line},
        {u"@edge"_s, &Colours::edge},
        {u"@firmEdge"_s, &Colours::firmEdge},
        {u"@off"_s, &Colours::off},
        {u"@offEdge"_s, &Colours::offEdge},
        {u"@locked"_s, &Colours::locked},
        {u"@headerText"_s, &Colours::headerText},
        {u"@header"_s, &Colours::header},
        {u"@handle"_s, &Colours::handle},
        {u"@groove"_s, &Colours::groove},
        {u"@dial"_s, &Colours::dial},
        {u"@tip"_s, &Colours::tip},
        {u"@tipText"_s, &Colours::tipText},
    }};
    std::ranges::sort(all, [](const Name& a, const Name& b) { return a.first.size() > b.first.size(); });
    return all;
}

}  // namespace

Colours light() {
    return {
        .window = {0xf5, 0xf2, 0xec},
        .base = {0xff, 0xfe, 0xfb},
        .alternate = {0xf8, 0xf5, 0xef},
        .panel = {0xfd, 0xfc, 0xf9},
        .button = {0xfb, 0xf9, 0xf5},
        .midlight = {0xec, 0xe7, 0xdd},
        .ink = {0x2b, 0x2a, 0x28},
        .faint = {0x6f, 0x69, 0x5e},
        .muted = {0x9a, 0x94, 0x88},
        .accent = {0x1f, 0x6f, 0x8b},
        .onAccent = Qt::white,
        .quietChoice = {0x38, 0x7a, 0x91},
        .accentTint = {0xee, 0xf5, 0xf7},
        .hover = {0xe4, 0xee, 0xf1},
        .hoverEdge = {0xb9, 0xd2, 0xdb},
        .pressed = {0xd0, 0xe3, 0xea},
        .line = {0xd8, 0xd0, 0xc2},
        .edge = {0xc9, 0xc1, 0xb2},
        .firmEdge = {0xa9, 0xa1, 0x92},
        .off = {0xf3, 0xef, 0xe7},
        .offEdge = {0xdd, 0xd6, 0xc9},
        .locked = {0xef, 0xeb, 0xe3},
        .header = {0xf1, 0xec, 0xe3},
        .headerText = {0x5d, 0x57, 0x4c},
        .handle = {0xcb, 0xc3, 0xb4},
        .groove = {0xe4, 0xde, 0xd3},
        .bench = {0xe6, 0xe0, 0xd4},
        .dial = {0xcf, 0xc8, 0xba},
        .shade = {0x6f, 0x69, 0x5e},
        .lit = Qt::white,
        .shadow = {0x80, 0x80, 0x80},
        .alert = {0xc0, 0x39, 0x2b},
        .visited = {0x6a, 0x5a, 0x8c},
        .tip = {0x35, 0x33, 0x2f},
        .tipText = {0xfb, 0xf8, 0xf1},
    };
}

Colours dark(const QColor& ground) {
    const QColor window = deep(ground);
    const auto lighter = [&window](double share) { return mixed(window, Qt::white, share); };
    const auto darker = [&window](double share) { return mixed(window, Qt::black, share); };
    const QColor ink(0xe6, 0xea, 0xef);
    const QColor accent(0x7c, 0xc4, 0xdb);
    return {
        .window = window,
        .base = darker(0.28),
        .alternate = darker(0.14),
        .panel = lighter(0.05),
        .button = lighter(0.08),
        .midlight = lighter(0.1),
        .ink = ink,
        .faint = mixed(window, ink, 0.7),
        .muted = mixed(window, ink, 0.32),
        .accent = accent,
        .onAccent = darker(0.5),
        .quietChoice = mixed(window, accent, 0.75),
        .accentTint = mixed(window, accent, 0.12),
        .hover = lighter(0.13),
        .hoverEdge = lighter(0.3),
        .pressed = mixed(window, accent, 0.25),
        .line = lighter(0.17),
        .edge = lighter(0.26),
        .firmEdge = lighter(0.38),
        .off = lighter(0.03),
        .offEdge = lighter(0.12),
        .locked = lighter(0.06),
        .header = lighter(0.08),
        .headerText = mixed(window, ink, 0.78),
        .handle = lighter(0.28),
        .groove = lighter(0.1),
        .bench = darker(0.4),
        .dial = lighter(0.25),
        .shade = lighter(0.5),
        .lit = lighter(0.5),
        .shadow = darker(0.6),
        .alert = {0xf0, 0x8b, 0x7f},
        .visited = {0xbf, 0xaf, 0xe2},
        .tip = lighter(0.16),
        .tipText = ink,
    };
}

const Colours& worn() {
    return worn_();
}

void setWorn(const Colours& colours) {
    worn_() = colours;
}

QString filledIn(QString sheet) {
    static const std::array<Name, 27> all = names();
    for (const auto& [name, colour] : all) sheet.replace(name, (worn().*colour).name());
    Q_ASSERT(!sheet.contains(u'@'));
    return sheet;
}

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool isDark(const QColor& ground) {
    return contrast(Qt::white, ground) > contrast(Qt::black, ground);
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto part = [share](int a, int b) { return int(std::lround(a + (b - a) * share)); };
    return {part(first.red(), second.red()), part(first.green(), second.green()), part(first.blue(), second.blue())};
}

QColor readable(const QColor& colour, const QColor& ground, double least) {
    const QColor end = isDark(ground) ? Qt::white : Qt::black;
    QColor seen = colour;
    for (double share = step; contrast(seen, ground) < least && share < 1 + step; share += step)
        seen = mixed(colour, end, std::min(share, 1.0));
    return seen;
}

QColor adapted(const QColor& colour) {
    return isDark(worn().window) ? readable(colour, worn().panel) : colour;
}

QColor faded(const QColor& colour, const QColor& ground) {
    QColor seen = colour;
    for (double share = step; contrast(seen, ground) > fadedContrast; share += step)
        seen = mixed(colour, ground, share);
    return seen;
}

}  // namespace theme
