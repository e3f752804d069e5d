#include "viewer/button_panel.h"

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "viewer/filters.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int firstButtons = 11;
constexpr int buttonLeft = 158;
constexpr int cornerSide = 255;
constexpr int upperCornerLeft = 195;
constexpr int lowerCornerLeft = 1500;
constexpr int frameReach = 20;  // how far the roll-over frame stands off its button
const QColor lit(Qt::white);
const QColor shaded(0x80, 0x80, 0x80);
const QColor cursorColour(0x1f, 0x6f, 0x8b);

QCursor handCursor() {
    const QPixmap hand(joinedPath(programFolder(), u"s1.ico"_s));
    constexpr QPoint fingerTip(10, 2);
    return hand.isNull() ? QCursor(Qt::PointingHandCursor) : QCursor(hand, fingerTip.x(), fingerTip.y());
}
}  // namespace

ButtonPanel::ButtonPanel(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, Page& page,
                         FilterControls& filters, QWidget* window, QWidget* form)
    : state_(state),
      status_(status),
      strip_(strip),
      screen_(screen),
      page_(page),
      filters_(filters),
      window_(window),
      form_(form),
      hand_(handCursor()) {
    shpAb = make<ShapeBox>(form, u"shpAb"_s);
    shpA1 = make<ShapeBox>(form, u"shpA1"_s);
    for (int i = 0; i < firstButtons; ++i) button(i);
    shpAn = make<ShapeBox>(form, u"shpAn"_s);
    shpAn->setBorderColor(cursorColour);
    shpAn->setBorderWidth(2);
    shpAn->setCornerRadius(3);
    shpAn->hide();

    imgSy = make<ImageBox>(form, u"imgSy"_s);
    imgSy->beButton();
    imgSy->setFocusPolicy(Qt::NoFocus);
    imgXy = make<ImageBox>(form, u"imgXy"_s);
    imgXy->setToolTip(u"下一页"_s);
    imgXy->beButton();
    attempt([&] { imgXy->setPicture(LoadPicture(u":/pictures/xy.jpg"_s)); });
    place(imgSy, upperCornerLeft, 660, cornerSide, cornerSide);
    place(imgXy, lowerCornerLeft, 660, cornerSide, cornerSide);
    imgXy->hide();
    listenTo(imgSy, upperCorner);
    listenTo(imgXy, lowerCorner);
    connect(imgSy, &ImageBox::clicked, this, guarded(window, [this] { pageUp(); }));
    connect(imgXy, &ImageBox::clicked, this, guarded(window, [this] { pageDown(); }));

    linX = make<LineBox>(form, u"linX"_s);
    linS = make<LineBox>(form, u"linS"_s);
    linY = make<LineBox>(form, u"linY"_s);
    linZ = make<LineBox>(form, u"linZ"_s);
    antq();
    hideRollOver();
}

ImageBox* ButtonPanel::button(int index) {
    while (int(imgAn.size()) <= index) {
        const int next = int(imgAn.size());
        auto* image = make<ImageBox>(form_, element(u"imgAn"_s, next));
        place(image, buttonLeft, 0, buttonWidth, buttonHeight);
        image->hide();
        if (next >= firstButtons) image->stackUnder(shpAn);
        image->beButton();
        if (next > 0) QWidget::setTabOrder(imgAn.back(), image);
        listenTo(image, next);
        connect(image, &ImageBox::clicked, this, guarded(window_, [this, next] { choose(next); }));
        imgAn.push_back(image);
    }
    return imgAn[size_t(index)];
}

void ButtonPanel::listenTo(ImageBox* image, int rollOverIndex) {
    connect(image, &ImageBox::mouseMoved, this, [this, rollOverIndex] { attempt([&] { bkyd(rollOverIndex); }); });
    connect(image, &ImageBox::mousePressed, this, [this] {
        anax();
        Q_EMIT pressed();
    });
    connect(image, &ImageBox::mouseReleased, this, [this] { antq(); });
}

void ButtonPanel::layOut(const WindowLayout& layout) {
    place(shpAb, layout.outerFrame.left, layout.outerFrame.top, layout.outerFrame.width, layout.outerFrame.height);
    place(shpA1, layout.innerFrame.left, layout.innerFrame.top, layout.innerFrame.width, layout.innerFrame.height);
}

/// Shows the open album's buttons in the column.
void ButtonPanel::anxs() {
    Recordset buttons =
        mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE Instr(图册, "_s + quoted(mekTp::currentTable) +
                                       u") > 0 And not IsNull(图片) ORDER BY [序号]"_s);
    const int buttonTotal = visitAll(buttons);
    if (buttonTotal == 0) return;
    const int top = topOf(shpAb);
    place(imgSy, upperCornerLeft, top + 150);
    // A control that is hidden passes its focus on, to a box that the keys would then write into.
    auto* focus = qobject_cast<ImageBox*>(form_->focusWidget());
    if (focus != nullptr && focus->parentWidget() == form_) form_->setFocus();
    for (ImageBox* image : imgAn) image->hide();
    hideRollOver();

    if (state_.buttonPage > buttonTotal) rewind();
    for (int i = 1; i < state_.buttonPage; ++i) buttons.MoveNext();
    column_ = buttonColumn(state_.buttonStripHeight);
    fillSlots(buttons);
    if (focus != nullptr && focus->parentWidget() == form_ && focus->isVisible()) focus->setFocus(Qt::TabFocusReason);
    shpAn->hide();
    place(imgXy, lowerCornerLeft, top + heightOf(shpAb) - 390);
}

void ButtonPanel::fillSlots(Recordset& buttons) {
    const int top = topOf(shpAb);
    for (int i = 0; i < column_.slots; ++i) {
        ImageBox* image = button(i);
        place(image, buttonLeft, top + column_.topOf(i), buttonWidth, buttonHeight);
        readPictureField(buttons, u"图片"_s, *image);
        image->setToolTip(buttons.Fields(u"名称"_s).Value().textOr());
        image->show();
        buttons.MoveNext();
        imgXy->setVisible(!buttons.Eof());
        if (buttons.Eof()) return;
    }
}

void ButtonPanel::rewind() {
    state_.buttonPage = 1;
    loadCorner();
    imgSy->show();
}

// The upper corner is a dead one on the first page of buttons.
void ButtonPanel::loadCorner() {
    const bool nothingBefore = state_.buttonPage == 1;
    imgSy->setToolTip(nothingBefore ? QString() : u" 上一页"_s);
    if (nothingBefore && imgSy->hasFocus()) form_->setFocus();
    imgSy->setFocusPolicy(nothingBefore ? Qt::NoFocus : Qt::TabFocus);
    Recordset pictures = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tctb WHERE 文件名 = "_s +
                                                        quoted(nothingBefore ? u"ks"_s : u"sy"_s));
    attempt([&] { readPictureField(pictures, u"图片"_s, *imgSy); });
}

void ButtonPanel::pageDown() {
    state_.buttonPage += column_.slots;
    anxs();
    loadCorner();
}

void ButtonPanel::pageUp() {
    if (column_.slots > 0) {
        state_.buttonPage = std::max(1, state_.buttonPage - column_.slots);
        anxs();
        loadCorner();
    }
    imgXy->show();
}

void ButtonPanel::putCursorOn(int index) {
    const ImageBox* image = button(index);
    place(shpAn, leftOf(image) - frameReach, topOf(image) - 10, buttonWidth + 2 * frameReach, buttonHeight + 20);
    shpAn->show();
}

/// A click on a selection button: its pictures become the selection and the page.
void ButtonPanel::choose(int index) {
    ImageBox* image = button(index);
    const Hourglass hourglass(image);
    screen_.changeCurtain();
    putCursorOn(index);

    const QString name = image->toolTip();
    const Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 名称 = "_s + quoted(name));
    state_.selectionCode = row.Fields(u"编号"_s).Value().textOr();
    // Opened by itself first: the whole album without a condition is nothing that the filters can select.
    Recordset& album = state_.albumRecordset;
    album = mekTp::catalogue.OpenRecordset(buttonSql(mekTp::currentTable, state_.selectionCode));
    visitAll(album);
    state_.isNarrowed = false;
    filters_.tpsx();
    page_.xstp();

    const int pictures = album.RecordCount();
    status_.setAlbumLine(state_.albumTitle,
                         u"(%1)[%2] 共 %3 张"_s.arg(mekTp::currentTable, name, QString::number(pictures)));
    status_.setPanel(3, state_.pageStatusText + placeInSelection(pictures == 0 ? 0 : 1));
    strip_.txtYh->setText(u"1"_s);
}

/// Roll-over: the frame and the hand follow the mouse. The buttons from number 5 on answer as corners do.
void ButtonPanel::bkyd(int index) {
    const bool isButton = index < upperCorner;
    ImageBox* target = isButton ? imgAn[size_t(index)] : index == upperCorner ? imgSy : imgXy;
    const bool nothingBefore = index == upperCorner && imgSy->toolTip().isEmpty();
    if (nothingBefore)
        target->unsetCursor();
    else
        target->setCursor(hand_);

    const int length = isButton ? buttonHeight + 20 : cornerSide;
    const int width = isButton ? buttonWidth : cornerSide;
    const int left = leftOf(target) - 30;
    const int right = leftOf(target) + width + (isButton ? 20 : 0);
    const int top = topOf(target) - 30;
    const int bottom = topOf(target) + length;
    linS->setEnds(left, top, right, top);
    linX->setEnds(left, bottom, right, bottom);
    linZ->setEnds(left, top, left, bottom);
    linY->setEnds(right, top, right, bottom);
    if (nothingBefore) {
        hideRollOver();
        return;
    }
    for (LineBox* line : rollOver()) {
        line->show();
        line->raise();
    }
}

void ButtonPanel::hideRollOver() {
    for (LineBox* line : rollOver()) line->hide();
}

/// Pressed: the frame looks sunken.
void ButtonPanel::anax() {
    for (LineBox* line : {linS, linZ}) line->setColor(shaded);
    for (LineBox* line : {linX, linY}) line->setColor(lit);
}

/// At rest: the frame looks raised.
void ButtonPanel::antq() {
    for (LineBox* line : {linS, linZ}) line->setColor(lit);
    for (LineBox* line : {linX, linY}) line->setColor(shaded);
}
