#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <functional>
#include <utility>
#include <vector>

/// Tools that all drawings share. Lengths are pixels of the picture. Random numbers are seeded, so that a drawing is
/// the same each time.

/// Random numbers of its own: the library's distributions differ between platforms.
class Dice {
  public:
    explicit Dice(quint32 seed) : state_(seed * 2654435761U + 12345U) {}
    double unit();  ///< 0 up to, not including, 1
    double between(double low, double high) { return low + (high - low) * unit(); }
    int below(int count) { return int(unit() * count); }
    double bell() { return (unit() + unit() + unit() + unit()) / 2.0 - 1.0; }  ///< -1 to 1, mostly near 0

  private:
    quint32 state_;
};

/// Smooth random hills over the plane, 0 to 1.
class Noise {
  public:
    explicit Noise(quint32 seed) : seed_(seed) {}
    double at(double x, double y) const;
    /// Several layers, each half as high and twice as fine as the one before.
    double fractal(double x, double y, int layers) const;

  private:
    double corner(int x, int y) const;
    quint32 seed_;
};

double eased(double t);  ///< 0 to 1 with a soft start and end, held at both
QColor mixed(const QColor& from, const QColor& to, double share);
QColor faded(const QColor& colour, double opacity);

using Stops = std::vector<std::pair<double, QColor>>;
QColor colourAt(const Stops& stops, double place);

QImage canvas(QSize size, const QColor& colour = Qt::white);
void makeSmooth(QPainter& painter);

/// Fills a rectangle from top to bottom.
void wash(QPainter& painter, const QRectF& area, const Stops& stops);
/// A round light that fades to nothing.
void glow(QPainter& painter, QPointF centre, double radius, const QColor& colour);
/// Sets each pixel; x and y run from 0 to 1.
void shade(QImage& image, const std::function<QColor(double x, double y)>& colour);

struct Ridge {
    double base;     ///< height of its line in the picture
    double height;   ///< how far its peaks rise above it
    double stretch;  ///< hills across the picture
    quint32 seed;
    int layers = 5;
};
/// The land below a line of hills, down to the foot of the picture.
QPainterPath ridgePath(QSizeF size, const Ridge& ridge);
/// The line's height at a place across.
double ridgeLine(QSizeF size, const Ridge& ridge, double x);

/// Mirrors the picture above `horizon` in the water below it, broken by ripples that widen toward the viewer.
void reflect(QImage& image, int horizon, const QColor& water, double depth, double ripple, quint32 seed);

void blur(QImage& image, int radius);
/// A little film grain: it keeps soft gradients from showing steps.
void grain(QImage& image, double strength, quint32 seed);
void vignette(QImage& image, double strength);

/// A closed leaf or petal from `root`, pointing along `angle` in degrees (0 to the right, 90 down).
QPainterPath petal(QPointF root, double angle, double length, double width, double tip = 0.6);
QPointF polar(QPointF centre, double radius, double degrees);
void star(QPainter& painter, QPointF centre, double radius, const QColor& colour);
void starField(QPainter& painter, const QRectF& area, int count, Dice& dice);
