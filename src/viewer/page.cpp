#include "viewer/page.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "viewer/filters.h"
#include "viewer/tags.h"

using namespace Qt::Literals::StringLiterals;

namespace {
// The shape of a cell before any picture has told another one.
constexpr QSize cellShape(4, 3);
constexpr int mostColumnsWithCaptions = 2;
constexpr int oneLine = 300;
// Text heights of captions in pixels.
constexpr int usualText = 12;
constexpr int smallText = 11;
const QColor frameColour(0xb9, 0xb1, 0xa3);

// A control that a handler may still be using goes when that handler has returned, but is out of the window at once.
void drop(QWidget* control) {
    control->hide();
    control->setParent(nullptr);
    control->deleteLater();
}

void placeAt(QWidget* control, const Box& box) {
    place(control, box.left, box.top, box.width, box.height);
}
}  // namespace

Page::Page(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, QWidget* window,
           QWidget* form)
    : state_(state), strip_(strip), status_(status), screen_(screen), window_(window) {
    pic1 = make<Surface>(form, u"pic1"_s);
    scroll_ = std::make_unique<WheelScroll>(pic1);
    setCellCount(1);
}

Page::Cell Page::makeCell(int index) {
    const Cell cell{make<ShapeBox>(pic1, element(u"shpXs"_s, index)), make<ImageBox>(pic1, element(u"imgXs"_s, index)),
                    make<CaptionBox>(pic1, element(u"txtBq"_s, index))};
    cell.shpXs->setBorderColor(frameColour);
    cell.shpXs->setBorderWidth(2);
    cell.shpXs->hide();
    cell.imgXs->hide();
    cell.txtBq->document()->setDocumentMargin(0);
    cell.txtBq->hide();
    connect(cell.imgXs, &ImageBox::clicked, this, &Page::cellClicked);
    connect(cell.imgXs, &ImageBox::doubleClicked, this, [this, index] { Q_EMIT cellDoubleClicked(index); });
    connect(cell.imgXs, &ImageBox::mouseReleased, this, guarded(window_, [this, index] { showCaption(index); }));
    connect(cell.txtBq, &CaptionBox::clicked, cell.txtBq, &QWidget::hide);
    return cell;
}

void Page::setCellCount(int count) {
    while (int(cells_.size()) > count) {
        drop(cells_.back().txtBq);
        drop(cells_.back().imgXs);
        drop(cells_.back().shpXs);
        cells_.pop_back();
    }
    for (const Cell& cell : cells_) {
        cell.shpXs->hide();
        cell.imgXs->hide();
        cell.txtBq->hide();
    }
    while (int(cells_.size()) < count) {
        cells_.push_back(makeCell(int(cells_.size())));
        if (cells_.size() > 1) QWidget::setTabOrder(cells_[cells_.size() - 2].imgXs, cells_.back().imgXs);
    }
    // Captions stand over all pictures: in two columns they reach over the edge of their own cell.
    for (const Cell& cell : cells_) cell.txtBq->raise();
}

int Page::focusedCell() const {
    for (size_t i = 0; i < cells_.size(); ++i)
        if (cells_[i].imgXs->hasFocus()) return int(i);
    return -1;
}

void Page::focusCell(int cell) {
    const ImageBox* image = picture(cell);
    if (image != nullptr && !image->tag().isEmpty()) cells_[size_t(cell)].imgXs->setFocus(Qt::TabFocusReason);
}

void Page::toggleCaption(int cell) {
    if (picture(cell) == nullptr) return;
    CaptionBox* caption = cells_[size_t(cell)].txtBq;
    if (caption->isVisible())
        caption->hide();
    else
        showCaption(cell);
}

const ImageBox* Page::picture(int cell) const {
    return cell >= 0 && cell < int(cells_.size()) ? cells_[size_t(cell)].imgXs : nullptr;
}

void Page::goToFirstPicture() {
    Recordset& album = state_.albumRecordset;
    attempt([&] {
        album.MoveFirst();
        for (int i = 0; i < state_.firstPictureIndex && !album.Eof(); ++i) album.MoveNext();
    });
}

/// Draws the page of thumbnails anew.
void Page::xstp() {
    const Hourglass hourglass(window_, Qt::BusyCursor);
    const int cells = state_.picturesPerPage;
    strip_.showProgress(cells > 1, false);
    if (screen_.isCovering()) screen_.img0->repaint();

    const CellGrid grid = cellGrid(state_.pageAreaWidth, cells);
    const int focused = focusedCell();
    // A control that is hidden passes its focus on, to a box that the keys would then write into.
    if (focused >= 0) pic1->parentWidget()->setFocus();
    setCellCount(cells);
    scroll_->reset();
    goToFirstPicture();
    table_ = mekTp::currentTable;
    QSize pixels = cellShape;
    for (int i = 0; i < cells; ++i) {
        drawCell(i, grid, pixels);
        attempt([&] { state_.albumRecordset.MoveNext(); });
        if (cells == 1) continue;
        strip_.prg1->setValue(i * 100 / (cells - 1));
        strip_.prg1->repaint();
    }

    strip_.showProgress(false, !state_.smallScreen);
    screen_.uncover();
    focusCell(std::min(focused, cells - 1));
    // The place that the line tells is that of the page's last cell.
    attempt([&] {
        const bool empty = state_.albumRecordset.RecordCount() == 0;
        status_.setPanel(3, state_.pageStatusText + placeInSelection(empty ? 0 : state_.firstPictureIndex + cells));
    });
}

void Page::drawCell(int index, const CellGrid& grid, QSize& pixels) {
    const Cell& cell = cells_[size_t(index)];
    Recordset& album = state_.albumRecordset;
    // Without a size to read the cell takes that of the cell before it.
    attempt([&] {
        const auto told = sizeFromSpec(album.Fields(u"规格"_s).Value().textOr());
        if (told && !told->isEmpty()) pixels = *told;
    });
    const bool originalSize = state_.picturesPerPage == 1 && strip_.tlb1->image(u"yd"_s) == u"cm";
    const QSize fitted = fittedSize(pixels, grid.cellWidth, grid.cellHeight, originalSize);
    placeAt(cell.imgXs, pictureBox(grid, index, fitted));
    placeAt(cell.shpXs, frameBox(grid, index, fitted));

    cell.imgXs->setTag({});
    bool hasRecord = false;
    attempt([&] { hasRecord = !album.Eof(); });
    // The first cell is never made anew: a record without a picture leaves there what it shows.
    if (index > 0 || !hasRecord) cell.imgXs->setPicture({});
    attempt([&] {
        if (!hasRecord) return;
        attempt([&] { readPictureField(album, u"图片"_s, *cell.imgXs); });
        cell.imgXs->setTag(tagOfRecord(album));
    });
    cell.imgXs->setToolTip(cell.imgXs->tag());
    cell.imgXs->setAccessibleName(cell.imgXs->tag());
    cell.imgXs->setFocusPolicy(cell.imgXs->tag().isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    cell.shpXs->show();
    cell.imgXs->show();
    drawCaption(index, grid);
}

void Page::drawCaption(int index, const CellGrid& grid) {
    const Cell& cell = cells_[size_t(index)];
    const Box box = captionBox(grid, index);
    placeAt(cell.txtBq, box);
    QFont font = cell.txtBq->font();
    font.setPixelSize(box.height > oneLine ? smallText : usualText);  // two lines, or one
    cell.txtBq->setFont(font);
    cell.txtBq->setText(cell.imgXs->tag());
    const bool wanted =
        strip_.chkBq[0]->isChecked() && columnsFromText(strip_.txtLs->text()) <= mostColumnsWithCaptions;
    cell.txtBq->setVisible(wanted);
    if (wanted) cell.imgXs->setToolTip(u"鼠标单击可重新显示标签"_s);
}

void Page::showCaption(int index) {
    if (!strip_.chkBq[0]->isChecked() || index >= int(cells_.size())) return;
    const Cell& cell = cells_[size_t(index)];
    cell.txtBq->setText(cell.imgXs->tag());
    cell.txtBq->show();
}
