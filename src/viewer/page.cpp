#include "viewer/page.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/accessibility.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"
#include "viewer/ground.h"
#include "viewer/tags.h"

using namespace Qt::Literals::StringLiterals;

namespace {
// The shape of a cell before any picture has given another one.
constexpr QSize cellShape(4, 3);
constexpr int oneLine = 300;
// Text heights of captions in pixels.
constexpr int usualText = 12;
constexpr int smallText = 11;

// Takes a control out of the window at once. It is deleted later: a handler may still be using it.
void drop(QWidget* control) {
    control->hide();
    control->setParent(nullptr);
    control->deleteLater();
}

void placeAt(QWidget* control, const Box& box) {
    place(control, box.left, box.top, box.width, box.height);
}
}  // namespace

Page::Page(Selection& selection, QWidget* form) : selection_(selection), pictures_([this] { return upcoming(); }) {
    pic1 = make<Surface>(form, u"pic1"_s);
    pic1->lower();  // under the screen panel
    connect(pic1, &Surface::mousePressed, this, &Page::mousePressed);
    connect(pic1, &Surface::mouseMoved, this, &Page::mouseMoved);
    setCellCount(1);
}

void Page::layOut(const Box& area, bool isLowWindow) {
    placeAt(pic1, area);
    area_ = {area.width, area.height};
    isLowWindow_ = isLowWindow;
}

void Page::setColumns(int columns) {
    picturesPerPage_ = columns * columns;
    Q_EMIT columnsChanged();
}

void Page::setGround(const QColor& ground) {
    ::setGround(pic1, ground);
    for (const Cell& cell : cells_) cell.shpXs->setBorderColor(theme::worn().firmEdge);
    for (const Cell& cell : spare_) cell.shpXs->setBorderColor(theme::worn().firmEdge);
}

void Page::leave() {
    pictures_.leave();
    isShown_ = false;
    firstIndex_ = 0;
}

Page::Cell Page::makeCell() {
    const Cell cell{new ShapeBox(pic1), new CellBox(pic1), new Caption(pic1), {}};
    cell.shpXs->setBorderColor(theme::worn().firmEdge);
    cell.shpXs->setBorderWidth(2);
    cell.txtBq->document()->setDocumentMargin(0);
    for (QWidget* control : std::initializer_list<QWidget*>{cell.shpXs, cell.imgXs, cell.txtBq}) {
        control->hide();
        control->ensurePolished();
    }
    return cell;
}

void Page::addCell() {
    if (spare_.empty()) spare_.push_back(makeCell());
    const Cell cell = spare_.front();
    spare_.pop_front();
    const int index = int(cells_.size());
    cell.shpXs->setObjectName(element(u"shpXs"_s, index));
    cell.imgXs->setObjectName(element(u"imgXs"_s, index));
    cell.txtBq->setObjectName(element(u"txtBq"_s, index));
    connect(cell.imgXs, &ImageBox::clicked, this, &Page::cellClicked);
    connect(cell.imgXs, &ImageBox::doubleClicked, this, [this, index] { Q_EMIT cellDoubleClicked(index); });
    connect(cell.imgXs, &ImageBox::mouseReleased, this, guarded(window(), [this, index] { showCaption(index); }));
    beOperable(cell.imgXs, QAccessible::Button, [this, index] { Q_EMIT cellDoubleClicked(index); });
    connect(cell.txtBq, &Caption::clicked, cell.txtBq, &QWidget::hide);
    if (index > 0) QWidget::setTabOrder(cells_.back().imgXs, cell.imgXs);
    cells_.push_back(cell);
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
    while (int(cells_.size()) < count) addCell();
    // Captions are above all pictures: in two columns they reach over the edge of their own cell.
    for (const Cell& cell : cells_) cell.txtBq->raise();
}

int Page::focusedCell() const {
    for (size_t i = 0; i < cells_.size(); ++i)
        if (cells_[i].imgXs->hasFocus()) return int(i);
    return -1;
}

void Page::focusCell(int cell) {
    if (!dataIn(cell).isEmpty()) cells_[size_t(cell)].imgXs->setFocus(Qt::TabFocusReason);
}

void Page::toggleCaption(int cell) {
    if (!has(cell)) return;
    Caption* caption = cells_[size_t(cell)].txtBq;
    if (caption->isVisible())
        caption->hide();
    else
        showCaption(cell);
}

QString Page::line() const {
    return selection_.line() + placeInSelection(selection_.count() == 0 ? 0 : firstIndex_ + picturesPerPage_);
}

void Page::goToFirstPicture() {
    Recordset& album = selection_.records();
    firstRow_ = 0;
    attempt([&] {
        const int rows = album.rowCount();
        if (rows == 0) return;
        firstRow_ = std::clamp(firstIndex_, 0, rows - 1);
        album.moveToRow(firstRow_);
        if (firstIndex_ >= rows) album.MoveNext();
    });
}

void Page::xstp() {
    draw(&CellPictures::settle);
}

void Page::followSize() {
    draw(&CellPictures::settleLater);
}

void Page::draw(void (CellPictures::*bringPictures)()) {
    const Hourglass hourglass(window(), Qt::BusyCursor);
    const int cells = picturesPerPage_;
    Q_EMIT drawing(cells > 1);

    const int focused = focusedCell();
    // A hidden control passes its focus on, perhaps to a box that keys would then write into.
    if (focused >= 0) pic1->parentWidget()->setFocus();
    setCellCount(cells);
    goToFirstPicture();
    table_ = mekTp::currentTable;
    drawCells();
    (pictures_.*bringPictures)();

    isShown_ = selection_.isOpen();
    Q_EMIT drawn();
    focusCell(std::min(focused, cells - 1));
}

void Page::drawCells() {
    keepRoom();
    pictures_.begin();
    QSize pixels = cellShape;
    for (int i = 0; i < picturesPerPage_; ++i) {
        drawCell(i, pixels);
        attempt([&] { selection_.records().MoveNext(); });
        if (picturesPerPage_ > 1) Q_EMIT progressed(i * 100 / (picturesPerPage_ - 1));
    }
}

/// The size in twips of a picture on the page. Without a size to read it takes that of the picture before it.
QSize Page::fitted(const QString& sizeText, QSize& pixels) const {
    const auto size = sizeFromSpec(sizeText);
    if (size && !size->isEmpty()) pixels = *size;
    return fittedSize(pixels, grid().room(), picturesPerPage_ == 1 && originalSize_);
}

void Page::drawCell(int index, QSize& pixels) {
    Cell& cell = cells_[size_t(index)];
    Recordset& album = selection_.records();
    QString sizeText;
    attempt([&] { sizeText = album.Fields(u"规格"_s).Value().textOr(); });
    const QSize size = fitted(sizeText, pixels);
    placeAt(cell.imgXs, pictureBox(grid(), index, size));
    placeAt(cell.shpXs, frameBox(grid(), index, size));

    cell.imgXs->setTag({});
    cell.number.clear();
    StoredValue picture;
    bool isRead = false;
    attempt([&] {
        if (album.Eof()) return;
        isRead = attempt([&] { picture = album.storedAt(album.row(), u"图片"_s); });
        cell.imgXs->setTag(tagOfRecord(album, album.row()));
        cell.number = album.Fields(u"序号"_s).Value().textOr();
    });
    // The first cell is never made anew: for a record without a picture it goes on showing what it has.
    pictures_.put(cell.imgXs, picture, index == 0 && isRead);
    cell.imgXs->setToolTip(cell.imgXs->tag());
    cell.imgXs->setFocusPolicy(cell.imgXs->tag().isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    cell.shpXs->show();
    cell.imgXs->show();
    drawCaption(index);
    // Last: a new tool tip becomes the name of a control too, and with captions it is only a hint.
    cell.imgXs->setAccessibleName(cell.imgXs->tag());
}

/// The page that a draw would show, and those to which the paging keys lead from there.
CellPictures::Requests Page::upcoming() {
    keepRoom();
    while (int(cells_.size() + spare_.size()) < picturesPerPage_) spare_.push_back(makeCell());
    CellPictures::Requests requests;
    const int first = std::max(0, firstIndex_);
    const int next = first + picturesPerPage_;
    for (const int index : {first, next, first - picturesPerPage_}) addPage(index, requests);
    // A slide show begins anew there.
    if (next >= selection_.records().rowCount()) addPage(0, requests);
    return requests;
}

void Page::keepRoom() {
    const int columns = grid().columns;
    const QRect whole = rectFromTwips(0, 0, columns * grid().cellWidth, columns * grid().cellHeight);
    const QSize area = ImageBox::targetSize(pic1, whole.size());
    pictures_.setPageArea(qint64(area.width()) * area.height());
}

void Page::addPage(int firstIndex, CellPictures::Requests& requests) const {
    const int last = std::min(selection_.records().rowCount(), firstIndex + picturesPerPage_);
    QSize pixels = cellShape;
    for (int row = std::max(0, firstIndex); row < last; ++row)
        attempt([&] {
            if (const auto request = requestOf(row, row - firstIndex, pixels)) requests.push_back(*request);
        });
}

std::optional<PictureRequest> Page::requestOf(int row, int cell, QSize& pixels) const {
    const Recordset& album = selection_.records();
    const Box box = pictureBox(grid(), cell, fitted(album.valueAt(row, u"规格"_s).textOr(), pixels));
    const StoredValue picture = album.storedAt(row, u"图片"_s);
    if (picture.isNull()) return {};
    const QRect place = rectFromTwips(box.left, box.top, box.width, box.height);
    return PictureRequest{picture, ImageBox::targetSize(pic1, place.size())};
}

void Page::drawCaption(int index) {
    const Cell& cell = cells_[size_t(index)];
    const Box box = captionBox(grid(), index);
    placeAt(cell.txtBq, box);
    QFont font = cell.txtBq->font();
    font.setPixelSize(box.height > oneLine ? smallText : usualText);  // two lines, or one
    cell.txtBq->setFont(font);
    cell.txtBq->setText(cell.imgXs->tag());
    cell.txtBq->setVisible(hasCaptions());
    if (hasCaptions()) cell.imgXs->setToolTip(u"鼠标单击可重新显示标签"_s);
}

void Page::showCaption(int index) {
    if (!captions_ || !has(index)) return;
    const Cell& cell = cells_[size_t(index)];
    cell.txtBq->setText(cell.imgXs->tag());
    cell.txtBq->show();
}
