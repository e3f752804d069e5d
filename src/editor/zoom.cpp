#include "editor/zoom.h"

#include "platform/base/twips.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int longestOneToOne = 32767;
constexpr double largestScale = 16;
constexpr double nearlyOne = 0.001;

}  // namespace

QSize Zoom::shown() const {
    if (isOneToOne()) return picture_;
    const auto scaled = [this](int twips) {
        return twipsFromPixels(std::max(1, roundHalfEven(pixelsFromTwips(twips) * scale_)));
    };
    return {scaled(picture_.width()), scaled(picture_.height())};
}

QString Zoom::text() const {
    return isOneToOne() ? QString() : u" %1%"_s.arg(roundHalfEven(scale_ * 100));
}

void Zoom::open(QSize picture) {
    picture_ = picture;
    fits_ = std::max(picture.width(), picture.height()) > longestOneToOne;
    scale_ = fits_ ? wholeScale() : 1;
}

void Zoom::follow(QSize picture) {
    if (picture != picture_ && (fits_ || scale_ < 1)) open(picture);
    picture_ = picture;
}

void Zoom::setRoom(QSize room) {
    room_ = room;
    if (fits_) scale_ = wholeScale();
}

double Zoom::wholeScale() const {
    if (picture_.isEmpty() || room_.isEmpty()) return 1;
    return std::min({1.0, double(room_.width()) / picture_.width(), double(room_.height()) / picture_.height()});
}

void Zoom::showWhole() {
    fits_ = true;
    scale_ = wholeScale();
}

void Zoom::setScale(double scale) {
    fits_ = false;
    scale_ = scale;
}

void Zoom::scaleBy(double factor) {
    const double before = scale_, whole = wholeScale();
    double after = std::min(before * factor, largestScale);
    const bool passesOne = (before < 1 && after > 1) || (before > 1 && after < 1);
    if (passesOne || std::abs(after - 1) < nearlyOne) after = 1;
    if (factor > 1 || after > whole)
        setScale(after);
    else if (before > whole)
        showWhole();
}
