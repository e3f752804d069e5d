#include "editor/rotation_dial.h"

#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int dialX = 360;
constexpr int dialY = 810;
constexpr int dialRadius = 300;
constexpr double radiansPerDegree = 3.1415926 / 180;
}  // namespace

RotationDial::RotationDial(QWidget* panel) {
    for (size_t i = 0; i < linJd_.size(); ++i) {
        linJd_[i] = make<LineBox>(panel, element(u"linJd"_s, int(i)));
        linJd_[i]->setColor(i == 0 ? theme::worn().alert : theme::worn().dial);
    }
    linJd_[1]->setEnds(dialX - dialRadius, dialY, dialX + dialRadius, dialY);
    linJd_[2]->setEnds(dialX, dialY - dialRadius, dialX, dialY + dialRadius);
    linJd_[3]->setEnds(dialX - 75, dialY - dialRadius, dialX + 75, dialY - dialRadius);
    linJd_[0]->raise();
    setVisible(false);
}

void RotationDial::setVisible(bool on) {
    for (LineBox* line : linJd_) line->setVisible(on);
}

void RotationDial::turnTo(double degrees) {
    const double turn = std::isfinite(degrees) ? degrees * radiansPerDegree : 0;
    linJd_[0]->setEnds(dialX, dialY, dialX - roundHalfEven(dialRadius * std::sin(turn)),
                       dialY - roundHalfEven(dialRadius * std::cos(turn)));
}
