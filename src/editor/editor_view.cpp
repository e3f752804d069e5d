#include "editor/editor_view.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <QScreen>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int barHeight = 330;
constexpr int viewportMargin = 30;
constexpr QSize welcomeSize(9450, 6140);  // with a tool bar less high
constexpr QPoint thumbnailPlace(580, 630);

void placeIn(QWidget* control, const QRect& rect) {
    place(control, rect.x(), rect.y(), rect.width(), rect.height());
}

void applyBar(QScrollBar* bar, const EditorLayout::Bar& layout, bool keepsPlace) {
    const QSignalBlocker quiet(bar);
    if (layout.placed) {
        placeIn(bar, layout.place);
        bar->setMaximum(layout.maximum);
        bar->setPageStep(layout.largeStep);
        bar->setSingleStep(layout.smallStep);
    }
    if (!keepsPlace || !layout.visible) bar->setValue(0);
    bar->setVisible(layout.visible);
}

QSize inTwips(QSize pixels) {
    return {twipsFromPixels(pixels.width()), twipsFromPixels(pixels.height())};
}

}  // namespace

EditorView::EditorView(Document& document, ToolBar* tlb1, QWidget* form)
    : QObject(form), document_(document), tlb1_(tlb1), form_(form) {
    makeGround();
    makeSurfaces();
    makeScrollBars();
    hint_ = new HintBox(form_, picGd_);
    band_ = new RubberBand(document_, *this, *hint_, picYu_, picGd_);
    for (const WorkSurface* surface : {picYu_, picMb_})
        connect(surface, &WorkSurface::doubleClicked, hint_, &HintBox::reveal);
    connect(&document_, &Document::pictureChanged, this, &EditorView::followDocument);
    connect(&document_, &Document::opened, this, [this] {
        zoom_.open(document_.size());
        pmsz();
    });
    connect(&document_, &Document::thumbnailShown, this, &EditorView::layOutThumbnail);
    connect(&document_, &Document::lastPaintDropped, this, &EditorView::forgetLastPaint);
}

void EditorView::makeGround() {
    QPalette colours = form_->palette();
    const QColor barColour = colours.color(QPalette::Window);
    colours.setColor(QPalette::Window, theme::worn().bench);
    form_->setPalette(colours);
    barGround_ = new ShapeBox(form_);
    barGround_->setBorderColor({});
    barGround_->setFillColor(barColour);
    barGround_->lower();
    shpBj_ = make<ShapeBox>(form_, u"shpBj"_s);
    shpBj_->setBorderColor({});
    shpBj_->setFillColor(theme::worn().bench);
    shpBj_->lower();
}

void EditorView::makeSurfaces() {
    picGd_ = make<Surface>(form_, u"picGd"_s);
    picYu_ = make<WorkSurface>(picGd_, u"picYu"_s);
    picMb_ = make<WorkSurface>(picGd_, u"picMb"_s);
    picMb_->hide();
    img1_ = make<ImageBox>(picYu_, u"img1"_s);
    attempt([&] { img1_->setPicture(LoadPicture(u":/pictures/editor.jpg"_s)); });
    shpBk_ = make<ShapeBox>(picYu_, u"shpBk"_s);
    shpBk_->setBorderColor(theme::worn().alert);
}

void EditorView::makeScrollBars() {
    hsc1_ = make<QScrollBar>(form_, u"hsc1"_s, Qt::Horizontal);
    vsc1_ = make<QScrollBar>(form_, u"vsc1"_s, Qt::Vertical);
    for (QScrollBar* scroll : {hsc1_, vsc1_}) {
        scroll->setMaximum(EditorLayoutInput().horizontalMaximum);
        scroll->hide();
        connect(scroll, &QScrollBar::valueChanged, this, &EditorView::gdcl);
    }
}

// ------------------------------------------------------------------------------------------------------ the picture

void EditorView::followDocument() {
    const QImage& painted = document_.lastPaint();
    picMb_->setPicture(painted, document_.profile());
    picMb_->setGeometry(QRect(QPoint(), painted.size()));
    picYu_->setPicture(document_.shown(), document_.profile());
    for (QWidget* surface : {static_cast<QWidget*>(picGd_), static_cast<QWidget*>(picYu_)}) surface->show();
    img1_->hide();
    zoom_.follow(document_.size());
    pmsz();
}

void EditorView::forgetLastPaint() {
    picMb_->setPicture({});
}

void EditorView::showWelcome() {
    welcomeSize_ = welcomeSize - QSize(0, toolbarHeight_);
    picYu_->setPicture({});
    for (QWidget* surface :
         {static_cast<QWidget*>(picGd_), static_cast<QWidget*>(picYu_), static_cast<QWidget*>(img1_)})
        surface->show();
    pmsz();
}

/// The thumbnail is alone, in a place of its own, one to one.
void EditorView::layOutThumbnail() {
    const QSize size = document_.size();
    hsc1_->hide();
    vsc1_->hide();
    viewSize_ = size;
    placeIn(picGd_, {thumbnailPlace, size});
    picYu_->setPicture(document_.shown(), document_.profile());
    picYu_->setScale(1);
    gdcl();
    picYu_->show();
    band_->hide();
    place(shpBk_, 10, 10, size.width() - 20, size.height() - 20);
    Q_EMIT zoomed();
}

void EditorView::makeWayForChooser() {
    centreWindow({leastWindowWidth, leastWindowHeight});
    place(shpBj_, 0, toolbarHeight_, 9515, 6530 - toolbarHeight_ - mekTp::titleBarExtra);
    for (QWidget* covered : {static_cast<QWidget*>(picGd_), static_cast<QWidget*>(hsc1_), static_cast<QWidget*>(vsc1_)})
        covered->hide();
}

// ----------------------------------------------------------------------------------------------------------- layout

EditorLayoutInput EditorView::layoutInput() const {
    return {.picture = document_.isOpen() ? document_.size() : welcomeSize_,
            .screen = screenSize(),
            .toolbarHeight = toolbarHeight_,
            .titleBarExtra = mekTp::titleBarExtra,
            .welcome = !document_.isOpen(),
            .form = {},
            .horizontalMaximum = hsc1_->maximum()};
}

void EditorView::pmsz() {
    const EditorLayoutInput input = layoutInput();
    const EditorLayout layout = editorLayout(input);
    fittingWindow_ = {pixelsFromTwips(layout.window.width()), pixelsFromTwips(layout.window.height())};
    apply(layout, false);
    placeIn(picYu_, {QPoint(), layout.picture});
    placeIn(img1_, {QPoint(), layout.picture});
    placeIn(shpBk_, {QPoint(), input.picture});
    shpBk_->setVisible(document_.isOpen());
    band_->hide();
    showBar();
    centreWindow(layout.window);
    fitToWindow();
    placeIn(shpBj_, layout.background);
}

void EditorView::apply(const EditorLayout& layout, bool keepsPlace) {
    viewSize_ = layout.view;
    applyBar(hsc1_, layout.horizontal, keepsPlace);
    applyBar(vsc1_, layout.vertical, keepsPlace);
    placeIn(picGd_, layout.viewport);
}

/// In a window of another size than was chosen for the picture, and around a picture that is not one to one, the
/// viewport takes the room that there is.
void EditorView::fitToWindow() {
    if (!canZoom()) return;
    const QSize form = inTwips(form_->size());
    zoom_.setRoom(pictureRoom(form, toolbarHeight_));
    EditorLayoutInput input = layoutInput();
    input.picture = zoom_.shown();
    input.fills = !zoom_.isOneToOne();
    if (input.fills || form_->window()->size() != fittingWindow_) input.form = form;
    apply(editorLayout(input), true);
    picYu_->setScale(zoom_.scale());
    placeIn(shpBk_, {QPoint(), zoom_.shown()});
    gdcl();
    Q_EMIT zoomed();
}

void EditorView::setToolBarShown(bool on) {
    toolbarHeight_ = on ? barHeight : 0;
}

void EditorView::showBar() {
    tlb1_->setVisible(toolbarHeight_ > 0);
    barGround_->setVisible(toolbarHeight_ > 0);
    place(picGd_, leftOf(picGd_), toolbarHeight_ + viewportMargin);
}

// --------------------------------------------------------------------------------------------------- scroll and zoom

/// The picture follows the scroll bars, and the rubber band the picture.
void EditorView::gdcl() {
    const QPoint corner = pictureCorner();
    picYu_->setGeometry(pixelsFromTwips(corner.x()), pixelsFromTwips(corner.y()), pixelsFromTwips(shownSize().width()),
                        pixelsFromTwips(shownSize().height()));
    band_->layOut();
}

/// Where the picture is in the viewport.
QPoint EditorView::pictureCorner() const {
    const auto along = [](const QScrollBar* bar, int view, int shown) {
        return bar->isHidden() ? std::max(0, (view - shown) / 2) : -bar->value();
    };
    return {along(hsc1_, viewSize_.width(), shownSize().width()),
            along(vsc1_, viewSize_.height(), shownSize().height())};
}

QSize EditorView::shownSize() const {
    return document_.showsThumbnail() ? document_.size() : zoom_.shown();
}

void EditorView::scrollBy(int right, int down) {
    const QPoint corner = pictureCorner();
    scrollTo({right - corner.x(), down - corner.y()});
}

void EditorView::scrollTo(QPoint place) {
    for (const auto& [bar, value] : {std::pair(hsc1_, place.x()), {vsc1_, place.y()}}) {
        const QSignalBlocker quiet(bar);
        if (!bar->isHidden()) bar->setValue(value);
    }
    gdcl();
}

bool EditorView::canZoom() const {
    return document_.isOpen() && !picGd_->isHidden() && !document_.showsThumbnail();
}

void EditorView::zoomBy(double factor, QPoint at) {
    zoomAround(at, [factor](Zoom& zoom) { zoom.scaleBy(factor); });
}

void EditorView::zoomTo(double scale) {
    zoomAround(picGd_->rect().center(), [scale](Zoom& zoom) { zoom.setScale(scale); });
}

void EditorView::showWhole() {
    zoomAround(picGd_->rect().center(), [](Zoom& zoom) { zoom.showWhole(); });
}

/// The place in the picture that is at `at` stays there, as far as the picture can be scrolled.
void EditorView::zoomAround(QPoint at, const std::function<void(Zoom&)>& change) {
    if (!canZoom()) return;
    const QPoint place(twipsFromPixels(at.x()), twipsFromPixels(at.y()));
    const QPointF held = QPointF(place - pictureCorner()) / zoom_.scale();
    change(zoom_);
    fitToWindow();
    const QPointF now = held * zoom_.scale();
    scrollTo(QPoint(roundHalfEven(now.x()), roundHalfEven(now.y())) - place);
}

// ------------------------------------------------------------------------------------------------------- the window

void EditorView::growShortWindow() {
    QWidget* window = form_->window();
    if (heightOf(window) >= leastWindowHeight || window->isMaximized()) return;
    const QRect room = window->screen()->availableGeometry();
    window->move(window->x(), room.top() + pixelsFromTwips((screenSize().height() - leastWindowHeight) / 2));
    window->resize(window->width(), pixelsFromTwips(leastWindowHeight));
    place(shpBj_, leftOf(shpBj_), topOf(shpBj_), widthOf(shpBj_), grownBackgroundHeight);
}

/// A window that fills the screen by the user's wish stays so.
void EditorView::centreWindow(QSize twips) {
    QWidget* window = form_->window();
    if (window->isMaximized() || window->isFullScreen()) return;
    const QSize size(pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height()));
    const QRect room = window->screen()->availableGeometry();
    const QSize spare = room.size() - size - frameSize();
    window->resize(size);
    window->move(room.topLeft() + QPoint(spare.width() / 2, spare.height() / 2));
}

void EditorView::resized() {
    const int width = widthOf(form_->window());
    place(tlb1_, 0, 0, width - 90, barHeight);
    place(barGround_, 0, 0, width, barHeight);
    fitToWindow();
    hint_->lay();
}

QSize EditorView::screenSize() const {
    return inTwips(form_->screen()->availableSize() - frameSize());
}

QSize EditorView::frameSize() const {
    const QWidget* window = form_->window();
    return window->frameGeometry().size() - window->size();
}
