#include "viewer/button_panel.h"

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int firstButtons = 11;
constexpr int buttonLeft = 158;
constexpr int cornerSide = 255;
constexpr int upperCornerLeft = 195;
constexpr int lowerCornerLeft = 1500;
constexpr int frameReach = 20;  // of the roll-over frame and the cursor beyond their button

QCursor handCursor() {
    const QPixmap hand(joinedPath(programFolder(), u"s1.ico"_s));
    constexpr QPoint fingerTip(10, 2);
    return hand.isNull() ? QCursor(Qt::PointingHandCursor) : QCursor(hand, fingerTip.x(), fingerTip.y());
}
}  // namespace

ButtonPanel::ButtonPanel(QWidget* form) : form_(form), hand_(handCursor()) {
    shpAb = make<ShapeBox>(form, u"shpAb"_s);
    shpA1 = make<ShapeBox>(form, u"shpA1"_s);
    for (int i = 0; i < firstButtons; ++i) addButton(i);
    shpAn = make<ShapeBox>(form, u"shpAn"_s);
    shpAn->setBorderWidth(2);
    shpAn->setCornerRadius(3);
    shpAn->hide();
    addCorners();
    linX = make<LineBox>(form, u"linX"_s);
    linS = make<LineBox>(form, u"linS"_s);
    linY = make<LineBox>(form, u"linY"_s);
    linZ = make<LineBox>(form, u"linZ"_s);
    hideRollOver();
}

void ButtonPanel::wearColours() {
    shpAn->setBorderColor(theme::worn().accent);
    antq();
}

void ButtonPanel::addCorners() {
    imgSy = make<ImageBox>(form_, u"imgSy"_s);
    imgSy->beButton();
    imgSy->setFocusPolicy(Qt::NoFocus);
    imgXy = make<ImageBox>(form_, u"imgXy"_s);
    imgXy->setToolTip(u"下一页"_s);
    imgXy->beButton();
    attempt([&] { imgXy->setPicture(LoadPicture(u":/pictures/xy.jpg"_s)); });
    place(imgSy, upperCornerLeft, 660, cornerSide, cornerSide);
    place(imgXy, lowerCornerLeft, 660, cornerSide, cornerSide);
    imgXy->hide();
    listenTo(imgSy, upperCorner);
    listenTo(imgXy, lowerCorner);
    connect(imgSy, &ImageBox::clicked, this, guarded(form_->window(), [this] { pageUp(); }));
    connect(imgXy, &ImageBox::clicked, this, guarded(form_->window(), [this] { pageDown(); }));
}

ButtonPanel::Button& ButtonPanel::button(int index) {
    while (int(buttons_.size()) <= index) addButton(int(buttons_.size()));
    return buttons_[size_t(index)];
}

void ButtonPanel::addButton(int index) {
    auto* image = make<ImageBox>(form_, element(u"imgAn"_s, index));
    place(image, buttonLeft, 0, buttonWidth, buttonHeight);
    image->hide();
    if (index >= firstButtons) image->stackUnder(shpAn);
    image->beButton();
    if (index > 0) QWidget::setTabOrder(buttons_.back().imgAn, image);
    listenTo(image, index);
    connect(image, &ImageBox::clicked, this, [this, index] { choose(index); });
    buttons_.push_back({image, {}});
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
    stripHeight_ = layout.buttonStripHeight;
    place(shpA1, layout.innerFrame.left, layout.innerFrame.top, layout.innerFrame.width, layout.innerFrame.height);
}

void ButtonPanel::anxs() {
    Recordset buttons = pictureButtonsOfAlbum(mekTp::catalogue, mekTp::currentTable);
    if (buttons.rowCount() == 0) return;
    const int top = topOf(shpAb);
    place(imgSy, upperCornerLeft, top + 150);
    // A hidden control passes its focus on, perhaps to a box that keys would then write into.
    auto* focus = qobject_cast<ImageBox*>(form_->focusWidget());
    if (focus != nullptr && focus->parentWidget() == form_) form_->setFocus();
    for (const Button& each : buttons_) each.imgAn->hide();
    hideRollOver();

    if (first_ > buttons.rowCount()) rewind();
    buttons.moveToRow(first_ - 1);
    column_ = buttonColumn(stripHeight_);
    fillSlots(buttons);
    if (focus != nullptr && focus->parentWidget() == form_ && focus->isVisible()) focus->setFocus(Qt::TabFocusReason);
    shpAn->hide();
    place(imgXy, lowerCornerLeft, top + heightOf(shpAb) - 390);
}

void ButtonPanel::fillSlots(Recordset& buttons) {
    const int top = topOf(shpAb);
    for (int i = 0; i < column_.slots; ++i) {
        auto& [image, name] = button(i);
        name = buttons.Fields(u"名称"_s).Value().textOr();
        place(image, buttonLeft, top + column_.topOf(i), buttonWidth, buttonHeight);
        readPictureField(buttons, u"图片"_s, *image);
        image->setToolTip(name);
        image->show();
        buttons.MoveNext();
        imgXy->setVisible(!buttons.Eof());
        if (buttons.Eof()) return;
    }
}

void ButtonPanel::rewind() {
    first_ = 1;
    loadCorner();
    imgSy->show();
}

// On the first page of buttons the upper corner does nothing.
void ButtonPanel::loadCorner() {
    imgSy->setToolTip(isFirstPage() ? QString() : u" 上一页"_s);
    if (isFirstPage() && imgSy->hasFocus()) form_->setFocus();
    imgSy->setFocusPolicy(isFirstPage() ? Qt::NoFocus : Qt::TabFocus);
    Recordset pictures = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tctb WHERE 文件名 = "_s +
                                                        quoted(isFirstPage() ? u"ks"_s : u"sy"_s));
    attempt([&] { readPictureField(pictures, u"图片"_s, *imgSy); });
}

void ButtonPanel::pageDown() {
    first_ += column_.slots;
    anxs();
    loadCorner();
}

void ButtonPanel::pageUp() {
    if (column_.slots > 0) {
        first_ = std::max(1, first_ - column_.slots);
        anxs();
        loadCorner();
    }
    imgXy->show();
}

void ButtonPanel::putCursorOn(int index) {
    const ImageBox* image = button(index).imgAn;
    place(shpAn, leftOf(image) - frameReach, topOf(image) - 10, buttonWidth + 2 * frameReach, buttonHeight + 20);
    shpAn->show();
}

void ButtonPanel::choose(int index) {
    const auto [image, name] = button(index);  // more buttons may come meanwhile
    const Hourglass hourglass(image);
    Q_EMIT chosen(index, name);
}

// Buttons from number 5 on behave like the corners.
void ButtonPanel::bkyd(int index) {
    const bool isButton = index < upperCorner;
    ImageBox* target = isButton ? buttons_[size_t(index)].imgAn : index == upperCorner ? imgSy : imgXy;
    const bool nothingBefore = index == upperCorner && isFirstPage();
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

void ButtonPanel::anax() {
    for (LineBox* line : {linS, linZ}) line->setColor(theme::worn().shadow);
    for (LineBox* line : {linX, linY}) line->setColor(theme::worn().lit);
}

void ButtonPanel::antq() {
    for (LineBox* line : {linS, linZ}) line->setColor(theme::worn().lit);
    for (LineBox* line : {linX, linY}) line->setColor(theme::worn().shadow);
}
