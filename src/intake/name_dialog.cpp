#include "intake/name_dialog.h"

#include "intake/settings_tab.h"
#include "intake/transfer_rules.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int frameWidth = 3960, frameHeight = 1260;
constexpr int buttonWidth = 765, buttonHeight = 330;
}  // namespace

NameDialog::NameDialog(SharedControls& controls)
    : controls_(controls),
      fraWm_(make<QGroupBox>(controls.sstFz->page(transferTab), u"fraWm"_s, u"请录入文件名"_s)),
      lblWm_(make<QLabel>(fraWm_, u"lblWm"_s)),
      txtWm_(make<TextBox>(fraWm_, u"txtWm"_s)),
      cmdWm0_(make<QPushButton>(fraWm_, u"cmdWm(0)"_s, u"确 定"_s)),
      cmdWm1_(make<QPushButton>(fraWm_, u"cmdWm(1)"_s, u"取 消"_s)) {
    controls_.sstFz->putOn(transferTab, fraWm_, 5370, 4590, frameWidth, frameHeight);
    // It stands over other controls: its ground hides them.
    fraWm_->setStyleSheet(u"QGroupBox#fraWm { background: palette(window); margin-top: 0px; }"_s);
    fraWm_->hide();
    lblWm_->setTextFormat(Qt::PlainText);
    place(lblWm_, 150, 240, frameWidth - 300, 255);
    place(txtWm_, 150, 510, frameWidth - 300, 315);
    place(cmdWm0_, frameWidth - 150 - 2 * buttonWidth - 60, 855, buttonWidth, buttonHeight);
    place(cmdWm1_, frameWidth - 150 - buttonWidth, 855, buttonWidth, buttonHeight);
    connect(txtWm_, &TextBox::textChanged, this, [this](const QString& text) { cmdWm0_->setEnabled(!text.isEmpty()); });
    connect(txtWm_, &TextBox::lostFocus, this, [this] { completeName(); });
    connect(txtWm_, &TextBox::enterPressed, this, guarded(controls_.form, [this] { confirm(); }));
    connect(cmdWm0_, &QPushButton::clicked, this, guarded(controls_.form, [this] { confirm(); }));
    connect(cmdWm1_, &QPushButton::clicked, this, guarded(controls_.form, [this] { Q_EMIT cancelled(); }));
}

void NameDialog::open(const QString& question, QProgressBar* prg3) {
    prg3->setParent(fraWm_);
    place(prg3, 150, 870, 1935, 285);
    prg3->setValue(0);
    prg3->show();
    fraWm_->show();
    fraWm_->raise();
    cmdWm0_->setEnabled(false);
    askNext(question);
}

void NameDialog::askNext(const QString& question) {
    lblWm_->setText(question);
    lblWm_->setToolTip(question);
    txtWm_->clear();
    txtWm_->setFocus();
}

void NameDialog::close() {
    fraWm_->hide();
}

bool NameDialog::isOpen() const {
    return fraWm_->isVisibleTo(fraWm_->parentWidget());
}

QString NameDialog::name() const {
    return completedPictureName(txtWm_->text());
}

void NameDialog::setConfirmable(bool on) {
    cmdWm0_->setEnabled(on && !txtWm_->text().isEmpty());
}

void NameDialog::completeName() {
    const QString complete = name();
    if (complete != txtWm_->text()) txtWm_->setText(complete);
}

void NameDialog::confirm() {
    if (txtWm_->text().isEmpty()) return;
    completeName();
    Q_EMIT confirmed();
}
