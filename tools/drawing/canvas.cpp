#include "drawing/canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

double Dice::unit() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 17;
    state_ ^= state_ << 5;
    return state_ / 4294967296.0;
}

double Noise::corner(int x, int y) const {
    quint32 h = seed_ + quint32(x) * 374761393U + quint32(y) * 668265263U;
    h = (h ^ (h >> 13)) * 1274126177U;
    h ^= h >> 16;
    return h / 4294967296.0;
}

double Noise::at(double x, double y) const {
    const int left = int(std::floor(x));
    const int top = int(std::floor(y));
    const double across = eased(x - left);
    const double down = eased(y - top);
    const double above = std::lerp(corner(left, top), corner(left + 1, top), across);
    const double below = std::lerp(corner(left, top + 1), corner(left + 1, top + 1), across);
    return std::lerp(above, below, down);
}

double Noise::fractal(double x, double y, int layers) const {
    double sum = 0;
    double weight = 0.5;
    double total = 0;
    for (int layer = 0; layer < layers; ++layer) {
        sum += weight * at(x, y);
        total += weight;
        weight /= 2;
        x = x * 2.03 + 17.1;
        y = y * 2.03 + 9.7;
    }
    return sum / total;
}

double eased(double t) {
    const double held = std::clamp(t, 0.0, 1.0);
    return held * held * (3 - 2 * held);
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const auto t = float(std::clamp(share, 0.0, 1.0));
    return QColor::fromRgbF(std::lerp(from.redF(), to.redF(), t), std::lerp(from.greenF(), to.greenF(), t),
                            std::lerp(from.blueF(), to.blueF(), t), std::lerp(from.alphaF(), to.alphaF(), t));
}

QColor faded(const QColor& colour, double opacity) {
    QColor result = colour;
    result.setAlphaF(float(std::clamp(opacity, 0.0, 1.0)));
    return result;
}

QColor colourAt(const Stops& stops, double place) {
    if (place <= stops.front().first) return stops.front().second;
    for (std::size_t i = 1; i < stops.size(); ++i) {
        const auto& [from, fromColour] = stops[i - 1];
        const auto& [to, toColour] = stops[i];
        if (place <= to) return mixed(fromColour, toColour, (place - from) / (to - from));
    }
    return stops.back().second;
}

QImage canvas(QSize size, const QColor& colour) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

void makeSmooth(QPainter& painter) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
}

void wash(QPainter& painter, const QRectF& area, const Stops& stops) {
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    for (const auto& [place, colour] : stops) gradient.setColorAt(place, colour);
    painter.fillRect(area, gradient);
}

void glow(QPainter& painter, QPointF centre, double radius, const QColor& colour) {
    QRadialGradient gradient(centre, radius);
    for (int step = 0; step <= 10; ++step) {
        const double place = step / 10.0;
        gradient.setColorAt(place, faded(colour, colour.alphaF() * std::pow(1 - place, 2.2)));
    }
    painter.setBrush(gradient);
    painter.drawEllipse(centre, radius, radius);
}

void shade(QImage& image, const std::function<QColor(double, double)>& colour) {
    const double right = image.width() - 1;
    const double bottom = image.height() - 1;
    for (int row = 0; row < image.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(row));
        for (int column = 0; column < image.width(); ++column)
            line[column] = colour(column / right, row / bottom).rgb();
    }
}

double ridgeLine(QSizeF size, const Ridge& ridge, double x) {
    const Noise noise(ridge.seed);
    return ridge.base - ridge.height * (noise.fractal(x / size.width() * ridge.stretch, 0.5, ridge.layers) * 2 - 0.6);
}

QPainterPath ridgePath(QSizeF size, const Ridge& ridge) {
    QPainterPath path(QPointF(0, size.height()));
    for (double x = 0; x <= size.width() + 2; x += 2) path.lineTo(x, ridgeLine(size, ridge, x));
    path.lineTo(size.width() + 2, size.height());
    path.closeSubpath();
    return path;
}

void reflect(QImage& image, int horizon, const QColor& water, double depth, double ripple, quint32 seed) {
    const QImage above = image.copy();
    const Noise noise(seed);
    const int rows = image.height() - horizon;
    for (int row = 0; row < rows; ++row) {
        const double near = double(row) / rows;
        const int source =
            std::clamp(horizon - 1 - row + int(ripple * 3 * near * (noise.at(row * 0.35, 3.3) - 0.5)), 0, horizon - 1);
        const auto* from = reinterpret_cast<const QRgb*>(above.constScanLine(source));
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(horizon + row));
        const double fineness = 0.9 / (1 + near * 9);
        for (int x = 0; x < image.width(); ++x) {
            const double wave = noise.at(x * 0.03 * fineness, row * fineness * 1.6) - 0.5;
            const int shifted = std::clamp(x + int(wave * ripple * (0.4 + near * 2)), 0, image.width() - 1);
            const double dark = depth * (0.55 + 0.45 * near) + wave * 0.22;
            to[x] = mixed(QColor(from[shifted]), water, dark).rgb();
        }
    }
}

namespace {

/// One pass of a running mean along lines of pixels `step` apart.
void meanAlong(std::vector<QRgb>& line, int radius) {
    const int count = int(line.size());
    const std::vector<QRgb> source = line;
    const auto at = [&](int i) { return source[std::size_t(std::clamp(i, 0, count - 1))]; };
    int a = 0;
    int r = 0;
    int g = 0;
    int b = 0;
    const auto add = [&](QRgb pixel, int sign) {
        a += sign * qAlpha(pixel);
        r += sign * qRed(pixel);
        g += sign * qGreen(pixel);
        b += sign * qBlue(pixel);
    };
    for (int i = -radius; i <= radius; ++i) add(at(i), 1);
    const int width = 2 * radius + 1;
    for (int i = 0; i < count; ++i) {
        line[std::size_t(i)] = qRgba(r / width, g / width, b / width, a / width);
        add(at(i + radius + 1), 1);
        add(at(i - radius), -1);
    }
}

}  // namespace

void blur(QImage& image, int radius) {
    for (int pass = 0; pass < 2; ++pass) {
        std::vector<QRgb> line(std::size_t(image.width()));
        for (int y = 0; y < image.height(); ++y) {
            auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
            std::copy_n(pixels, line.size(), line.begin());
            meanAlong(line, radius);
            std::copy(line.begin(), line.end(), pixels);
        }
        line.resize(std::size_t(image.height()));
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                line[std::size_t(y)] = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
            meanAlong(line, radius);
            for (int y = 0; y < image.height(); ++y)
                reinterpret_cast<QRgb*>(image.scanLine(y))[x] = line[std::size_t(y)];
        }
    }
}

void grain(QImage& image, double strength, quint32 seed) {
    Dice dice(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int shift = int(std::lround(dice.bell() * strength));
            const auto moved = [shift](int value) { return std::clamp(value + shift, 0, 255); };
            line[x] = qRgb(moved(qRed(line[x])), moved(qGreen(line[x])), moved(qBlue(line[x])));
        }
    }
}

void vignette(QImage& image, double strength) {
    QPainter painter(&image);
    const QPointF centre(image.width() / 2.0, image.height() / 2.0);
    QRadialGradient gradient(centre, std::hypot(centre.x(), centre.y()));
    gradient.setColorAt(0.55, QColor(0, 0, 0, 0));
    gradient.setColorAt(1, faded(Qt::black, strength));
    painter.fillRect(image.rect(), gradient);
}

QPointF polar(QPointF centre, double radius, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return centre + QPointF(std::cos(angle), std::sin(angle)) * radius;
}

QPainterPath petal(QPointF root, double angle, double length, double width, double tip) {
    const QPointF end = polar(root, length, angle);
    const QPointF along = (end - root) / length;
    const QPointF side(-along.y() * width, along.x() * width);
    QPainterPath path(root);
    path.cubicTo(root + along * length * 0.25 + side, root + along * length * tip + side, end);
    path.cubicTo(root + along * length * tip - side, root + along * length * 0.25 - side, root);
    return path;
}

void star(QPainter& painter, QPointF centre, double radius, const QColor& colour) {
    glow(painter, centre, radius * 4, faded(colour, colour.alphaF() * 0.5));
    painter.setBrush(colour);
    painter.drawEllipse(centre, radius, radius);
}

void starField(QPainter& painter, const QRectF& area, int count, Dice& dice) {
    for (int i = 0; i < count; ++i) {
        const QPointF place(area.x() + dice.unit() * area.width(), area.y() + dice.unit() * area.height());
        const double size = 0.35 + 1.1 * std::pow(dice.unit(), 6);
        const QColor tint = mixed(QColor(190, 210, 255), QColor(255, 236, 210), dice.unit());
        if (size > 1.1)
            star(painter, place, size, tint);
        else {
            painter.setBrush(faded(tint, dice.between(0.25, 0.95)));
            painter.drawEllipse(place, size, size);
        }
    }
}
