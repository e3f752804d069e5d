#include "editor/rubber_band.h"

#include "editor/document/hints.h"
#include "editor/editor_view.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QApplication>
#include <algorithm>
#include <climits>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int readoutHeight = 270;

QPoint inTwips(QPoint pixels) {
    return {twipsFromPixels(pixels.x()), twipsFromPixels(pixels.y())};
}
}  // namespace

RubberBand::RubberBand(Document& document, EditorView& view, HintBox& hint, WorkSurface* picYu, QWidget* viewport)
    : QObject(picYu), document_(document), view_(view), hint_(hint), picYu_(picYu), viewport_(viewport) {
    shpYu_ = make<ShapeBox>(picYu, u"shpYu"_s);
    shpYu_->hide();
    txtCc_ = make<TextBox>(picYu, u"txtCc"_s);
    dressHint(txtCc_);
    txtCc_->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(picYu, &WorkSurface::pressed, this, guarded(viewport, [this](int x, int y) { press({x, y}); }));
    connect(picYu, &WorkSurface::moved, this, guarded(viewport, [this](int x, int y) { move({x, y}); }));
    connect(picYu, &WorkSurface::released, this, guarded(viewport, [this](int x, int y) { release({x, y}); }));
}

void RubberBand::follow() {
    hint_.letThrough(isWanted());
}

void RubberBand::hide() {
    shpYu_->hide();
    txtCc_->hide();
}

void RubberBand::layOut() {
    shpYu_->setGeometry(picYu_->onSurface(part_));
    if (txtCc_->isVisible()) placeReadout(pointer_);
}

QSize RubberBand::shapeSize() const {
    return {twipsFromPixels(part_.width()), twipsFromPixels(part_.height())};
}

bool RubberBand::readoutShows() const {
    return ::readoutShows(shapeSize()) && isWanted();
}

// A shape takes no negative size: dragged backwards it stays as it was.
void RubberBand::moveShape(QSize size) {
    if (size.width() < 0 || size.height() < 0) return;
    const QPoint start = document_.selection().topLeft();
    part_ = rectFromTwips(start.x(), start.y(), size.width(), size.height());
    shpYu_->setGeometry(picYu_->onSurface(part_));
}

void RubberBand::press(QPoint pointer) {
    if (!document_.isOpen()) return;
    document_.select({pointer, QSize(0, 0)});
    shpYu_->setBorderColor(selectionColour(picYu_->Point(pixelsFromTwips(pointer.x()), pixelsFromTwips(pointer.y()))));
    moveShape({0, 0});
    shpYu_->setVisible(isWanted());
    txtCc_->setVisible(readoutShows());
    hint_.goBehind();  // what is selected can be seen
    isDown_ = true;
}

QSize RubberBand::sizeTo(QPoint pointer) const {
    const SelectionShape shape = wanted_().value_or(SelectionShape::free);
    return selectionSize(shape, document_.selection().topLeft(), pointer, document_.size());
}

/// In pixels of the screen.
QPoint RubberBand::onSurface(QPoint pointer) const {
    return picYu_->onSurface(rectFromTwips(pointer.x(), pointer.y(), 0, 0)).topLeft();
}

void RubberBand::move(QPoint pointer) {
    if (!isDown_) return;
    const QSize size = sizeTo(pointer);
    moveShape(size);
    pointer_ = pointer;
    Q_EMIT drawn(size);
    scrollAlong(pointer);
    placeReadout(pointer);
}

/// It stays inside the part of the picture that can be seen. Where that is too small it is beside the picture.
void RubberBand::placeReadout(QPoint pointer) {
    setHint(txtCc_, selectionReadout(document_.selection().topLeft(), shapeSize()), INT_MAX);
    const int width = hintWidth(txtCc_->text());
    const QSize view = view_.viewSize().boundedTo(view_.shownSize());
    const bool fits = width <= view.width() && readoutHeight <= view.height();
    QWidget* on = fits ? static_cast<QWidget*>(picYu_) : viewport_->parentWidget();
    if (txtCc_->parentWidget() != on) txtCc_->setParent(on);
    const QSize room = fits ? view : QSize(widthOf(on), heightOf(on));
    const QPoint hidden = fits ? QPoint(std::max(0, -picYu_->x()), std::max(0, -picYu_->y())) : QPoint();
    const QPoint corner = fits ? QPoint() : viewport_->pos() + picYu_->pos();
    const QPoint at = readoutPlace(inTwips(corner + onSurface(pointer) - hidden), width, room) + inTwips(hidden);
    place(txtCc_, at.x(), at.y(), width, readoutHeight);
    txtCc_->setVisible(readoutShows());
    txtCc_->raise();
}

void RubberBand::scrollAlong(QPoint pointer) {
    const QPoint at = inTwips(onSurface(pointer)), seen = at + inTwips(picYu_->pos());
    const QSize view = view_.viewSize(), picture = view_.shownSize();
    view_.scrollBy(scrollOfDrag(seen.x(), view.width(), at.x(), picture.width()),
                   scrollOfDrag(seen.y(), view.height(), at.y(), picture.height()));
}

void RubberBand::release(QPoint pointer) {
    if (!isDown_) return;
    const QPoint start = document_.selection().topLeft();
    const QSize size = sizeTo(pointer);
    document_.select({start, size});
    Q_EMIT finished(size);
    moveShape(size);
    shpYu_->setVisible(isWanted());
    if (document_.operation() != nullptr && document_.operation()->asksForPart()) hint_.tscz(document_.code());
    txtCc_->setVisible(readoutShows());
    isDown_ = false;
    hint_.comeForward();
    const QPoint at = onSurface(pointer);
    if ((at - onSurface(start)).manhattanLength() < QApplication::startDragDistance())
        hint_.clickedThrough(picYu_->mapToGlobal(at));
}
