#include "editor/operation_dialog.h"

#include "editor/editor_texts.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int dialogWidth = 3600;
constexpr int dialogHeight = 1440;
constexpr int cropDialogHeight = 930;
constexpr int dialogTop = 1300;
constexpr int rowTop = 450;
constexpr int rowHeight = 330;
constexpr int buttonWidth = 750;
constexpr int cropButtonLeft = 1440;
constexpr int buttonLeft = 1920;
constexpr int buttonLeftAfterwards = 1890;
constexpr int cancelLeft = 2730;
constexpr int cropCancelLeft = 2250;
constexpr int margin = 180;
constexpr int entryLeft = 840;  // beside the dial
constexpr int entryRight = 1770;

constexpr int dialX = 360;
constexpr int dialY = 810;
constexpr int dialRadius = 300;
constexpr double radiansPerDegree = 3.1415926 / 180;
const QColor dialColour(0xcf, 0xc8, 0xba);
const QColor handColour(0xc0, 0x39, 0x2b);

}  // namespace

OperationDialog::OperationDialog(EditorState& state, Commands& commands, EditorView& view)
    : QObject(view.picCq), state_(state), commands_(commands), view_(view) {
    makeControls();
    connect(txtCq, &QLineEdit::textChanged, this, [this] { txtCqChange(); });
    connect(txtCq, &TextBox::gotFocus, txtCq, &QLineEdit::selectAll);
    connect(txtCq, &TextBox::enterPressed, cmdCq[0], &QPushButton::click);
    connect(cmdCq[0], &QPushButton::clicked, this, guarded(view_.picCq, [this] { Q_EMIT confirmed(); }));
    connect(cmdCq[1], &QPushButton::clicked, this, guarded(view_.picCq, [this] { Q_EMIT cancelled(); }));
}

void OperationDialog::makeControls() {
    Surface* picCq = view_.picCq;
    place(picCq, 0, 0, dialogWidth, dialogHeight);

    // The dialog is dragged by whatever does not answer to the mouse itself.
    lblCq_ = make<QLabel>(picCq, u"lblCq"_s);
    place(lblCq_, margin, 105, dialogWidth - 2 * margin, 270);
    lbl2_ = make<QLabel>(picCq, u"lbl2"_s, u"输入完成后按“确定”按钮或者回车"_s);
    lbl2_->setStyleSheet(u"color: #8d877d;"_s);
    place(lbl2_, margin, 1125, dialogWidth - 2 * margin, 240);
    for (QLabel* label : {lblCq_, lbl2_}) label->setAttribute(Qt::WA_TransparentForMouseEvents);

    txtCq = make<TextBox>(picCq, u"txtCq"_s);
    txtCq->setAccessibleName(u"数值"_s);
    const std::array<QString, 2> captions{u"确定"_s, u"取消"_s};
    for (size_t i = 0; i < cmdCq.size(); ++i) {
        cmdCq[i] = make<QPushButton>(picCq, element(u"cmdCq"_s, int(i)), captions[i]);
        place(cmdCq[i], i == 0 ? buttonLeft : cancelLeft, rowTop, buttonWidth, rowHeight);
    }
    cmdCq[0]->setEnabled(false);

    prg1 = make<QProgressBar>(picCq, u"prg1"_s);
    prg1->setRange(0, 100);
    prg1->setTextVisible(false);
    place(prg1, entryLeft, 885, dialogWidth - margin - entryLeft, 165);
    prg1->hide();

    for (size_t i = 0; i < linJd_.size(); ++i) {
        linJd_[i] = make<LineBox>(picCq, element(u"linJd"_s, int(i)));
        linJd_[i]->setColor(i == 0 ? handColour : dialColour);
    }
    linJd_[1]->setEnds(dialX - dialRadius, dialY, dialX + dialRadius, dialY);
    linJd_[2]->setEnds(dialX, dialY - dialRadius, dialX, dialY + dialRadius);
    linJd_[3]->setEnds(dialX - 75, dialY - dialRadius, dialX + 75, dialY - dialRadius);
    linJd_[0]->raise();
    showDial(false);
}

/// Opens the dialog of an operation.
void OperationDialog::czdh(const QString& mode) {
    mode_ = mode;
    const bool crop = mode == u"c";
    lblCq_->setText(crop ? u"选择裁剪范围完成后按确定"_s : mode == u"s" ? u"请输入缩放倍数"_s : u"请输入旋转角度"_s);
    if (crop)
        place(view_.picCq, view_.windowWidth() - 3720, view_.windowHeight() - 2000);
    else
        place(view_.picCq, (view_.windowWidth() - dialogWidth) / 2, dialogTop);
    txtCq->clear();
    cmdCq[0]->setEnabled(false);
    showParts();
    view_.picCq->show();
    view_.picCq->raise();
    if (!crop) txtCq->setFocus();
}

void OperationDialog::showParts() {
    const bool crop = mode_ == u"c";
    lbl2_->setVisible(!crop);
    txtCq->setVisible(!crop);
    place(cmdCq[0], crop ? cropButtonLeft : buttonLeft, rowTop);
    place(cmdCq[1], crop ? cropCancelLeft : cancelLeft, rowTop);
    const bool dial = mode_ == u"x";
    const int left = dial ? entryLeft : margin;
    place(txtCq, left, rowTop, entryRight - left, rowHeight);
    view_.picCq->resize(view_.picCq->width(), pixelsFromTwips(crop ? cropDialogHeight : dialogHeight));
    showDial(dial);
}

void OperationDialog::reopen() {
    if (mode_.isEmpty()) return;
    cmdCq[0]->setEnabled(false);
    showParts();
    if (mode_ == u"c") {
        // Only in its own state a selection can be drawn.
        state_.editState = mode_;
        commands_.setEnabled(commands_.mnuCj, u"cj"_s, false);
    }
    view_.picCq->show();
    view_.picCq->raise();
}

void OperationDialog::close() {
    view_.picCq->hide();
    txtCq->show();
    cmdCq[0]->setEnabled(false);
    place(cmdCq[0], buttonLeftAfterwards, rowTop);
    showDial(false);
}

void OperationDialog::txtCqChange() {
    if (!txtCq->text().isEmpty()) cmdCq[0]->setEnabled(true);
    if (mode_ == u"x") turnHand();
}

void OperationDialog::showDial(bool on) {
    for (LineBox* line : linJd_) line->setVisible(on);
    if (on) turnHand();
}

double OperationDialog::value() const {
    return mode_ == u"s" ? factorFromText(txtCq->text()) : angleFromText(txtCq->text());
}

/// The hand turns counter-clockwise from twelve, as the picture will.
void OperationDialog::turnHand() {
    const double angle = angleFromText(txtCq->text()) * radiansPerDegree;
    const double turn = std::isfinite(angle) ? angle : 0;
    linJd_[0]->setEnds(dialX, dialY, dialX - roundHalfEven(dialRadius * std::sin(turn)),
                       dialY - roundHalfEven(dialRadius * std::cos(turn)));
    linJd_[0]->show();
}
