#include "editor/editor_view.h"

#include "catalogue/mektp.h"
#include "editor/editor_layout.h"
#include "editor/editor_texts.h"
#include "platform/base/error.h"
#include "platform/desktop/placing.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int barHeight = 330;
constexpr int viewportMargin = 30;
constexpr int hintHeight = 270;
constexpr int hintFrame = 2;                     // pixels, on both sides
constexpr int hintFont = 12, leastHintFont = 8;  // pixels
constexpr int wheelNotch = 120;
constexpr int wheelStep = 600;
/// As much of a dragged panel stays within reach of the mouse, in pixels.
constexpr int panelHandle = 24;
const QColor pictureFrame(0xc0, 0x39, 0x2b);
const QColor workbench(0xe6, 0xe0, 0xd4);

void applyBar(QScrollBar* bar, const EditorLayout::Bar& layout, bool keepsPlace) {
    const QSignalBlocker quiet(bar);
    if (layout.placed) {
        bar->setGeometry(
            rectFromTwips(layout.place.x(), layout.place.y(), layout.place.width(), layout.place.height()));
        bar->setMaximum(layout.maximum);
        bar->setPageStep(layout.largeStep);
        bar->setSingleStep(layout.smallStep);
    }
    if (!keepsPlace || !layout.visible) bar->setValue(0);
    bar->setVisible(layout.visible);
}

/// The sentences are measured in half cells of 6 pixels: nothing but the frame may stand beside them.
void dressHint(TextBox* box) {
    box->setLocked(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignCenter);
    box->setTextMargins(-2, 0, -2, 0);
    box->setCursor(Qt::ArrowCursor);
    box->setContextMenuPolicy(Qt::NoContextMenu);
    box->setStyleSheet(
        u"QLineEdit { background: #fffbea; border: 1px solid #d9b65c; border-radius: 3px; padding: 0px; "
        "color: #4a3d17; }"_s);
    box->hide();
}

QSize inTwips(QSize pixels) {
    return {twipsFromPixels(pixels.width()), twipsFromPixels(pixels.height())};
}

}  // namespace

EditorView::EditorView(EditorState& state, ToolBar* bar, QWidget* window, QWidget* form)
    : QObject(form), state_(state), bar_(bar), window_(window), form_(form) {
    makeSurfaces();
    makeHintBox();
    makePanels();
}

void EditorView::makeSurfaces() {
    QPalette colours = form_->palette();
    const QColor barColour = colours.color(QPalette::Window);
    colours.setColor(QPalette::Window, workbench);
    form_->setPalette(colours);
    barGround_ = new ShapeBox(form_);
    barGround_->setBorderColor({});
    barGround_->setFillColor(barColour);
    barGround_->lower();
    shpBj = make<ShapeBox>(form_, u"shpBj"_s);
    shpBj->setBorderColor({});
    shpBj->setFillColor(workbench);
    shpBj->lower();
    picGd = make<Surface>(form_, u"picGd"_s);
    picGd->installEventFilter(this);
    picYu = make<WorkSurface>(picGd, u"picYu"_s);
    picMb = make<WorkSurface>(picGd, u"picMb"_s);
    picMb->hide();
    img1 = make<ImageBox>(picYu, u"img1"_s);
    attempt([&] { img1->setPicture(LoadPicture(u":/pictures/editor.jpg"_s)); });
    shpBk = make<ShapeBox>(picYu, u"shpBk"_s);
    shpBk->setBorderColor(pictureFrame);
    shpYu = make<ShapeBox>(picYu, u"shpYu"_s);
    shpYu->hide();
    txtCc = make<TextBox>(picYu, u"txtCc"_s);
    dressHint(txtCc);
    txtCc->setAttribute(Qt::WA_TransparentForMouseEvents);

    hsc1 = make<QScrollBar>(form_, u"hsc1"_s, Qt::Horizontal);
    vsc1 = make<QScrollBar>(form_, u"vsc1"_s, Qt::Vertical);
    for (QScrollBar* scroll : {hsc1, vsc1}) {
        scroll->setMaximum(EditorLayoutInput().horizontalMaximum);
        scroll->hide();
        connect(scroll, &QScrollBar::valueChanged, this, &EditorView::gdcl);
    }
}

void EditorView::makeHintBox() {
    txtTs = make<TextBox>(form_, u"txtTs"_s);
    txtTs->setAccessibleName(u"操作提示"_s);
    dressHint(txtTs);
    connect(txtTs, &TextBox::clicked, txtTs, &QWidget::hide);
    for (const WorkSurface* surface : {picYu, picMb})
        connect(surface, &WorkSurface::doubleClicked, txtTs, [this] {
            txtTs->show();
            txtTs->raise();
        });
}

void EditorView::makePanels() {
    const auto panel = [this](const QString& name) {
        auto* made = make<Surface>(form_, name);
        made->setAutoFillBackground(true);
        made->setStyleSheet(
            u"Surface#%1 { background: #fdfcf9; border: 1px solid #a9a192; border-radius: 6px; }"_s.arg(name));
        made->hide();
        return made;
    };
    picCs = panel(u"picCs"_s);
    picCq = panel(u"picCq"_s);
    picAn = panel(u"picAn"_s);
    for (Surface* floating : {picCq, picAn}) {
        floating->setToolTip(u"本对话框可用鼠标拖动移动位置"_s);
        floating->installEventFilter(this);
    }
}

// ------------------------------------------------------------------------------------------------------- layout

EditorLayoutInput EditorView::layoutInput() const {
    return {.picture = {state_.picWidth, state_.picHeight},
            .screen = screenSize(),
            .toolbarHeight = state_.toolbarHeight,
            .titleBarExtra = mekTp::titleBarExtra,
            .welcome = !img1->isHidden(),
            .form = {},
            .horizontalMaximum = hsc1->maximum()};
}

/// The whole window for the present picture.
void EditorView::pmsz() {
    const EditorLayout layout = editorLayout(layoutInput());
    fittingWindow_ = {pixelsFromTwips(layout.window.width()), pixelsFromTwips(layout.window.height())};
    apply(layout, false);
    place(picYu, 0, 0, layout.picture.width(), layout.picture.height());
    place(img1, 0, 0, layout.picture.width(), layout.picture.height());
    place(shpBk, 0, 0, state_.picWidth, state_.picHeight);
    shpBk->setVisible(state_.isOpen);
    shpYu->hide();
    showBar();
    centreWindow(layout.window.width(), layout.window.height());
    fitToWindow();
    const QRect& ground = layout.background;
    place(shpBj, ground.x(), ground.y(), ground.width(), ground.height());
}

void EditorView::apply(const EditorLayout& layout, bool keepsPlace) {
    state_.viewWidth = layout.view.width();
    state_.viewHeight = layout.view.height();
    applyBar(hsc1, layout.horizontal, keepsPlace);
    applyBar(vsc1, layout.vertical, keepsPlace);
    const QRect& port = layout.viewport;
    place(picGd, port.x(), port.y(), port.width(), port.height());
}

/// In a window of another size than was chosen for the picture the viewport takes the room that there is.
void EditorView::fitToWindow() {
    if (!state_.isOpen || picGd->isHidden() || showsThumbnail()) return;
    EditorLayoutInput input = layoutInput();
    if (window_->size() != fittingWindow_) input.form = inTwips(form_->size());
    apply(editorLayout(input), true);
    gdcl();
}

void EditorView::showBar() {
    bar_->setVisible(state_.toolbarHeight > 0);
    barGround_->setVisible(state_.toolbarHeight > 0);
    place(picGd, leftOf(picGd), state_.toolbarHeight + viewportMargin);
}

/// The picture follows the scroll bars.
void EditorView::gdcl() {
    WorkSurface* shown = picMb->isVisible() ? picMb : picYu;
    place(shown, -hsc1->value(), -vsc1->value());
}

void EditorView::growShortWindow() {
    if (windowHeight() >= leastWindowHeight || window_->isMaximized()) return;
    const QRect room = window_->screen()->availableGeometry();
    window_->move(window_->x(), room.top() + pixelsFromTwips((screenSize().height() - leastWindowHeight) / 2));
    window_->resize(window_->width(), pixelsFromTwips(leastWindowHeight));
    place(shpBj, leftOf(shpBj), topOf(shpBj), widthOf(shpBj), grownBackgroundHeight);
}

/// A window that fills the screen by the user's wish stays so.
void EditorView::centreWindow(int width, int height) {
    if (window_->isMaximized() || window_->isFullScreen()) return;
    const QSize size(pixelsFromTwips(width), pixelsFromTwips(height));
    const QRect room = window_->screen()->availableGeometry();
    const QSize spare = room.size() - size - frameSize();
    window_->resize(size);
    window_->move(room.topLeft() + QPoint(spare.width() / 2, spare.height() / 2));
}

void EditorView::resized() {
    place(bar_, 0, 0, windowWidth() - 90, barHeight);
    place(barGround_, 0, 0, windowWidth(), barHeight);
    fitToWindow();
    centreHint();
}

int EditorView::windowWidth() const {
    return widthOf(window_);
}

int EditorView::windowHeight() const {
    return heightOf(window_);
}

QSize EditorView::screenSize() const {
    return inTwips(window_->screen()->availableSize() - frameSize());
}

QSize EditorView::frameSize() const {
    return window_->frameGeometry().size() - window_->size();
}

void EditorView::takePainted(const QImage& painted) {
    picMb->setPicture(painted);
    picMb->setGeometry(QRect(QPoint(), painted.size()));
    state_.isTakenBack = false;
    setWorkingPicture(painted);
    picYu->show();
    pmsz();
}

void EditorView::setWorkingPicture(const QImage& picture) {
    photograph_ = {};
    picYu->setPicture(picture);
}

void EditorView::showThumbnail(const QImage& thumbnail) {
    photograph_ = picYu->Image();
    picYu->setPicture(thumbnail);
}

QImage EditorView::workingPicture() const {
    return showsThumbnail() ? photograph_ : picYu->Image();
}

QImage EditorView::lastPaint() const {
    return picMb->picture().isNull() ? workingPicture() : picMb->picture();
}

// --------------------------------------------------------------------------------------------------------- hints

/// Puts the hint of a step into the hint box.
void EditorView::tscz(const QString& code) {
    const QString hint = hintFor(code);
    if (!hint.isEmpty()) txtTs->setText(hint);
    placeHint();
    txtTs->setVisible(hintsOn_);
}

void EditorView::notice(const QString& text) {
    txtTs->setText(text);
    placeHint();
    txtTs->show();
}

/// Half a cell is narrow for the digits and letters of some fonts: they get smaller until the text is whole.
void EditorView::setHint(TextBox* box, const QString& text) {
    box->setText(text);
    box->setCursorPosition(0);
    const int room = pixelsFromTwips(hintWidth(text)) - hintFrame;
    QFont font = box->font();
    font.setPixelSize(hintFont);
    while (font.pixelSize() > leastHintFont && QFontMetrics(font).horizontalAdvance(text) > room)
        font.setPixelSize(font.pixelSize() - 1);
    if (font != box->font()) box->setFont(font);
    box->resize(pixelsFromTwips(hintWidth(text)), pixelsFromTwips(hintHeight));
}

void EditorView::placeHint() {
    setHint(txtTs, txtTs->text());
    centreHint();
    txtTs->raise();
    picAn->raise();  // its controls are worked with while the hint shows
}

void EditorView::centreHint() {
    place(txtTs, (windowWidth() - widthOf(txtTs)) / 2, topOf(picGd));
}

// --------------------------------------------------------------------------------------------------------- mouse

bool EditorView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && watched == picGd) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        const bool sideways = (wheel->modifiers() & Qt::ShiftModifier) || !vsc1->isVisible();
        QScrollBar* along = sideways ? hsc1 : vsc1;
        const int notches = wheel->angleDelta().y() + wheel->angleDelta().x();
        if (along->isVisible()) along->setValue(along->value() - notches * wheelStep / wheelNotch);
        return true;
    }
    auto* panel = watched == picCq || watched == picAn ? static_cast<Surface*>(watched) : nullptr;
    if (panel != nullptr && event->type() == QEvent::MouseButtonPress)
        dragFrom_ = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    if (panel != nullptr && event->type() == QEvent::MouseMove) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->buttons() & Qt::LeftButton) dragPanel(panel, mouse->globalPosition().toPoint());
    }
    return QObject::eventFilter(watched, event);
}

/// A dragged panel goes with its corner to where the pointer stands in the visible part of the picture, so it is held
/// a little below its upper edge.
void EditorView::dragPanel(Surface* panel, QPoint pointer) {
    if ((pointer - dragFrom_).manhattanLength() < QApplication::startDragDistance()) return;
    const QPoint wanted = picGd->mapFromGlobal(pointer);
    panel->move(std::clamp(wanted.x(), panelHandle - panel->width(), form_->width() - panelHandle),
                std::clamp(wanted.y(), 0, std::max(0, form_->height() - panelHandle)));
}
