#include "editor/button_picture.h"

#include "catalogue/bin.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "editor/document/picture_files.h"
#include "editor/pixels/painting.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int panelWidth = 3030;
constexpr QSize thumbnailPixels(100, 75);
constexpr int showTop = 810, storeTop = 1810;
constexpr int lineHeight = 240, promptWidth = 2820;
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

}  // namespace

ButtonPicture::ButtonPicture(const Workplace& at, Grid* msgBm) : Chapter(at), msgBm_(msgBm) {
    picAn_ = new FloatingPanel(u"picAn"_s, view_.viewport(), form_);
    rows_ = make<DataControl>(form_, u"datAn"_s);
    rows_->hide();
    rows_->useDatabase(mekTp::catalogue);
    rows_->setDatabaseName(mekTp::cataloguePath());
    rows_->setRecordSource(u"SELECT * FROM tcan ORDER BY [序号]"_s);
    makeControls();
    connectControls();
    commands_.onCommand(u"at"_s, [this] { mnuAtClick(); });
}

void ButtonPicture::makeControls() {
    lblAn_ = make<QLabel>(picAn_, u"lblAn"_s);
    lblAn_->setText(u"按钮图片设置"_s);
    QFont bold = lblAn_->font();
    bold.setBold(true);
    lblAn_->setFont(bold);
    place(lblAn_, 150, 45, 1800, 255);
    makeOptions();
    for (int i = 0; i < int(lblAs_.size()); ++i) lblAs_[size_t(i)] = makeLabel(picAn_, i);
    place(lblAs_[1], 150, 1290 + lineHeight, 2730, lineHeight);
    cmdCk_ = make<QPushButton>(picAn_, u"cmdCk"_s);
    cmdAg_ = make<QPushButton>(picAn_, u"cmdAg"_s);
    cmdAg_->setIcon(QIcon(u":/icons/fh.svg"_s));
    cmdAg_->setToolTip(u"离开按钮图片设置，并撤消图片的最后一步（没有做过处理的图片就关闭）"_s);
}

void ButtonPicture::makeOptions() {
    fraCj_ = make<QGroupBox>(picAn_, u"fraCj"_s);
    fraCj_->setTitle(u"裁剪方式"_s);
    place(fraCj_, 105, 345, 1560, 855);
    optAn_[0] = makeOption(fraCj_, 0, u"固定比例"_s, 150, 240);
    optAn_[1] = makeOption(fraCj_, 1, u"固定尺寸"_s, 150, 525);
    fraWz_ = make<QGroupBox>(picAn_, u"fraWz"_s);
    fraWz_->setTitle(u"保存位置"_s);
    optAn_[2] = makeOption(fraWz_, 2, u"存入图册"_s, 120, 240);
    optAn_[3] = makeOption(fraWz_, 3, u"存为文件"_s, 1440, 240);
    groupOptions(std::span(optAn_).first(2));
    groupOptions(std::span(optAn_).last(2));
}

void ButtonPicture::connectControls() {
    for (int i = 0; i < int(optAn_.size()); ++i) {
        connect(optAn_[size_t(i)], &QRadioButton::clicked, this, guarded(form_, [this, i] { optAnClick(i); }));
        connect(optAn_[size_t(i)], &QRadioButton::toggled, this, &ButtonPicture::changed);
    }
    connect(picAn_, &FloatingPanel::toggled, this, &ButtonPicture::changed);
    connect(cmdCk_, &QPushButton::clicked, this, guarded(form_, [this] { cmdCkClick(); }));
    connect(cmdAg_, &QPushButton::clicked, this, guarded(form_, [this] { cmdAgClick(); }));
    connect(msgBm_, &Grid::rowSelected, this, guarded(form_, [this] {
                if (msgBm_->parent() == picAn_) rowSelected();
            }));
    connect(&view_.band(), &RubberBand::drawn, this, &ButtonPicture::tellSize);
    connect(&view_.band(), &RubberBand::finished, this, &ButtonPicture::partDrawn);
    // Its controls are worked with while a hint shows.
    connect(&view_.hint(), &HintBox::raised, picAn_, &QWidget::raise);
}

// -------------------------------------------------------------------------------------------------------- the dialog

bool ButtonPicture::listsRows() const {
    return msgBm_->parent() == picAn_ && msgBm_->isVisibleTo(picAn_);
}

// The grid lies over the upper half of the panel; what it covers steps aside.
void ButtonPicture::arrange() {
    const bool lists = listsRows();
    for (QWidget* covered : std::initializer_list<QWidget*>{lblAn_, fraCj_, lblAs_[0]}) covered->setVisible(!lists);
    // With the mouse released the first text tells both.
    const bool twoLines = lblAs_[0]->text().contains(u'\n');
    lblAs_[1]->setVisible(!lists && !twoLines);
    place(lblAs_[0], 150, 1290, 2730, twoLines ? 2 * lineHeight : lineHeight);
    place(cmdCk_, lists ? 360 : 1800, lists ? storeTop : showTop, 1095, 360);
    place(cmdAg_, 1800, lists ? storeTop : showTop - 420, 1095, 360);
    const int frameTop = lists ? 2235 : 1830;
    place(fraWz_, 105, frameTop, promptWidth, 585);
    const int promptTop = fraWz_->isVisibleTo(picAn_) ? frameTop + 645 : 1830;
    place(lblAs_[2], 105, promptTop, promptWidth, lineHeight);
    place(picAn_, leftOf(picAn_), topOf(picAn_), panelWidth, promptTop + lineHeight + 120);
}

/// Says what to do next. A text that is too long for its line is whole in the tool tip.
void ButtonPicture::prompt(const QString& text) {
    QLabel* label = lblAs_[2];
    const QString shown =
        label->fontMetrics().elidedText(text, Qt::ElideRight, pixelsFromTwips(promptWidth), Qt::TextSingleLine);
    label->setText(shown);
    label->setToolTip(shown == text ? QString() : text.toHtmlEscaped());
    arrange();
}

void ButtonPicture::mnuAtClick() {
    view_.growShortWindow();
    if (!document_.isOpen()) {
        say(form_, u"请先选择要做按钮的图片！"_s);
        return;
    }
    document_.setState(EditState::buttonShape);
    view_.hint().tscz(document_.code());
    clear();
    place(picAn_, widthOf(form_->window()) - 3120, 370);
    prompt(u"      请先选择裁剪方式"_s);
    picAn_->show();
    picAn_->raise();
    commands_.szan(false);
}

void ButtonPicture::clear() {
    lblAs_[0]->clear();
    lblAs_[1]->clear();
    fraWz_->hide();
    cmdCk_->setText(u"显示"_s);
    cmdCk_->setEnabled(false);
    for (QRadioButton* option : optAn_) clearOption(option);
    ratioChosen_ = false;
    msgBm_->setParent(picAn_);
    msgBm_->hide();
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
}

void ButtonPicture::cmdAgClick() {
    picAn_->hide();
    document_.setState(EditState::buttonKeep);
    Q_EMIT left();
    if (document_.isOpen()) commands_.szan(true);
    view_.band().hide();
}

// ---------------------------------------------------------------------------------------------------------- the part

/// The picture is worked on for the dialog.
bool ButtonPicture::isActive() const {
    switch (document_.state()) {
        case EditState::buttonShape:
        case EditState::buttonPart:
        case EditState::buttonKeep:
        case EditState::buttonRow:
            return isOpen();
        default:
            return false;
    }
}

std::optional<SelectionShape> ButtonPicture::wantedShape() const {
    if (!isActive()) return {};
    if (optAn_[0]->isChecked()) return SelectionShape::ratio;
    if (optAn_[1]->isChecked()) return SelectionShape::fixed;
    return {};
}

void ButtonPicture::chooseShape(int index) {
    if (index == 1 && !askFor(1)) {
        clearOption(optAn_[1]);
        if (ratioChosen_) optAn_[0]->setChecked(true);
        return;
    }
    ratioChosen_ = index == 0;
    document_.setState(EditState::buttonPart);
    if (!takesWhole()) {
        prompt(u" 请在图片上进行裁剪操作"_s);
        return;
    }
    prompt(u"     请直接选择安装位置"_s);
    document_.select({QPoint(), document_.size()});
    cmdCkClick();
}

/// A picture of the thumbnail's shape needs no part to be drawn, if the person agrees.
bool ButtonPicture::takesWhole() {
    const QSize pixels = document_.shown().size();
    const double ratio = double(pixels.height()) / pixels.width();
    return 0.74 < ratio && ratio < 0.76 &&
           ask(form_, u"选择的“按钮用图片”尺寸不必裁剪可直接使用。\n\n如果直接使用，按“确定”；否则按“取消”。"_s);
}

/// While the part is drawn.
void ButtonPicture::tellSize(QSize size) {
    const auto shape = wantedShape();
    if (!shape) return;
    lblAs_[0]->setText(selectedSizeText(*shape, size));
    lblAs_[1]->setText(zoomRatioText(*shape, size));
    arrange();
}

void ButtonPicture::partDrawn(QSize size) {
    if (!isActive()) return;
    if (const auto shape = wantedShape())
        lblAs_[0]->setText(selectedSizeText(*shape, size) + u'\n' + zoomRatioText(*shape, size));
    if (lblAs_[0]->text().isEmpty()) return;
    cmdCk_->setEnabled(true);
    document_.setState(EditState::buttonPart);
    view_.hint().tscz(document_.code());
    prompt(u"  按“显示”查看裁剪后图片"_s);
}

// ----------------------------------------------------------------------------------------- thumbnail and its places

void ButtonPicture::cmdCkClick() {
    if (cmdCk_->text() == u"显示")
        makeThumbnail();
    else
        storeInRow();
}

// The thumbnail is no operation: saving in place goes on meaning the photograph.
void ButtonPicture::makeThumbnail() {
    const QImage& picture = document_.shown();
    fraWz_->show();
    if (picture.width() <= thumbnailPixels.width() && picture.height() <= thumbnailPixels.height()) {
        prompt(u"     请直接选择安装位置"_s);
        return;
    }
    const QRect source = shiftedIn(inPixels(document_.selection()), picture.size());
    if (source.isEmpty()) {
        fraWz_->hide();
        prompt(u" 请在图片上进行裁剪操作"_s);
        return;
    }
    document_.showThumbnail(painted(picture, source, thumbnailPixels, Mirror::none, pictureBackground));
    document_.setState(EditState::buttonKeep);
    view_.hint().tscz(document_.code());
    prompt(u"    请在上边选择保存位置"_s);
}

void ButtonPicture::chooseRow() {
    document_.setState(EditState::buttonRow);
    msgBm_->setParent(picAn_);
    msgBm_->bind(rows_);
    msgBm_->setFormatString(u"序号|编号|名  称|图    册"_s);
    place(msgBm_, gridPlace.left(), gridPlace.top(), gridPlace.width(), gridPlace.height());
    msgBm_->setEnabled(true);
    msgBm_->show();
    msgBm_->raise();
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

/// A profile may be many times as large as such a small picture.
QImage ButtonPicture::thumbnail() const {
    const QImage& shown = document_.shown();
    return inScreenColours({shown, shown.size(), document_.profile()}).image();
}

void ButtonPicture::storeInRow() {
    if (!askFor(2)) return;
    room_.offer();
    const QByteArray jpeg = encodeJpeg(thumbnail(), jpegQuality);
    Recordset& row = rows_->Recordset();
    row.Edit();
    storePictureBytes(row.Fields(u"图片"_s), jpeg);
    updateIntoBin(mekTp::catalogue, u"tcan"_s, row);
    say(form_, u"按钮图片已保存完毕！(序号＝"_s + row.Fields(u"序号"_s).Value().textOr() + u")"_s, BoxIcon::exclamation,
        u"保存按钮图片"_s);
}

void ButtonPicture::saveToFile() {
    const QString name = askSaveFile(form_, u"保存按钮图片文件"_s, savedKinds);
    if (name.isEmpty()) {
        clearOption(optAn_[3]);
        return;
    }
    writePictureFile(thumbnail(), {}, name);
    picAn_->hide();
    say(form_, u"选择的“按钮用图片”已"_s + optAn_[3]->text() + u"["_s + name + u"]。"_s);
}
