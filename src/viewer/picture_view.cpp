#include "viewer/picture_view.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QKeyEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize placeWithoutPicture(640, 480);
constexpr double keyTimes = 1.2;
const QString noSize = u" 的图片没有可用的规格。"_s;
}  // namespace

PictureView::PictureView(Page& page, ToolStrip& strip, StatusLine& status, ScreenPanel& screen)
    : page_(page), strip_(strip), status_(status), screen_(screen), pictures_([this] { return neighbours(); }) {
    connect(&page, &Page::cellDoubleClicked, this, guarded(page.window(), [this](int cell) { open(cell); }));
    connect(&screen, &ScreenPanel::viewEnded, this, &PictureView::endView);
    connect(&screen.stage(), &Stage::leafWanted, this, guarded(page.window(), [this](int steps) { leaf(steps); }));
    connect(&screen.stage(), &Stage::placed, &pictures_, &StagePictures::sharpen);
    connect(&pictures_, &StagePictures::failed, this, &PictureView::sayWhy);
}

// ------------------------------------------------------------------------------------------------ opening and leaving

void PictureView::open(int cell) {
    selectedCell_ = cell;
    if (page_.cellCount() == 1 || page_.numberIn(cell).isEmpty()) return;
    const Recordset record = mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + page_.table() + u" WHERE 序号 = "_s +
                                                            page_.numberIn(cell));
    ViewedPicture viewed = viewedPictureAt(record, 0);
    if (viewed.pixels.isEmpty() && !viewed.picture.isNull()) throw Error(u"序号 "_s + viewed.number + noSize);
    viewed_ = std::move(viewed);
    pageRow_ = page_.firstRow();
    pageCells_ = page_.cellCount();
    row_ = pageRow_ + cell;
    hasLeafed_ = false;
    show();
}

void PictureView::refit() {
    pageRow_ = page_.firstRow();
    pageCells_ = page_.cellCount();
    show();
}

void PictureView::leave() {
    if (pageRow_ == page_.firstRow() && pageCells_ == page_.cellCount())
        screen_.endView();
    else
        page_.xstp();
    if (hasLeafed_) page_.focusCell(row_ - page_.firstRow());
}

void PictureView::endView() {
    pictures_.leave();
    hideFacts();
    if (isAlone()) alone_->leave();
}

void PictureView::switchSize() {
    if (strip_.page() == 0) return;
    page_.setOriginalSize(!page_.isOriginalSize());
    strip_.showOriginalSize(page_.isOriginalSize());
    if (screen_.isViewing()) {
        show();
        return;
    }
    if (page_.cellCount() > 1) {
        attempt([&] { open(selectedCell_); });
        return;
    }
    page_.setFirstIndex(std::max(-1, page_.firstIndex() - 1));
    page_.xstp();
}

// ---------------------------------------------------------------------------------------------------------- showing

QString PictureView::name() const {
    return u"序号 "_s + viewed_.number;
}

/// Size in logical pixels of a picture on the present stage.
QSize PictureView::fittedPixels(QSize pixels) const {
    const QWidget* window = page_.window();
    Room room = viewRoom(widthOf(window), heightOf(window));
    if (isAlone()) room = {widthOf(alone_), heightOf(alone_), double(alone_->width()) / alone_->height()};
    const QSize fitted = fittedSize(pixels.isEmpty() ? placeWithoutPicture : pixels, room, page_.isOriginalSize());
    return rectFromTwips(0, 0, fitted.width(), fitted.height()).size();
}

void PictureView::show() {
    const QSize whole = fittedPixels(viewed_.pixels);
    if (isAlone())
        stage().begin(whole, viewed_.pixels);
    else
        screen_.beginView(whole, viewed_.pixels, viewed_.data);

    if (viewed_.picture.isNull())
        stage().say(viewed_.number.isEmpty() ? QString() : name() + u" 没有图片。"_s);
    else if (viewed_.pixels.isEmpty())
        stage().say(name() + noSize);
    else
        pictures_.bring(stage(), viewed_.picture);
    showFacts();
}

/// A strip that was put away stays away.
void PictureView::showKeepingStrip() {
    const bool hasStrip = screen_.hasStrip();
    show();
    if (screen_.hasStrip() != hasStrip) screen_.toggleStrip();
}

void PictureView::sayWhy() {
    try {
        const StoredValue& value = viewed_.picture;
        LoadPicture(value.read(0, value.size()), name(), stage().target());
    } catch (const Error& failure) {
        stage().say(failure.text());
    }
}

// ---------------------------------------------------------------------------------------------------------- leafing

void PictureView::leaf(int steps) {
    if (!screen_.isViewing()) {
        Q_EMIT pageWanted(steps < 0 ? u"sy"_s : u"xy"_s);
        return;
    }
    const Recordset& album = page_.selection().records();
    const int row = rowStepsFrom(album, viewed_.number, row_, steps);
    if (row < 0 || row >= album.rowCount()) {
        status_.showPage(steps < 0 ? u"翻页已到文件头！"_s : u"翻页已到文件尾！"_s);
        return;
    }
    viewed_ = viewedPictureAt(album, row);
    row_ = row;
    direction_ = steps < 0 ? -1 : 1;
    hasLeafed_ = true;
    turnPage();
    showKeepingStrip();
}

/// To the page of the picture, without drawing it.
void PictureView::turnPage() {
    if (row_ < pageRow_ || row_ >= pageRow_ + pageCells_) {
        pageCells_ = page_.picturesPerPage();
        const int pagesBefore = row_ / pageCells_;
        pageRow_ = pagesBefore * pageCells_;
        page_.setFirstIndex(pageRow_);
        strip_.showPage(pageText(pagesBefore + 1));
        page_.prepare();
    }
    selectedCell_ = row_ - pageRow_;
    status_.showPage(page_.line());
}

/// Those that the next leafing may show: first in the direction of the last one.
StagePictures::Requests PictureView::neighbours() {
    StagePictures::Requests requests;
    const Recordset& album = page_.selection().records();
    for (const int steps : {direction_, -direction_, 2 * direction_}) {
        const int row = rowStepsFrom(album, viewed_.number, row_, steps);
        if (row < 0 || row >= album.rowCount()) continue;
        const ViewedPicture next = viewedPictureAt(album, row);
        if (next.pixels.isEmpty() || next.picture.isNull()) continue;
        requests.push_back({next.picture, ImageBox::targetSize(page_.window(), fittedPixels(next.pixels))});
    }
    return requests;
}

// ------------------------------------------------------------------------------------------------------------- keys

bool PictureView::takeKey(const QKeyEvent& event) {
    static const QHash<int, int> leaves{
        {Qt::Key_Left, -1}, {Qt::Key_PageUp, -1}, {Qt::Key_Right, 1}, {Qt::Key_PageDown, 1}};
    const Qt::KeyboardModifiers with = event.modifiers() & ~Qt::KeypadModifier;
    if (with.testFlag(Qt::ControlModifier)) return zoomByKey(event.key());
    if (with == Qt::NoModifier && event.key() == Qt::Key_I) {
        if (!event.isAutoRepeat()) switchFacts();
        return true;
    }
    if (with != Qt::NoModifier || !leaves.contains(event.key())) return false;
    leaf(leaves[event.key()]);
    return true;
}

bool PictureView::zoomByKey(int key) {
    if (key == Qt::Key_1)
        stage().showOneToOne();
    else if (key == Qt::Key_0)
        stage().showWhole();
    else if (key == Qt::Key_Plus || key == Qt::Key_Equal)
        stage().zoomBy(keyTimes);
    else if (key == Qt::Key_Minus)
        stage().zoomBy(1 / keyTimes);
    else
        return false;
    return true;
}

// ------------------------------------------------------------------------------------------------------------ facts

void PictureView::switchFacts() {
    hasFacts_ = !hasFacts_;
    hideFacts();
    showFacts();
}

/// Of the picture in view, over it.
void PictureView::showFacts() {
    if (!hasFacts_ || viewed_.picture.isNull()) {
        hideFacts();
        return;
    }
    if (!lblZl) lblZl = new FactsPanel(page_.window());
    const StoredValue& value = viewed_.picture;
    PictureFacts facts;
    attempt([&] { facts = pictureFacts(value.read(0, std::min(value.size(), factsReach))); });
    lblZl->showOn(stage().ground(), factLines(facts, viewed_.pixels, value.size()));
}

void PictureView::hideFacts() {
    if (lblZl) lblZl->hide();
}

// --------------------------------------------------------------------------------------------------------- on black

Alone& PictureView::alone() {
    if (alone_ != nullptr) return *alone_;
    alone_ = new Alone(page_.window());
    connect(alone_, &Alone::left, this, guarded(page_.window(), [this] { backFromAlone(); }));
    connect(alone_, &Alone::resized, this, &PictureView::show);
    connect(alone_, &Alone::keyPressed, this, guarded(alone_, [this](QKeyEvent* event) { takeKeyAlone(event); }));
    connect(&alone_->stage(), &Stage::leafWanted, this, guarded(alone_, [this](int steps) { leaf(steps); }));
    connect(&alone_->stage(), &Stage::placed, &pictures_, &StagePictures::sharpen);
    return *alone_;
}

void PictureView::switchAlone() {
    const bool hasOnePicture = page_.isShown() && page_.cellCount() == 1 && !screen_.isCovering();
    if (isAlone()) {
        alone_->leave();
    } else if (screen_.isViewing()) {
        behindBlack_ = viewed_.picture;
        alone().open();
        show();
    } else if (hasOnePicture) {
        alone().open();
        followPage();
    }
}

void PictureView::takeKeyAlone(QKeyEvent* event) {
    if (takeKey(*event)) return;
    event->ignore();
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat() && !screen_.isViewing()) Q_EMIT showSwitched();
}

void PictureView::backFromAlone() {
    if (!screen_.isViewing()) {
        pictures_.leave();
        hideFacts();
    } else if (!viewed_.picture.isNull() && viewed_.picture == behindBlack_) {
        pictures_.bring(screen_.stage(), viewed_.picture);
        showFacts();
    } else {
        showKeepingStrip();
    }
}

void PictureView::followPage() {
    if (!isAlone() || screen_.isViewing()) return;
    const Recordset& album = page_.selection().records();
    row_ = page_.firstRow();
    viewed_ = row_ < album.rowCount() ? viewedPictureAt(album, row_) : ViewedPicture();
    show();
}
