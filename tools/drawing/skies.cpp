#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>
#include <numbers>

namespace {

/// Clouds by light from above: where the air is thick under a place, it is in the shade.
QColor cloudColour(const Noise& noise, double x, double y, double cover, const QColor& lit, const QColor& shadow,
                   const QColor& sky) {
    const double here = noise.fractal(x, y, 6);
    const double above = noise.fractal(x + 0.08, y - 0.16, 6);
    const double thick = eased((here - cover) * 5.5);
    return mixed(sky, mixed(shadow, lit, eased(0.62 + (here - above) * 3.4)), thick);
}

}  // namespace

QImage summerClouds(QSize size) {
    QImage image = canvas(size);
    const Noise noise(5);
    const Noise grass(44);
    shade(image, [&](double x, double y) {
        const double hill = 0.86 + 0.05 * std::sin(x * 3.4 + 0.6);
        if (y > hill) {
            const double tone = grass.fractal(x * 40, (y - hill) * 200 / (1 + (y - hill) * 9), 4);
            return mixed(mixed(QColor(58, 118, 62), QColor(146, 184, 76), tone), QColor(214, 220, 120),
                         eased((hill + 0.03 - y) * 30));
        }
        const QColor sky =
            colourAt({{0, QColor(28, 98, 184)}, {0.5, QColor(96, 164, 224)}, {0.88, QColor(206, 232, 244)}}, y);
        const double cover = 0.50 + 0.16 * std::abs(y - 0.52) + (y < 0.2 ? (0.2 - y) * 0.8 : 0);
        return cloudColour(noise, x * 3.6, y * 3.9 * (0.8 + y), cover, Qt::white, QColor(158, 178, 206), sky);
    });
    // A lone tree gives the sky its height.
    QPainter painter(&image);
    makeSmooth(painter);
    const double w = size.width();
    const double h = size.height();
    const QPointF foot(w * 0.77, h * 0.862);
    painter.setBrush(QColor(62, 50, 40));
    painter.drawPath(petal(foot + QPointF(0, h * 0.01), -90, h * 0.10, h * 0.009));
    Dice dice(6);
    for (int i = 0; i < 420; ++i) {
        const QPointF place = foot + QPointF(dice.bell() * h * 0.075, -h * 0.095 + dice.bell() * h * 0.05);
        const double light = 0.5 - (place.y() - foot.y() + h * 0.095) / (h * 0.1);
        painter.setBrush(mixed(QColor(30, 70, 44), QColor(132, 176, 84), light));
        painter.drawEllipse(place, h * 0.008, h * 0.007);
    }
    painter.end();
    grain(image, 3, 11);
    return image;
}

QImage burningClouds(QSize size) {
    QImage image = canvas(size);
    const Noise noise(77);
    const Noise streaks(13);
    shade(image, [&](double x, double y) {
        const QColor sky = colourAt({{0, QColor(36, 38, 92)},
                                     {0.4, QColor(132, 62, 118)},
                                     {0.68, QColor(248, 128, 82)},
                                     {0.86, QColor(255, 208, 122)}},
                                    y);
        // Rows of cloud draw together toward a point below the horizon.
        const double far = 1 / (1.12 - y);
        const double across = (x - 0.42) * far * 1.7;
        const double bank =
            noise.fractal(across * 1.5 + 3, far * 1.9, 6) * 0.7 + streaks.fractal(across * 4, far * 5, 4) * 0.3;
        const double lower = noise.fractal(across * 1.5 + 3, (far + 0.10) * 1.9, 6);
        const double thick = eased((bank - 0.42) * 5) * eased((0.88 - y) * 5);
        const double fire = eased(0.45 + (bank - lower) * 3.6 + (y - 0.4) * 0.7);
        const QColor cloud = mixed(QColor(62, 36, 84), mixed(QColor(232, 66, 70), QColor(255, 190, 104), fire), fire);
        return mixed(sky, cloud, thick * 0.92);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    const double w = size.width();
    const double h = size.height();
    glow(painter, {w * 0.42, h * 0.88}, w * 0.4, QColor(255, 222, 140, 200));
    painter.setBrush(QColor(44, 24, 52));
    painter.drawPath(ridgePath(QSizeF(size), {h * 0.90, h * 0.05, 4.5, 55}));
    painter.setBrush(QColor(24, 14, 34));
    painter.drawPath(ridgePath(QSizeF(size), {h * 0.97, h * 0.06, 3, 58}));
    painter.end();
    vignette(image, 0.25);
    grain(image, 4, 12);
    return image;
}

QImage rainbow(QSize size) {
    QImage image = canvas(size);
    const Noise noise(63);
    const Noise field(24);
    const double aspect = double(size.width()) / size.height();
    const std::vector<QColor> arc{QColor(214, 60, 60),  QColor(238, 140, 60), QColor(246, 222, 96),
                                  QColor(96, 186, 108), QColor(70, 150, 216), QColor(92, 92, 190),
                                  QColor(140, 82, 176)};
    Stops bands;
    for (std::size_t i = 0; i < arc.size(); ++i) bands.emplace_back(1 - double(i) / 6, arc[i]);
    std::reverse(bands.begin(), bands.end());
    shade(image, [&](double x, double y) {
        const double hill = 0.72 + 0.05 * std::sin(x * 2.6 + 2.2) + 0.012 * std::sin(x * 9);
        const double radius = std::hypot((x - 0.54) * aspect, y - 0.80);
        const double band = (radius - 0.56) / 0.055;
        QColor colour;
        if (y < hill) {
            colour =
                colourAt({{0, QColor(74, 92, 122)}, {0.45, QColor(138, 160, 184)}, {0.75, QColor(232, 226, 206)}}, y);
            colour = cloudColour(noise, x * 3 + 5, y * 4, 0.47, QColor(198, 206, 218), QColor(84, 98, 126), colour);
            if (radius < 0.56) colour = mixed(colour, QColor(255, 252, 240), 0.16);
        } else {
            const double deep = (y - hill) / (1 - hill);
            const double rows = 0.5 + 0.5 * std::sin((x - 0.5) / (0.10 + deep) * 26 + deep * 3);
            const double tone = field.fractal(x * 30, y * 60, 4);
            colour = mixed(mixed(QColor(84, 142, 66), QColor(236, 200, 60), rows * 0.75 + tone * 0.3 - 0.1),
                           QColor(40, 78, 50), deep * 0.35 * tone);
        }
        if (band > 0 && band < 1) {
            const double strength = std::sin(band * std::numbers::pi) * (y < hill ? 0.62 : 0.22 * (1 - (y - hill) * 6));
            colour = mixed(colour, colourAt(bands, band), strength);
        }
        return colour;
    });
    grain(image, 4, 13);
    return image;
}

QImage aurora(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(6, 10, 34)}, {0.45, QColor(12, 36, 66)}, {0.66, QColor(26, 78, 92)}});
    Dice dice(14);
    starField(painter, QRectF(0, 0, s.width(), s.height() * 0.62), 900, dice);
    painter.end();
    // Curtains: thin rays upward from a winding foot line, green below and violet above.
    const Noise wind(91);
    QImage light = canvas(size, Qt::black);
    for (int curtain = 0; curtain < 3; ++curtain) {
        for (int x = 0; x < size.width(); ++x) {
            const double t = x / s.width();
            const double bend = wind.fractal(t * 2.4 + curtain * 9.1, curtain * 3.3, 3) - 0.5;
            const double foot = s.height() * (0.50 - curtain * 0.09 + bend * 0.42);
            const double ray = 0.25 + 0.75 * std::pow(wind.fractal(t * 46 + bend * 30, curtain * 5.7, 3), 1.6);
            const double reach = s.height() * (0.20 + 0.22 * wind.fractal(t * 9, curtain * 2.1 + 40, 3));
            const double strength = (0.95 - curtain * 0.22) * ray * (0.4 + 0.6 * wind.at(t * 3.1, 80 + curtain));
            for (int y = std::max(0, int(foot - reach)); y < std::min<int>(size.height(), int(foot) + 14); ++y) {
                const double up = (foot - y) / reach;
                const double fade = up < 0 ? eased(1 + up * reach / 14) : std::pow(1 - up, 1.3);
                const QColor hue = colourAt(
                    {{0, QColor(90, 255, 170)}, {0.4, QColor(50, 210, 170)}, {0.75, QColor(120, 80, 210)}}, up);
                QRgb& pixel = reinterpret_cast<QRgb*>(light.scanLine(y))[x];
                const auto lit = [&](int was, int by) { return std::min(255, was + int(by * fade * strength)); };
                pixel =
                    qRgb(lit(qRed(pixel), hue.red()), lit(qGreen(pixel), hue.green()), lit(qBlue(pixel), hue.blue()));
            }
        }
    }
    QImage halo = light;
    blur(light, 2);
    blur(halo, 26);
    QPainter top(&image);
    makeSmooth(top);
    top.setCompositionMode(QPainter::CompositionMode_Screen);
    top.drawImage(0, 0, light);
    top.drawImage(0, 0, halo);
    top.setCompositionMode(QPainter::CompositionMode_SourceOver);
    top.setPen(Qt::NoPen);
    for (int i = 0; i < 3; ++i) {
        top.setBrush(mixed(QColor(24, 66, 82), QColor(4, 14, 24), i / 2.0));
        top.drawPath(
            ridgePath(s, {s.height() * (0.62 + i * 0.035), s.height() * (0.12 - i * 0.03), 3.0 + i, 210 + quint32(i)}));
    }
    top.end();
    reflect(image, int(s.height() * 0.70), QColor(4, 16, 30), 0.34, 16, 15);
    grain(image, 3, 15);
    return image;
}
