#include "editor/crop_tool.h"

#include "editor/editor_texts.h"
#include "editor/selection.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int scrollStep = 200;
constexpr int readoutHeight = 270;
}  // namespace

CropTool::CropTool(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog,
                   ButtonPicture& button)
    : QObject(view.picYu), state_(state), commands_(commands), view_(view), dialog_(dialog), button_(button) {
    const WorkSurface* picYu = view_.picYu;
    connect(picYu, &WorkSurface::pressed, this, guarded(view_.picGd, [this](int x, int y) { mouseDown(x, y); }));
    connect(picYu, &WorkSurface::moved, this, guarded(view_.picGd, [this](int x, int y) { mouseMove(x, y); }));
    connect(picYu, &WorkSurface::released, this, guarded(view_.picGd, [this](int x, int y) { mouseUp(x, y); }));
}

void CropTool::mnuCjClick() {
    state_.editState = u"c"_s;
    view_.tscz(u"c1"_s);
    commands_.setEnabled(commands_.mnuCj, u"cj"_s, false);
    dialog_.czdh(u"c"_s);
    commands_.setEnabled(commands_.mnuAt, u"at"_s, false);
}

bool CropTool::mayShow() const {
    if (state_.editState == u"c") return !commands_.mnuCj->isEnabled();
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
    state_.mouseDown = true;
}

void CropTool::mouseMove(int x, int y) {
    if (!state_.mouseDown) return;
    const QPoint start(state_.selLeft, state_.selTop);
    const QSize size = selectionSize(button_.shape(), start, {x, y});
    moveShape(size);
    button_.tellSize(size);
    showReadout({x, y});
    scrollAlong(x, y);
}

void CropTool::showReadout(QPoint pointer) {
    TextBox* txtCc = view_.txtCc;
    const QPoint start(state_.selLeft, state_.selTop);
    txtCc->setText(selectionReadout(start, {widthOf(view_.shpYu), heightOf(view_.shpYu)}));
    const int width = hintWidth(txtCc->text());
    const QPoint at = readoutPlace(pointer, width, {state_.viewWidth, state_.viewHeight});
    place(txtCc, at.x(), at.y(), width, readoutHeight);
    txtCc->setVisible(readoutShows() && mayShow());
}

void CropTool::scrollAlong(int x, int y) {
    if (y > state_.viewHeight && y < state_.picHeight - scrollStep)
        view_.vsc1->setValue(view_.vsc1->value() + scrollStep);
    if (x > state_.viewWidth && x < state_.picWidth - scrollStep)
        view_.hsc1->setValue(view_.hsc1->value() + scrollStep);
    view_.gdcl();
}

void CropTool::mouseUp(int x, int y) {
    if (!state_.mouseDown) return;
    const SelectionShape shape = button_.isActive() ? button_.shape() : SelectionShape::free;
    const QSize size = selectionSize(shape, {state_.selLeft, state_.selTop}, {x, y});
    state_.selWidth = size.width();
    state_.selHeight = size.height();
    if (button_.isActive()) button_.selectionMade(size);
    moveShape(size);
    view_.shpYu->setVisible(mayShow());
    if (state_.editState == u"c") view_.tscz(state_.editState);
    view_.txtCc->setVisible(readoutShows() && mayShow());
    dialog_.cmdCq[0]->setEnabled(!commands_.mnuCj->isEnabled());
    state_.mouseDown = false;
}
