#include "editor/button_picture.h"

#include "catalogue/mektp.h"
#include "editor/pixels/painting.h"
#include "editor/picture_files.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int panelWidth = 3030;
constexpr int thumbnailLeft = 580, thumbnailTop = 630;
constexpr int thumbnailWidth = 1500, thumbnailHeight = 1125;
constexpr int showTop = 810, storeTop = 1810;
constexpr int lineHeight = 240;
const QRect gridPlace(360, 120, 2500, 1700);

QLabel* makeLabel(QWidget* panel, int index) {
    auto* label = make<QLabel>(panel, element(u"lblAs"_s, index));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QRadioButton* makeOption(QWidget* frame, int index, const QString& caption, int left, int top) {
    auto* option = make<QRadioButton>(frame, element(u"optAn"_s, index));
    option->setText(caption);
    place(option, left, top, 1290, 270);
    return option;
}

QRect pixelRect(int left, int top, int width, int height) {
    return {pixelsFromTwips(left), pixelsFromTwips(top), pixelsFromTwips(width), pixelsFromTwips(height)};
}

}  // namespace

ButtonPicture::ButtonPicture(EditorState& state, Commands& commands, EditorView& view, UndoHistory& history,
                             AlbumChooser& chooser, QWidget* form)
    : QObject(form),
      state_(state),
      commands_(commands),
      view_(view),
      history_(history),
      chooser_(chooser),
      form_(form) {
    rows_ = make<DataControl>(form, u"datAn"_s);
    rows_->hide();
    rows_->useDatabase(mekTp::catalogue);
    rows_->setDatabaseName(mekTp::cataloguePath());
    rows_->setRecordSource(u"SELECT * FROM tcan ORDER BY [序号]"_s);
    makeControls();
    for (int i = 0; i < int(optAn_.size()); ++i)
        connect(optAn_[size_t(i)], &QRadioButton::clicked, this, guarded(form_, [this, i] { optAnClick(i); }));
    connect(cmdCk_, &QPushButton::clicked, this, guarded(form_, [this] { cmdCkClick(); }));
    connect(cmdAg_, &QPushButton::clicked, this, guarded(form_, [this] { cmdAgClick(); }));
    connect(chooser_.msgBm, &Grid::rowSelected, this, guarded(form_, [this] {
                if (chooser_.msgBm->parent() == view_.picAn) rowSelected();
            }));
    view_.picAn->hide();
}

void ButtonPicture::makeControls() {
    Surface* picAn = view_.picAn;
    lblAn_ = make<QLabel>(picAn, u"lblAn"_s);
    lblAn_->setText(u"按钮图片设置"_s);
    QFont bold = lblAn_->font();
    bold.setBold(true);
    lblAn_->setFont(bold);
    place(lblAn_, 150, 45, 1800, 255);

    fraCj_ = make<QGroupBox>(picAn, u"fraCj"_s);
    fraCj_->setTitle(u"裁剪方式"_s);
    place(fraCj_, 105, 345, 1560, 855);
    optAn_[0] = makeOption(fraCj_, 0, u"固定比例"_s, 150, 240);
    optAn_[1] = makeOption(fraCj_, 1, u"固定尺寸"_s, 150, 525);
    fraWz_ = make<QGroupBox>(picAn, u"fraWz"_s);
    fraWz_->setTitle(u"保存位置"_s);
    optAn_[2] = makeOption(fraWz_, 2, u"存入图册"_s, 120, 240);
    optAn_[3] = makeOption(fraWz_, 3, u"存为文件"_s, 1440, 240);
    groupOptions(std::span(optAn_).first(2));
    groupOptions(std::span(optAn_).last(2));

    for (int i = 0; i < int(lblAs_.size()); ++i) lblAs_[size_t(i)] = makeLabel(picAn, i);
    place(lblAs_[1], 150, 1290 + lineHeight, 2730, lineHeight);
    cmdCk_ = make<QPushButton>(picAn, u"cmdCk"_s);
    cmdAg_ = make<QPushButton>(picAn, u"cmdAg"_s);
    cmdAg_->setIcon(QIcon(u":/icons/fh.svg"_s));
    cmdAg_->setToolTip(u"离开按钮图片设置，并撤消图片的最后一步（没有做过处理的图片就关闭）"_s);
}

// The grid lies over the upper half of the panel; what it covers steps aside.
void ButtonPicture::arrange() {
    const bool lists = chooser_.msgBm->parent() == view_.picAn && chooser_.msgBm->isVisibleTo(view_.picAn);
    for (QWidget* covered : std::initializer_list<QWidget*>{lblAn_, fraCj_, lblAs_[0]}) covered->setVisible(!lists);
    // With the mouse released the first text tells both.
    const bool twoLines = lblAs_[0]->text().contains(u'\n');
    lblAs_[1]->setVisible(!lists && !twoLines);
    place(lblAs_[0], 150, 1290, 2730, twoLines ? 2 * lineHeight : lineHeight);
    place(cmdCk_, lists ? 360 : 1800, lists ? storeTop : showTop, 1095, 360);
    place(cmdAg_, 1800, lists ? storeTop : showTop - 420, 1095, 360);
    const bool keeps = fraWz_->isVisibleTo(view_.picAn);
    const int frameTop = lists ? 2235 : 1830;
    place(fraWz_, 105, frameTop, 2820, 585);
    const int promptTop = keeps ? frameTop + 645 : 1830;
    place(lblAs_[2], 105, promptTop, 2820, lineHeight);
    const Surface* picAn = view_.picAn;
    place(view_.picAn, leftOf(picAn), topOf(picAn), panelWidth, promptTop + lineHeight + 120);
}

void ButtonPicture::prompt(const QString& text) {
    lblAs_[2]->setText(text);
    arrange();
}

void ButtonPicture::mnuAtClick() {
    view_.growShortWindow();
    if (!state_.isOpen) {
        say(form_, u"请先选择要做按钮的图片！"_s);
        return;
    }
    state_.editState = u"a1"_s;
    view_.tscz(u"a1"_s);
    lblAs_[0]->clear();
    lblAs_[1]->clear();
    fraWz_->hide();
    cmdCk_->setText(u"显示"_s);
    cmdCk_->setEnabled(false);
    for (QRadioButton* option : optAn_) clearOption(option);
    ratioChosen_ = false;
    chooser_.msgBm->setParent(view_.picAn);
    chooser_.msgBm->hide();
    place(view_.picAn, view_.windowWidth() - 3120, 370);
    prompt(u"      请先选择裁剪方式"_s);
    view_.picAn->show();
    view_.picAn->raise();
    commands_.szan(false);
}

// ---------------------------------------------------------------------------------------------------- the selection

SelectionShape ButtonPicture::shape() const {
    if (optAn_[0]->isChecked()) return SelectionShape::ratio;
    return optAn_[1]->isChecked() ? SelectionShape::fixed : SelectionShape::free;
}

void ButtonPicture::tellSize(QSize size) {
    if (!shapeIsChosen()) return;
    lblAs_[0]->setText(selectedSizeText(shape(), size));
    lblAs_[1]->setText(zoomRatioText(shape(), size));
    arrange();
}

void ButtonPicture::selectionMade(QSize size) {
    if (shapeIsChosen()) lblAs_[0]->setText(selectedSizeText(shape(), size) + u'\n' + zoomRatioText(shape(), size));
    if (lblAs_[0]->text().startsWith(u'选')) {
        cmdCk_->setEnabled(true);
        state_.editState = u"a2"_s;
        view_.tscz(u"a2"_s);
        prompt(u"  按“显示”查看裁剪后图片"_s);
    }
}

bool ButtonPicture::askFor(int option) {
    return ask(form_, u"要将选择的“按钮用图片”"_s + optAn_[size_t(option)]->text() +
                          u"吗？\n\n如果“是”，请按“确定”；否则按“取消”。"_s);
}

void ButtonPicture::optAnClick(int index) {
    if (index < 2) {
        chooseShape(index);
        return;
    }
    if (index == 2)
        chooseRow();
    else
        saveToFile();
    commands_.szan(true);
    commands_.mnuAt->setEnabled(true);
    commands_.mnuCl->setEnabled(true);
}

void ButtonPicture::chooseShape(int index) {
    if (index == 1 && !askFor(1)) {
        clearOption(optAn_[1]);
        if (ratioChosen_) optAn_[0]->setChecked(true);
        return;
    }
    ratioChosen_ = index == 0;
    state_.editState = u"a2"_s;
    const double ratio = double(heightOf(view_.picYu)) / widthOf(view_.picYu);
    if (0.74 < ratio && ratio < 0.76 &&
        ask(form_, u"选择的“按钮用图片”尺寸不必裁剪可直接使用。\n\n如果直接使用，按“确定”；否则按“取消”。"_s)) {
        prompt(u"     请直接选择安装位置"_s);
        state_.selLeft = state_.selTop = 0;
        state_.selWidth = widthOf(view_.picYu);
        state_.selHeight = heightOf(view_.picYu);
        cmdCkClick();
        return;
    }
    prompt(u" 请在图片上进行裁剪操作"_s);
}

// ----------------------------------------------------------------------------------------- thumbnail and its places

void ButtonPicture::cmdCkClick() {
    if (cmdCk_->text() == u"显示")
        showThumbnail();
    else
        storeInRow();
}

// The thumbnail is not kept on the scratch surface: saving in place goes on meaning the photograph.
void ButtonPicture::showThumbnail() {
    fraWz_->show();
    if (widthOf(view_.picYu) <= thumbnailWidth && heightOf(view_.picYu) <= thumbnailHeight) {
        prompt(u"     请直接选择安装位置"_s);
        return;
    }
    WorkSurface* picYu = view_.picYu;
    const QRect source =
        shiftedIn(pixelRect(state_.selLeft, state_.selTop, state_.selWidth, state_.selHeight), picYu->picture().size());
    const QSize target(pixelsFromTwips(thumbnailWidth), pixelsFromTwips(thumbnailHeight));
    if (source.isEmpty()) {
        fraWz_->hide();
        prompt(u" 请在图片上进行裁剪操作"_s);
        return;
    }
    const QImage thumbnail = painted(picYu->picture(), source, target, Mirror::none, picYu->background());
    view_.hsc1->hide();
    view_.vsc1->hide();
    place(view_.picGd, thumbnailLeft, thumbnailTop, thumbnailWidth, thumbnailHeight);
    view_.showThumbnail(thumbnail);
    place(picYu, 0, 0, thumbnailWidth, thumbnailHeight);
    picYu->show();
    // What is done next is done to the thumbnail.
    state_.picLeft = state_.picTop = 0;
    state_.picWidth = thumbnailWidth;
    state_.picHeight = thumbnailHeight;
    view_.shpYu->hide();
    view_.txtCc->hide();
    place(view_.shpBk, 10, 10, 1480, 1105);
    state_.editState = u"a3"_s;
    view_.tscz(u"a3"_s);
    prompt(u"    请在上边选择保存位置"_s);
}

void ButtonPicture::chooseRow() {
    state_.editState = u"a4"_s;
    Grid* msgBm = chooser_.msgBm;
    msgBm->setParent(view_.picAn);
    msgBm->bind(rows_);
    msgBm->setFormatString(u"序号|编号|名  称|图    册"_s);
    place(msgBm, gridPlace.left(), gridPlace.top(), gridPlace.width(), gridPlace.height());
    msgBm->setEnabled(true);
    msgBm->show();
    msgBm->raise();
    rows_->Refresh();
    prompt(u"  请在表中选择要换图片的按钮"_s);
}

void ButtonPicture::rowSelected() {
    const Recordset& row = rows_->Recordset();
    cmdCk_->setText(u"确定"_s);
    cmdCk_->setEnabled(true);
    prompt(u"选中:序号="_s + row.Fields(u"序号"_s).Value().textOr() + u"("_s + row.Fields(u"名称"_s).Value().textOr() +
           u")"_s);
}

void ButtonPicture::storeInRow() {
    if (!askFor(2)) return;
    Recordset& row = rows_->Recordset();
    bcsk(view_.picYu->Image(), row, state_);
    say(form_, u"按钮图片已保存完毕！(序号＝"_s + row.Fields(u"序号"_s).Value().textOr() + u")"_s, BoxIcon::exclamation,
        u"保存按钮图片"_s);
}

void ButtonPicture::saveToFile() {
    const QString name = askPictureFile(form_, u"保存按钮图片文件"_s);
    if (name.isEmpty()) {
        clearOption(optAn_[3]);
        return;
    }
    writePictureFile(view_.picYu->Image(), name);
    view_.picAn->hide();
    say(form_, u"选择的“按钮用图片”已"_s + optAn_[3]->text() + u"["_s + name + u"]。"_s);
}

void ButtonPicture::cmdAgClick() {
    view_.picAn->hide();
    state_.editState = u"a3"_s;
    history_.mnuCxClick();
    if (state_.isOpen) commands_.szan(true);
    view_.shpYu->hide();
    view_.txtCc->hide();
}
