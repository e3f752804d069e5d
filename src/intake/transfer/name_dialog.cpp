#include "intake/transfer/name_dialog.h"

#include "catalogue/runs/picture_names.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/columns.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int frameLeft = 5370, frameTop = 4590, frameWidth = 3960, frameHeight = 1260;
constexpr int pictureWidth = 1680, pictureBorder = 60;
constexpr int buttonWidth = 765, buttonHeight = 330;
}  // namespace

NameDialog::NameDialog(const SettingsFrame& frame)
    : frame_(frame),
      fraWm_(make<QGroupBox>(frame.sstFz->page(transferTab), u"fraWm"_s, u"请录入文件名"_s)),
      lblWm_(make<ElidedLabel>(fraWm_, u"lblWm"_s)),
      txtWm_(make<TextBox>(fraWm_, u"txtWm"_s)),
      cmdWm0_(make<QPushButton>(fraWm_, u"cmdWm(0)"_s, u"确 定"_s)),
      cmdWm1_(make<QPushButton>(fraWm_, u"cmdWm(1)"_s, u"取 消"_s)),
      picWm_(make<QLabel>(frame.sstFz->page(transferTab), u"picWm"_s)),
      imgWm_(make<ImageBox>(picWm_, u"imgWm"_s)) {
    frame_.sstFz->putOn(transferTab, fraWm_, frameLeft, frameTop, frameWidth, frameHeight);
    letGrow(fraWm_, beside(transferShare, 1) + movesDown);
    // It stands over other controls: its ground hides them.
    fraWm_->setStyleSheet(u"QGroupBox#fraWm { background: palette(window); margin-top: 0px; }"_s);
    fraWm_->hide();
    makePicture();
    lblWm_->setTextFormat(Qt::PlainText);
    place(lblWm_, 150, 240, frameWidth - 300, 255);
    place(txtWm_, 150, 510, frameWidth - 300, 315);
    letGrow({lblWm_, txtWm_}, widens);
    letGrow({cmdWm0_, cmdWm1_}, movesRight);
    place(cmdWm0_, frameWidth - 150 - 2 * buttonWidth - 60, 855, buttonWidth, buttonHeight);
    place(cmdWm1_, frameWidth - 150 - buttonWidth, 855, buttonWidth, buttonHeight);
    connect(txtWm_, &TextBox::textChanged, this, [this](const QString& text) { cmdWm0_->setEnabled(!text.isEmpty()); });
    connect(txtWm_, &TextBox::lostFocus, this, [this] { completeName(); });
    connect(txtWm_, &TextBox::enterPressed, this, guarded(frame_.form, [this] { confirm(); }));
    connect(cmdWm0_, &QPushButton::clicked, this, guarded(frame_.form, [this] { confirm(); }));
    connect(cmdWm1_, &QPushButton::clicked, this, guarded(frame_.form, [this] { Q_EMIT cancelled(); }));
}

/// It covers a corner of the grid, which is locked while names are asked for.
void NameDialog::makePicture() {
    frame_.sstFz->putOn(transferTab, picWm_, frameLeft - pictureWidth, frameTop, pictureWidth, frameHeight);
    letGrow(picWm_, movesRight * transferShare + movesDown);
    picWm_->setFrameShape(QFrame::StyledPanel);
    picWm_->setAutoFillBackground(true);
    picWm_->setAlignment(Qt::AlignCenter);
    picWm_->setWordWrap(true);
    picWm_->setTextFormat(Qt::PlainText);
    picWm_->hide();
    imgWm_->setAccessibleName(u"请录入文件名的图片"_s);
}

void NameDialog::open(QProgressBar* prg3) {
    prg3->setParent(fraWm_);
    letGrow(prg3, {});
    place(prg3, 150, 870, 1935, 285);
    prg3->setValue(0);
    prg3->show();
    for (QWidget* part : {static_cast<QWidget*>(fraWm_), static_cast<QWidget*>(picWm_)}) {
        part->show();
        part->raise();
    }
}

void NameDialog::ask(const NameQuestion& question) {
    lblWm_->setText(question.text);
    lblWm_->setToolTip(question.text);
    txtWm_->setText(question.defaultName);
    showPicture(question.picture);
    askAgain();
}

void NameDialog::askAgain() {
    cmdWm0_->setEnabled(!txtWm_->text().isEmpty());
    txtWm_->setFocus();
    txtWm_->selectAll();
}

QSize NameDialog::pictureSize() const {
    const int border = 2 * pixelsFromTwips(pictureBorder);
    return ImageBox::targetSize(imgWm_, picWm_->size() - QSize(border, border));
}

void NameDialog::showPicture(const std::optional<Picture>& picture) {
    picWm_->setText(picture ? QString() : u"这条记录没有\n可以显示的图片"_s);
    imgWm_->setVisible(picture.has_value());
    if (!picture) return;
    const int border = pixelsFromTwips(pictureBorder);
    const QRect room = picWm_->rect().adjusted(border, border, -border, -border);
    QRect fitted({}, picture->pixels().scaled(room.size(), Qt::KeepAspectRatio).expandedTo({1, 1}));
    fitted.moveCenter(room.center());
    imgWm_->setGeometry(fitted);
    imgWm_->setPicture(*picture);
}

void NameDialog::close() {
    fraWm_->hide();
    picWm_->hide();
}

bool NameDialog::isOpen() const {
    return fraWm_->isVisibleTo(fraWm_->parentWidget());
}

QString NameDialog::name() const {
    return completedPictureName(txtWm_->text());
}

void NameDialog::completeName() {
    const QString complete = name();
    if (complete != txtWm_->text()) txtWm_->setText(complete);
}

void NameDialog::confirm() {
    completeName();
    cmdWm0_->setEnabled(false);
    Q_EMIT confirmed();
}
