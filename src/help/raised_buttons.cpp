#include "help/raised_buttons.h"

#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <QIcon>
#include <QKeyEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int side = 330;
constexpr int top = 60;
const QColor lit(Qt::white);
}  // namespace

RaisedButtons::RaisedButtons(QWidget* parent) : Surface(parent) {
    // A ground on which the lit edge of a frame shows.
    setBackgroundRole(QPalette::Midlight);
    setAutoFillBackground(true);
    imgFh = addButton(u"imgFh"_s, u"fh"_s, u"返回主窗口"_s, 885, 0);
    imgGb = addButton(u"imgGb"_s, u"tc"_s, u"退出软件"_s, 1845, 4);
    connect(imgFh, &ImageBox::clicked, this, &RaisedButtons::backClicked);
    connect(imgGb, &ImageBox::clicked, this, &RaisedButtons::endClicked);
    connect(this, &Surface::mouseMoved, this, &RaisedButtons::hideFrames);
}

ImageBox* RaisedButtons::addButton(const QString& name, const QString& icon, const QString& tip, int left,
                                   int firstLine) {
    auto* image = make<ImageBox>(this, name);
    place(image, left, top, side, side);
    image->setPicture(Picture(QIcon(u":/icons/%1.svg"_s.arg(icon)).pixmap(QSize(side, side) / 5).toImage()));
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

    const auto raise = [frame](bool raised) {
        for (size_t i = 0; i < 4; ++i) frame[i]->setColor(raised == (i < 2) ? lit : theme::shadow);
    };
    raise(true);
    connect(image, &ImageBox::mouseMoved, this, [this, firstLine] { showFrame(firstLine); });
    image->installEventFilter(this);
    connect(image, &ImageBox::mousePressed, this, [raise] { raise(false); });
    connect(image, &ImageBox::mouseReleased, this, [raise] { raise(true); });
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
