#include "help/raised_buttons.h"

#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "platform/desktop/tool_icon.h"

#include <QKeyEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int side = 330;
constexpr int top = 60;
}  // namespace

RaisedButtons::RaisedButtons(QWidget* parent) : Surface(parent) {
    // A ground on which the lit edge of a frame shows.
    setBackgroundRole(QPalette::Midlight);
    setAutoFillBackground(true);
    imgFh = addButton(u"imgFh"_s, u"返回主窗口"_s, 885, 0);
    imgGb = addButton(u"imgGb"_s, u"退出软件"_s, 1845, 4);
    wearColours();
    connect(imgFh, &ImageBox::clicked, this, &RaisedButtons::backClicked);
    connect(imgGb, &ImageBox::clicked, this, &RaisedButtons::endClicked);
    connect(this, &Surface::mouseMoved, this, &RaisedButtons::hideFrames);
}

void RaisedButtons::wearColours() {
    const QSize pixels = QSize(side, side) / 5;
    const auto icon = [&](const QString& key) {
        return Picture(toolIcon(key, theme::worn().midlight).pixmap(pixels).toImage());
    };
    imgFh->setPicture(icon(u"fh"_s));
    imgGb->setPicture(icon(u"tc"_s));
    for (const int firstLine : {0, 4}) paintFrame(firstLine, true);
}

void RaisedButtons::paintFrame(int firstLine, bool isRaised) {
    for (int i = 0; i < 4; ++i)
        linFh_[size_t(firstLine + i)]->setColor(isRaised == (i < 2) ? theme::worn().lit : theme::worn().shadow);
}

ImageBox* RaisedButtons::addButton(const QString& name, const QString& tip, int left, int firstLine) {
    auto* image = make<ImageBox>(this, name);
    place(image, left, top, side, side);
    image->setToolTip(tip);
    image->beButton();
    image->setCursor(Qt::PointingHandCursor);

    std::array<LineBox*, 4> frame{};
    for (int i = 0; i < 4; ++i) {
        frame[size_t(i)] = make<LineBox>(this, element(u"linFh"_s, firstLine + i));
        linFh_[size_t(firstLine + i)] = frame[size_t(i)];
    }
    const int before = left - 45;
    const int behind = left + side + 30;
    frame[0]->setEnds(before, top - 45, behind, top - 45);
    frame[1]->setEnds(before, top - 45, before, top + side + 30);
    frame[2]->setEnds(before, top + side + 30, behind, top + side + 30);
    frame[3]->setEnds(behind, top - 45, behind, top + side + 30);

    connect(image, &ImageBox::mouseMoved, this, [this, firstLine] { showFrame(firstLine); });
    image->installEventFilter(this);
    connect(image, &ImageBox::mousePressed, this, [this, firstLine] { paintFrame(firstLine, false); });
    connect(image, &ImageBox::mouseReleased, this, [this, firstLine] { paintFrame(firstLine, true); });
    for (LineBox* line : frame) line->hide();
    return image;
}

void RaisedButtons::showFrame(int firstLine) {
    for (int i = 0; i < int(linFh_.size()); ++i) linFh_[size_t(i)]->setVisible(i >= firstLine && i < firstLine + 4);
}

bool RaisedButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) showFrame(watched == imgFh ? 0 : 4);
    if (event->type() == QEvent::FocusOut) hideFrames();
    return Surface::eventFilter(watched, event);
}

void RaisedButtons::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<ImageBox*>(focusWidget());
    if (event->key() == Qt::Key_Space && button != nullptr)
        Q_EMIT button->clicked();
    else
        Surface::keyPressEvent(event);
}

void RaisedButtons::hideFrames() {
    for (LineBox* line : linFh_) line->hide();
}
