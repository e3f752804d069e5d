#include "editor/operation_dialog.h"

#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/theme.h"

#include <QScopeGuard>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int dialogWidth = 3600;
constexpr int dialogHeight = 1440;
constexpr int partDialogHeight = 930;
constexpr int dialogTop = 1300;
constexpr int rowTop = 450;
constexpr int rowHeight = 330;
constexpr int buttonWidth = 750;
constexpr int partButtonLeft = 1440;
constexpr int buttonLeft = 1920;
constexpr int buttonLeftAfterwards = 1890;
constexpr int cancelLeft = 2730;
constexpr int partCancelLeft = 2250;
constexpr int margin = 180;
constexpr int entryLeft = 840;  // beside the dial
constexpr int entryRight = 1770;

}  // namespace

OperationDialog::OperationDialog(const QWidget* viewport, QWidget* form) : QObject(form), form_(form) {
    picCq_ = new FloatingPanel(u"picCq"_s, viewport, form);
    makeControls();
    connectControls();
}

void OperationDialog::makeControls() {
    place(picCq_, 0, 0, dialogWidth, dialogHeight);

    // The dialog is dragged by whatever does not answer to the mouse itself.
    lblCq_ = make<QLabel>(picCq_, u"lblCq"_s);
    place(lblCq_, margin, 105, dialogWidth - 2 * margin, 270);
    lbl2_ = make<QLabel>(picCq_, u"lbl2"_s, u"输入完成后按“确定”按钮或者回车"_s);
    lbl2_->setStyleSheet(theme::filledIn(u"color: @faint;"_s));
    place(lbl2_, margin, 1125, dialogWidth - 2 * margin, 240);
    for (QLabel* label : {lblCq_, lbl2_}) label->setAttribute(Qt::WA_TransparentForMouseEvents);

    txtCq_ = make<TextBox>(picCq_, u"txtCq"_s);
    txtCq_->setAccessibleName(u"数值"_s);
    const std::array<QString, 2> captions{u"确定"_s, u"取消"_s};
    for (size_t i = 0; i < cmdCq_.size(); ++i) {
        cmdCq_[i] = make<QPushButton>(picCq_, element(u"cmdCq"_s, int(i)), captions[i]);
        place(cmdCq_[i], i == 0 ? buttonLeft : cancelLeft, rowTop, buttonWidth, rowHeight);
    }
    cmdCq_[0]->setEnabled(false);

    prg1_ = make<QProgressBar>(picCq_, u"prg1"_s);
    prg1_->setRange(0, 100);
    prg1_->setTextVisible(false);
    place(prg1_, entryLeft, 885, dialogWidth - margin - entryLeft, 165);
    prg1_->hide();
    dial_ = std::make_unique<RotationDial>(picCq_);
}

void OperationDialog::connectControls() {
    connect(picCq_, &FloatingPanel::toggled, this, &OperationDialog::toggled);
    connect(txtCq_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!text.isEmpty() && operation_ != nullptr) cmdCq_[0]->setEnabled(true);
        turnDial();
    });
    connect(txtCq_, &TextBox::gotFocus, txtCq_, &QLineEdit::selectAll);
    connect(txtCq_, &TextBox::enterPressed, cmdCq_[0], &QPushButton::click);
    connect(cmdCq_[0], &QPushButton::clicked, this, guarded(picCq_, [this] { Q_EMIT confirmed(); }));
    connect(cmdCq_[1], &QPushButton::clicked, this, guarded(picCq_, [this] { Q_EMIT cancelled(); }));
}

void OperationDialog::czdh(const Operation& operation) {
    operation_ = &operation;
    lblCq_->setText(operation.question);
    const QWidget* window = form_->window();
    if (operation.asksForPart())  // out of the way of the picture
        place(picCq_, widthOf(window) - 3720, heightOf(window) - 2000);
    else
        place(picCq_, (widthOf(window) - dialogWidth) / 2, dialogTop);
    txtCq_->clear();
    showAgain();
    if (operation.asksForEntry()) focusEntry();
}

void OperationDialog::showAgain() {
    cmdCq_[0]->setEnabled(false);
    showParts();
    picCq_->show();
    picCq_->raise();
}

void OperationDialog::showParts() {
    const bool part = operation_->asksForPart();
    lbl2_->setVisible(!part);
    txtCq_->setVisible(!part);
    place(cmdCq_[0], part ? partButtonLeft : buttonLeft, rowTop);
    place(cmdCq_[1], part ? partCancelLeft : cancelLeft, rowTop);
    const bool hasDial = operation_->asks == Operation::Asks::angle;
    const int left = hasDial ? entryLeft : margin;
    place(txtCq_, left, rowTop, entryRight - left, rowHeight);
    picCq_->resize(picCq_->width(), pixelsFromTwips(part ? partDialogHeight : dialogHeight));
    dial_->setVisible(hasDial);
    turnDial();
}

void OperationDialog::turnDial() {
    if (operation_ != nullptr) dial_->turnTo(operation_->value(txtCq_->text()));
}

void OperationDialog::close() {
    picCq_->hide();
    txtCq_->show();
    cmdCq_[0]->setEnabled(false);
    place(cmdCq_[0], buttonLeftAfterwards, rowTop);
    dial_->setVisible(false);
}

void OperationDialog::partDrawn() {
    cmdCq_[0]->setEnabled(operation_ != nullptr && operation_->asksForPart());
}

QString OperationDialog::entry() {
    if (operation_->asksForPart()) txtCq_->setText(u"1"_s);
    return txtCq_->text();
}

void OperationDialog::showProgress(const std::function<void(const Progress&)>& work) {
    prg1_->setValue(0);
    prg1_->show();
    const auto hidden = qScopeGuard([this] { prg1_->hide(); });
    work([this](int percent) { prg1_->setValue(percent); });
    prg1_->setValue(100);
}
