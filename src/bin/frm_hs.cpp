#include "bin/frm_hs.h"

#include "bin/bin_words.h"
#include "platform/desktop/accessibility.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "windows/window_place.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize smallestSize(560, 320), usualSize(760, 480);
constexpr std::array widths{76, 210, 150, 76, 130, 80};
}  // namespace

frmHs::frmHs(const Database& catalogue, QWidget* parent)
    : QDialog(parent),
      catalogue_(catalogue),
      model_(new BinModel(catalogue, this)),
      lblHs(make<QLabel>(this, u"lblHs"_s)),
      lstHs(make<QTableView>(this, u"lstHs"_s)) {
    setObjectName(u"frmHs"_s);
    setWindowTitle(u" 回收站"_s);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(smallestSize);
    resize(usualSize);
    makeList();
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(lblHs);
    lines->addWidget(lstHs, 1);
    lines->addWidget(makeCodeRow());
    lines->addWidget(makeButtons());
    showContents();
    lstHs->setFocus();
    new RememberedSize(this);
}

void frmHs::makeList() {
    lstHs->setAccessibleName(u"回收站的内容"_s);
    lstHs->setModel(model_);
    lstHs->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstHs->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstHs->setAlternatingRowColors(true);
    lstHs->setShowGrid(false);
    lstHs->setWordWrap(false);
    lstHs->setTabKeyNavigation(false);
    lstHs->setIconSize(BinModel::pictureSize);
    lstHs->verticalHeader()->hide();
    lstHs->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    lstHs->verticalHeader()->setDefaultSectionSize(BinModel::pictureSize.height() + 4);
    lstHs->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lstHs->horizontalHeader()->setHighlightSections(false);
    lstHs->horizontalHeader()->setStretchLastSection(true);
    for (std::size_t column = 0; column < widths.size(); ++column)
        lstHs->setColumnWidth(int(column), widths.at(column));
    connect(lstHs->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { enableButtons(); });
    connect(model_, &QAbstractItemModel::modelReset, this, [this] { enableButtons(); });
}

QPushButton* frmHs::makeButton(const QString& name, const QString& caption, const QString& tip) {
    constexpr int width = 90;
    auto* button = make<QPushButton>(this, name, caption);
    button->setMinimumWidth(width);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

QWidget* frmHs::makeCodeRow() {
    codeRow_ = new QWidget(this);
    auto* row = new QHBoxLayout(codeRow_);
    row->setContentsMargins({});
    lblBm = make<QLabel>(codeRow_, u"lblBm"_s);
    lblBm->setTextFormat(Qt::PlainText);
    lblBm->setWordWrap(true);
    txtBm = make<QLineEdit>(codeRow_, u"txtBm"_s);
    txtBm->setAccessibleName(u"新的编号"_s);
    txtBm->setMaxLength(1);
    txtBm->setFixedWidth(48);
    cmdBm = makeButton(u"cmdBm"_s, u"确 定"_s, u"用这个编号恢复按钮"_s);
    row->addWidget(lblBm, 1);
    row->addWidget(txtBm);
    row->addWidget(cmdBm);
    codeRow_->hide();
    connect(cmdBm, &QPushButton::clicked, this, guarded(this, [this] { restoreWithCode(); }));
    connect(txtBm, &QLineEdit::returnPressed, this, guarded(this, [this] { restoreWithCode(); }));
    return codeRow_;
}

QWidget* frmHs::makeButtons() {
    auto* part = new QWidget(this);
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins({});
    cmdHy = makeButton(u"cmdHy"_s, u"恢 复"_s, u"把选中的放回原来的图册"_s);
    cmdQc = makeButton(u"cmdQc"_s, u"彻底删除"_s, u"选中的不再保留（Del）"_s);
    cmdQk = makeButton(u"cmdQk"_s, u"清 空"_s, u"全部不再保留"_s);
    auto* cmdGb = makeButton(u"cmdGb"_s, u"关 闭"_s, u"关闭回收站（Esc）"_s);
    lblJg = make<QLabel>(part, u"lblJg"_s);
    lblJg->setTextFormat(Qt::PlainText);
    row->addWidget(cmdHy);
    row->addWidget(cmdQc);
    row->addWidget(cmdQk);
    row->addWidget(lblJg, 1);
    row->addWidget(cmdGb);
    connect(cmdHy, &QPushButton::clicked, this, guarded(this, [this] { restoreChosen(); }));
    connect(cmdQc, &QPushButton::clicked, this, guarded(this, [this] { removeForGood(chosen()); }));
    connect(cmdQk, &QPushButton::clicked, this, guarded(this, [this] { removeForGood(binItems(catalogue_)); }));
    connect(cmdGb, &QPushButton::clicked, this, &QDialog::close);
    return part;
}

void frmHs::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && cmdQc->isEnabled())
        cmdQc->click();
    else
        QDialog::keyPressEvent(event);
}

std::vector<qint64> frmHs::chosen() const {
    return model_->idsOf(lstHs->selectionModel()->selectedRows());
}

void frmHs::restoreChosen() {
    Restored back;
    {
        const Hourglass hourglass;
        back = restoreFromBin(catalogue_, chosen());
    }
    showContents();
    tellOutcome(restoredText(back));
    if (back.isAny()) Q_EMIT restored();
    askCode(back.codeTaken);
}

void frmHs::askCode(std::vector<qint64> buttons) {
    askedFor_ = std::move(buttons);
    codeRow_->setVisible(!askedFor_.empty());
    if (askedFor_.empty()) return;
    const BinItem item = binItem(catalogue_, askedFor_.front()).value_or(BinItem());
    lblBm->setText(u"按钮“%1”的编号“%2”已有别的按钮在用，请给它另一个编号："_s.arg(item.name, item.codes));
    announce(lblBm);
    txtBm->clear();
    txtBm->setFocus();
}

void frmHs::restoreWithCode() {
    if (const QString fault = binCodeFault(catalogue_, txtBm->text()); !fault.isEmpty()) {
        say(this, fault);
        txtBm->setFocus();
        return;
    }
    restoreButton(catalogue_, askedFor_.front(), txtBm->text());
    showContents();
    tellOutcome(restoredText({.buttons = 1}));
    Q_EMIT restored();
    askCode({askedFor_.begin() + 1, askedFor_.end()});
}

void frmHs::removeForGood(const std::vector<qint64>& ids) {
    const std::vector<qint64> all = withRecordsOfAlbums(catalogue_, ids);
    if (!askBeforeDeleting(this, removalQuestion(totalsOf(binItems(catalogue_, all))))) return;
    const Hourglass hourglass;
    removeFromBin(catalogue_, all);
    askCode({});
    showContents();
    tellOutcome(u"已彻底删除"_s);
}

void frmHs::tellOutcome(const QString& text) {
    lblJg->setText(text);
    announce(lblJg);
    Q_EMIT changed();
}

void frmHs::showContents() {
    model_->listAgain();
    lblHs->setText(contentsText(binTotals(catalogue_)));
    enableButtons();
}

void frmHs::enableButtons() {
    const bool isChosen = lstHs->selectionModel()->hasSelection();
    cmdHy->setEnabled(isChosen);
    cmdQc->setEnabled(isChosen);
    cmdQk->setEnabled(model_->rowCount() > 0);
}
