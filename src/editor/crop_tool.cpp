#include "editor/crop_tool.h"

#include "editor/editor_texts.h"
#include "editor/selection.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QApplication>
#include <QMouseEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int readoutHeight = 270;
}  // namespace

CropTool::CropTool(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog,
                   ButtonPicture& button)
    : QObject(view.picYu), state_(state), commands_(commands), view_(view), dialog_(dialog), button_(button) {
    const WorkSurface* picYu = view_.picYu;
    connect(picYu, &WorkSurface::pressed, this, guarded(view_.picGd, [this](int x, int y) { mouseDown(x, y); }));
    connect(picYu, &WorkSurface::moved, this, guarded(view_.picGd, [this](int x, int y) { mouseMove(x, y); }));
    connect(picYu, &WorkSurface::released, this, guarded(view_.picGd, [this](int x, int y) { mouseUp(x, y); }));
    for (QObject* watched : std::initializer_list<QObject*>{view_.picCq, view_.picAn, view_.txtTs->parent()})
        watched->installEventFilter(this);
    for (const QRadioButton* option : view_.picAn->findChildren<QRadioButton*>())
        connect(option, &QRadioButton::toggled, this, &CropTool::letThroughHint);
}

void CropTool::mnuCjClick() {
    state_.editState = u"c"_s;
    view_.tscz(u"c1"_s);
    commands_.setEnabled(commands_.mnuCj, u"cj"_s, false);
    dialog_.czdh(u"c"_s);
    commands_.setEnabled(commands_.mnuAt, u"at"_s, false);
}

bool CropTool::mayShow() const {
    if (state_.editState == u"c") return dialog_.isOpen() && !commands_.mnuCj->isEnabled();
    return button_.isActive() && button_.shapeIsChosen();
}

bool CropTool::readoutShows() const {
    return ::readoutShows({widthOf(view_.shpYu), heightOf(view_.shpYu)});
}

// A shape takes no negative size: dragged backwards it stays as it was.
void CropTool::moveShape(QSize size) {
    if (size.width() < 0 || size.height() < 0) return;
    place(view_.shpYu, state_.selLeft, state_.selTop, size.width(), size.height());
}

void CropTool::mouseDown(int x, int y) {
    if (!state_.isOpen) return;
    state_.selLeft = x;
    state_.selTop = y;
    const QRgb under = view_.picYu->Point(pixelsFromTwips(x), pixelsFromTwips(y));
    view_.shpYu->setBorderColor(selectionColor(under));
    moveShape({0, 0});
    view_.shpYu->setVisible(mayShow());
    view_.txtCc->setVisible(readoutShows());
    view_.txtTs->lower();  // what is selected can be seen
    state_.mouseDown = true;
}

/// Without the button picture's dialog the selection is free, whatever was chosen in it before.
SelectionShape CropTool::shape() const {
    return button_.isActive() ? button_.shape() : SelectionShape::free;
}

QSize CropTool::sizeTo(QPoint pointer) const {
    return selectionSize(shape(), {state_.selLeft, state_.selTop}, pointer, {state_.picWidth, state_.picHeight});
}

QPoint CropTool::inView(QPoint pointer) const {
    return pointer + QPoint(leftOf(view_.picYu), topOf(view_.picYu));
}

void CropTool::mouseMove(int x, int y) {
    if (!state_.mouseDown) return;
    const QPoint pointer(x, y);
    const QSize size = sizeTo(pointer);
    moveShape(size);
    if (button_.isActive()) button_.tellSize(size);
    scrollAlong(pointer);
    placeReadout(pointer);
}

/// A picture that is too small for the readout has it beside itself.
void CropTool::placeReadout(QPoint pointer) {
    TextBox* txtCc = view_.txtCc;
    const QPoint start(state_.selLeft, state_.selTop);
    EditorView::setHint(txtCc, selectionReadout(start, {widthOf(view_.shpYu), heightOf(view_.shpYu)}));
    const int width = hintWidth(txtCc->text());
    const bool fits = width <= state_.viewWidth && readoutHeight <= state_.viewHeight;
    QWidget* on = fits ? static_cast<QWidget*>(view_.picYu) : view_.picGd->parentWidget();
    if (txtCc->parentWidget() != on) txtCc->setParent(on);
    const QSize room = fits ? QSize(state_.viewWidth, state_.viewHeight) : QSize(widthOf(on), heightOf(on));
    const QPoint corner = fits ? QPoint() : QPoint(leftOf(view_.picGd), topOf(view_.picGd));
    const QPoint at = readoutPlace(inView(pointer) + corner, width, room);
    const QPoint origin = fits ? inView({0, 0}) : QPoint();
    place(txtCc, at.x() - origin.x(), at.y() - origin.y(), width, readoutHeight);
    txtCc->setVisible(readoutShows() && mayShow());
    txtCc->raise();
}

void CropTool::scrollAlong(QPoint pointer) {
    const QPoint seen = inView(pointer);
    const int down = scrollOfDrag(seen.y(), state_.viewHeight, pointer.y(), state_.picHeight);
    const int right = scrollOfDrag(seen.x(), state_.viewWidth, pointer.x(), state_.picWidth);
    if (down != 0) view_.vsc1->setValue(view_.vsc1->value() + down);
    if (right != 0) view_.hsc1->setValue(view_.hsc1->value() + right);
    view_.gdcl();
}

void CropTool::mouseUp(int x, int y) {
    if (!state_.mouseDown) return;
    const QSize size = sizeTo({x, y});
    state_.selWidth = size.width();
    state_.selHeight = size.height();
    if (button_.isActive()) button_.selectionMade(size);
    moveShape(size);
    view_.shpYu->setVisible(mayShow());
    if (state_.editState == u"c") view_.tscz(state_.editState);
    view_.txtCc->setVisible(readoutShows() && mayShow());
    dialog_.cmdCq[0]->setEnabled(!commands_.mnuCj->isEnabled());
    state_.mouseDown = false;
    view_.txtTs->raise();
    const QPoint moved = QPoint(x, y) - QPoint(state_.selLeft, state_.selTop);
    const QPoint at = view_.picYu->mapToGlobal(QPoint(pixelsFromTwips(x), pixelsFromTwips(y)));
    if (pixelsFromTwips(moved.manhattanLength()) < QApplication::startDragDistance() && isOnHint(at))
        view_.txtTs->hide();
}

// ------------------------------------------------------------------------------------------- the hint over the picture

/// While something can be selected, the mouse reaches the picture through the hint; a click still hides that.
bool CropTool::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) letThroughHint();
    if (event->type() == QEvent::MouseButtonRelease && watched == view_.txtTs->parent() &&
        isOnHint(static_cast<QMouseEvent*>(event)->globalPosition().toPoint()))
        view_.txtTs->hide();
    return QObject::eventFilter(watched, event);
}

void CropTool::letThroughHint() {
    view_.txtTs->setAttribute(Qt::WA_TransparentForMouseEvents, mayShow());
}

bool CropTool::isOnHint(QPoint global) const {
    return view_.txtTs->isVisible() && view_.txtTs->rect().contains(view_.txtTs->mapFromGlobal(global));
}
