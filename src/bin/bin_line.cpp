#include "bin/bin_line.h"

#include "bin/bin_words.h"
#include "bin/frm_hs.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/accessibility.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QEvent>
#include <QPushButton>
#include <array>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int shownMs = 10000;
const QString putsBack = u"恢复"_s;
const QString opensBin = u"回收站"_s;

std::optional<BinKind> onlyKind(qint64 since) {
    for (const BinKind kind : {BinKind::moved, BinKind::replaced})
        if (isBinOnly(mekTp::catalogue, since, kind)) return kind;
    return {};
}

}  // namespace

BinLine::BinLine(QWidget* form)
    : QObject(form),
      form_(form),
      lblHf(make<ElidedLabel>(form, u"lblHf"_s)),
      cmdHf(make<QPushButton>(form, u"cmdHf"_s, opensBin)) {
    lblHf->setElideMode(Qt::ElideRight);
    lblHf->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblHf->setAutoFillBackground(true);
    lblHf->hide();
    cmdHf->hide();
    shown_.setParent(this);
    shown_.setSingleShot(true);
    shown_.callOnTimeout(this, &BinLine::showSmall);
    connect(cmdHf, &QPushButton::clicked, this, guarded(form, [this] { cmdHfClick(); }));
}

void BinLine::place(const QRect& line, const QRect& button) {
    ::place(lblHf, line.x(), line.y(), line.width(), line.height());
    ::place(cmdHf, button.x(), button.y(), button.width(), button.height());
    letGrow({lblHf, cmdHf}, movesRight + movesDown);
}

void BinLine::look() {
    form_->window()->installEventFilter(this);
    attempt([&] {
        const qint64 newest = Bin(mekTp::catalogue).newestRemoval();
        const bool isFirst = told_ < 0;
        const qint64 before = std::exchange(told_, newest);
        isFilled_ = !isBinEmpty(mekTp::catalogue);
        const BinTotals totals = isFirst ? BinTotals() : binTotalsSince(mekTp::catalogue, before);
        if (totals.items > 0) {
            before_ = before;
            tell(removedText(totals, onlyKind(before)), true);
        }
    });
    arrange();
}

void BinLine::setAway(bool on) {
    isAway_ = on;
    arrange();
}

void BinLine::tell(const QString& text, bool mayBePutBack) {
    cmdHf->setText(mayBePutBack ? putsBack : opensBin);
    lblHf->setText(text);
    letTimeRun();
    arrange();
    announce(lblHf);
}

void BinLine::letTimeRun() {
    shown_.start(isBlocked_ ? std::numeric_limits<int>::max() : shownMs);
}

bool BinLine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked) {
        isBlocked_ = event->type() == QEvent::WindowBlocked;
        if (shown_.isActive()) letTimeRun();
    }
    return QObject::eventFilter(watched, event);
}

void BinLine::showSmall() {
    shown_.stop();
    cmdHf->setText(opensBin);
    arrange();
}

void BinLine::arrange() {
    const bool isTold = shown_.isActive();
    lblHf->setVisible(isTold && !isAway_);
    cmdHf->setVisible(isFilled_ && !isAway_);
    cmdHf->setToolTip(cmdHf->text() == putsBack ? u"放回原来的图册"_s : u"看看删除了的图片，或者恢复"_s);
    for (QWidget* part : std::initializer_list<QWidget*>{lblHf, cmdHf}) part->raise();
    Q_EMIT arranged();
}

void BinLine::cmdHfClick() {
    if (mayRestore && !mayRestore()) return;
    if (cmdHf->text() == putsBack)
        restoreLast();
    else
        openBin();
}

/// Where a button needs another code, the bin asks for it.
void BinLine::restoreLast() {
    Restored back;
    {
        const Hourglass hourglass;
        back = restoreFromBin(mekTp::catalogue, binItemsSince(mekTp::catalogue, before_));
    }
    showSmall();
    look();
    shown_.stop();
    if (back.isAny()) {
        tell(restoredText(back), false);
        Q_EMIT restored();
    }
    arrange();
    if (!back.codeTaken.empty()) openBin(back.codeTaken);
}

void BinLine::openBin(const std::vector<qint64>& codeTaken) {
    auto* bin = new frmHs(mekTp::catalogue, form_->window());
    connect(bin, &frmHs::restored, this, &BinLine::restored);
    connect(bin, &frmHs::changed, this, [this] {
        told_ = -1;  // what was put back, or changed places, is told there
        look();
    });
    bin->show();
    bin->askCode(codeTaken);
}
