#include "viewer/zoomed_place.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double mostTimes = 8;
// The painter counts in 16 bits.
constexpr double longestSide = 30000;
// A size that differs less from the whole one is it.
constexpr double sameScale = 0.001;

double placedIn(double room, double length, double start, bool isCentred) {
    if (length <= room) return isCentred ? (room - length) / 2 : 0;
    return std::clamp(start, room - length, 0.0);
}
}  // namespace

ZoomedPlace::ZoomedPlace(QSize room, QSize whole, QSize pixels, bool isCentred)
    : room_(room.expandedTo(whole)), whole_(whole), pixels_(pixels), isCentred_(isCentred) {
    wholeScale_ = std::max(whole_.width() / pixels_.width(), whole_.height() / pixels_.height());
    showWhole();
}

QRect ZoomedPlace::place() const {
    return {corner_.toPoint(), size().toSize()};
}

bool ZoomedPlace::canMove() const {
    return size().width() > room_.width() || size().height() > room_.height();
}

void ZoomedPlace::showWhole() {
    isWhole_ = true;
    scale_ = wholeScale_;
    keepInRoom();
}

void ZoomedPlace::showOneToOne() {
    zoomTo(1, middleOfRoom());
}

void ZoomedPlace::zoomBy(double factor, QPointF fixedPoint) {
    const double side = std::max(pixels_.width(), pixels_.height());
    const double most = std::min(mostTimes * std::max(1.0, wholeScale_), longestSide / side);
    const double least = std::min(1.0, wholeScale_);
    zoomTo(std::clamp(scale_ * factor, least, std::max({most, scale_, least})), fixedPoint);
}

void ZoomedPlace::zoomTo(double scale, QPointF fixedPoint) {
    const QSizeF before = size();
    const QPointF inside = fixedPoint - corner_;
    isWhole_ = std::abs(scale / wholeScale_ - 1) < sameScale;
    scale_ = isWhole_ ? wholeScale_ : scale;
    const QSizeF after = size();
    corner_ = fixedPoint -
              QPointF(inside.x() * after.width() / before.width(), inside.y() * after.height() / before.height());
    keepInRoom();
}

void ZoomedPlace::moveBy(QPointF way) {
    corner_ += way;
    keepInRoom();
}

void ZoomedPlace::keepInRoom() {
    corner_ = {placedIn(room_.width(), size().width(), corner_.x(), isCentred_),
               placedIn(room_.height(), size().height(), corner_.y(), isCentred_)};
}
