#include "intake/transfer/transfer_page.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/table_shape.h"
#include "intake/transfer/transfer_rules.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int listLeft = 5500, listWidth = 1950;
constexpr int infoLeft = 5400, infoWidth = 3945;
constexpr int buttonsLeft = 5235;
constexpr Growth besideGrid = beside(transferShare, 1), belowList = movesRight * transferShare + movesDown;

const QString dropAll = u"撤消全部选中"_s;
const QString chooseShown = u"下表选中"_s;
const QString dropShown = u"撤消选中"_s;

}  // namespace

TransferPage::TransferPage(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser, MappingPanel& mapping,
                           CodeButtons& codeButtons, PreviewPanel& preview, ChosenLines& chosen)
    : frame_(frame),
      flow_(flow),
      browser_(browser),
      mapping_(mapping),
      codeButtons_(codeButtons),
      preview_(preview),
      chosen_(chosen),
      names_(frame) {
    makeLabels();
    makeTargetGroup();
    makeButtons();
    connectControls();
    connectPanels();
}

void TransferPage::makeLabels() {
    QWidget* page = frame_.sstFz->page(transferTab);
    const auto put = [&](QLabel* label, int left, int top, int width, int height) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        frame_.sstFz->putOn(transferTab, label, left, top, width, height);
        return label;
    };
    lblJs_ = put(make<QLabel>(page, u"lblJs"_s), 240, 6465, 4700, 225);
    lblY0_ = put(make<QLabel>(page, u"lblY0"_s), 5535, 720, listWidth, 225);
    lbl5_ = put(make<QLabel>(page, u"lbl5"_s), 5535, 945, listWidth, 225);
    lbl6_ = put(make<ElidedLabel>(page, u"lbl6"_s), infoLeft, 4815, infoWidth, 225);
    lblLj_ = put(make<ElidedLabel>(page, u"lblLj"_s), infoLeft, 4850, infoWidth, 225);
    lbl3_ = put(make<QLabel>(page, u"lbl3"_s), infoLeft, 5100, infoWidth, 540);
    letGrow(lblJs_, beside(0, transferShare) + movesDown);
    letGrow({lblY0_, lbl5_}, besideGrid);
    letGrow({lbl6_, lblLj_, lbl3_}, besideGrid + movesDown);
}

void TransferPage::makeTargetGroup() {
    fraMb_ = make<QGroupBox>(frame_.sstFz->page(transferTab), u"fraMb"_s, u"数据转存目标"_s);
    frame_.sstFz->putOn(transferTab, fraMb_, listLeft, 3810, listWidth, 765);
    letGrow(fraMb_, belowList);
    const QString captions[] = {u"存入文件夹"_s, u"存入数据库"_s};
    for (int i = 0; i < 2; ++i) {
        auto* option = make<QRadioButton>(fraMb_, element(u"optMb"_s, i), captions[i]);
        place(option, 240, 240 + i * 255, 1500, 255);
        connect(option, &QRadioButton::clicked, this, guarded(frame_.form, [this, i] { optMbClick(i); }));
        optMb_[static_cast<std::size_t>(i)] = option;
    }
    groupOptions(optMb_);
    fraMb_->setEnabled(false);
}

void TransferPage::makeButtons() {
    TabControl* sstFz = frame_.sstFz;
    QWidget* page = sstFz->page(transferTab);
    const auto button = [&](const QString& name, const QString& caption, int left, int top, int width, int height) {
        auto* made = make<QPushButton>(page, name, caption);
        sstFz->putOn(transferTab, made, left, top, width, height);
        letGrow(made, belowList);
        made->setEnabled(false);
        return made;
    };
    constexpr int firstRow = 5940, secondRow = 6330, height = 330;
    cmdQb_ = button(u"cmdQb"_s, chooseAllCaption, 3105, 705, 1365, 315);
    cmdXb_ = button(u"cmdXb"_s, chooseShown, 4500, 705, 930, 315);
    cmdFz_ = button(u"cmdFz"_s, u"复 制"_s, buttonsLeft, firstRow, 915, height);
    cmdYd_ = button(u"cmdYd"_s, u"移 动"_s, 6210, firstRow, 915, height);
    cmdWj_ = button(u"cmdWj"_s, u"按默认文件名转成文件"_s, 7185, firstRow, 2160, height);
    cmdQq_ = button(u"cmdQq"_s, u"撤 消"_s, 8430, secondRow, 915, height);
    letGrow({cmdQb_, cmdXb_}, movesRight * transferShare);
    QPushButton* opener = preview_.makeOpener(transferOpener, page);
    sstFz->putOn(transferTab, opener, 7185, secondRow, 1185, height);
    letGrow(opener, belowList);
    preview_.allowOpening(transferOpener, false);
    prg3_ = make<QProgressBar>(page, u"prg3"_s);
    prg3_->setRange(0, 100);
    prg3_->hide();
}

void TransferPage::connectControls() {
    const auto run = [this](auto slot) { return guarded(frame_.form, [this, slot] { (this->*slot)(); }); };
    connect(cmdQb_, &QPushButton::clicked, this, run(&TransferPage::cmdQbClick));
    connect(cmdXb_, &QPushButton::clicked, this, run(&TransferPage::cmdXbClick));
    connect(cmdFz_, &QPushButton::clicked, this, run(&TransferPage::cmdFzClick));
    connect(cmdYd_, &QPushButton::clicked, this, run(&TransferPage::cmdYdClick));
    connect(cmdWj_, &QPushButton::clicked, this, run(&TransferPage::cmdWjClick));
    connect(cmdQq_, &QPushButton::clicked, this, run(&TransferPage::cmdQqClick));
    connect(&chosen_, &ChosenLines::clicked, this, guarded(frame_.form, [this](int line) {
        if (inFront()) drop(line);
    }));
    connect(&names_, &NameDialog::confirmed, this, guarded(frame_.form, [this] { fzyd(operationText(moves())); }));
    connect(&names_, &NameDialog::cancelled, this, run(&TransferPage::nameCancelled));
}

/// The panels serve other pages too: this one listens while it is in front.
void TransferPage::connectPanels() {
    const auto here = [this](auto slot) {
        return guarded(frame_.form, [this, slot](const auto&... arguments) {
            if (inFront()) callWithOrWithout(std::bind_front(slot, this), arguments...);
        });
    };
    browser_.ground()->installEventFilter(this);
    browser_.serve(transferTab, {[this] { return toFolder() ? BrowseMode::targetFolder : BrowseMode::targetDatabase; },
                                 [] { return true; }});
    connect(&browser_, &BrowserPanel::targetCleared, this, guarded(frame_.form, [this] { xzfy(); }));
    connect(&browser_, &BrowserPanel::folderChanged, this, here(&TransferPage::folderChanged));
    connect(&browser_, &BrowserPanel::fileClicked, this, here(&TransferPage::fileClicked));
    connect(&browser_, &BrowserPanel::confirmed, this, here(&TransferPage::folderConfirmed));
    connect(&mapping_, &MappingPanel::tableChosen, this, here(&TransferPage::tableChosen));
    connect(&mapping_, &MappingPanel::tableDropped, this, here(&TransferPage::tableDropped));
    connect(&mapping_, &MappingPanel::indexChosen, this, here(&TransferPage::indexChosen));
    connect(&mapping_, &MappingPanel::mapped, this, guarded(frame_.form, [this] {
        if (!inFront()) return;
        cmdFz_->setEnabled(true);
        cmdYd_->setEnabled(true);
    }));
    connect(&mapping_, &MappingPanel::closed, this, here(&TransferPage::mappingClosed));
    connect(&codeButtons_, &CodeButtons::filtered, this,
            guarded(frame_.form, [this](const QString& code, const QString&, int total) {
                if (inFront()) filtered(code, total);
            }));
}

bool TransferPage::inFront() const {
    return frame_.isInFront(transferTab);
}

PageLayout TransferPage::layout() const {
    return {.outerFrame = {192, 0, 192},
            .innerFrame = {0, 255, 0},
            .grid = {200, 1130, 4800, 5320},
            .gridGrowth = beside(0, transferShare) + heightens,
            .chooser = PageLayout::Chooser{{240, 790}, u"来源图册："_s, {1100, 720}, 1950, beside(0, transferShare)}};
}

void TransferPage::enter() {
    codeButtons_.setGrowth(movesRight);
    codeButtons_.moveHeading(7830, 930);
    frame_.hints.czts(2);
    chosen_.putOn(transferTab, {listLeft, 1180, listWidth, 2600}, besideGrid + heightens);
    chosen_.show();
    startAnew();
    for (QPushButton* button : {cmdQb_, cmdXb_}) button->setEnabled(false);
    lblJs_->clear();
    lblY0_->clear();
}

/// Nothing is chosen and nothing was begun.
void TransferPage::startAnew() {
    names_.close();
    setNaming(false);
    prg3_->hide();
    browser_.hide();
    browser_.hideNote();
    chosen_.clear();
    chosen_.fitColumns();
    lbl5_->clear();
    resetCaptions();
    cmdFz_->setText(u"复 制"_s);
    cmdYd_->setText(u"移 动"_s);
    cmdQq_->setEnabled(false);
    xzfy();
    enableRuns(false);
    bsxz(true);
    preview_.allowOpening(transferOpener, false);
    frame_.work.end();
    flow_.goTo(0);
}

void TransferPage::resetCaptions() {
    cmdQb_->setText(chooseAllCaption);
    cmdXb_->setText(chooseShown);
}

void TransferPage::albumChosen() {
    startAnew();
    flow_.setTargetTable({});
    flow_.setSource(mekTp::cataloguePath(), frame_.albums.table());
    showTotal();
    codeButtons_.moveTo(7830, 1230, 4);
    attempt([&] { codeButtons_.bhan(); });
    codeButtons_.moveText(7770, 3470, 1185);
    enableChoosing();
    lblY0_->setText(u"源表："_s + flow_.sourceTable());
}

void TransferPage::albumLost() {
    startAnew();
    for (QPushButton* button : {cmdQb_, cmdXb_}) button->setEnabled(false);
    lblJs_->clear();
    lblY0_->clear();
}

void TransferPage::showTotal() {
    lblJs_->setText(countLine(titleOfLine(frame_.albums.line()), frame_.grid.total()));
}

/// While names are asked for, the list of pictures stays as it is.
void TransferPage::filtered(const QString& code, int total) {
    lblJs_->setText(countLine(titleOfLine(frame_.albums.line()), code, total));
    cmdXb_->setEnabled(!names_.isOpen());
    if (names_.isOpen()) frame_.grid.setEnabled(false);
}

void TransferPage::rowClicked() {
    if (names_.isOpen()) return;
    const FieldValue number = frame_.grid.records().Fields(u"序号"_s).Value();
    if (number.isNull()) {
        say(frame_.form, u"这条记录没有序号，不能选择。"_s);
        return;
    }
    if (chosen_.all().contains(number.toText())) {
        say(frame_.form, u"选择的图片重复！"_s);
        return;
    }
    chosen_.add(number.toText());
    flow_.goTo(1);
    cmdQq_->setEnabled(true);
    linesChanged();
    preview_.allowOpening(transferOpener, true);
}

void TransferPage::recordChanged() {
    preview_.showRecord();
}

/// A click on a chosen number drops it.
void TransferPage::drop(int line) {
    chosen_.drop(line);
    if (chosen_.count() == 0) {
        nothingChosen();
        return;
    }
    flow_.goTo(1);
    linesChanged();
}

void TransferPage::cmdQbClick() {
    if (frame_.albums.line().isEmpty()) return;
    const Hourglass hourglass;
    if (cmdQb_->text() == dropAll) {
        chosen_.clear();
        nothingChosen();
        return;
    }
    addNumbers(allRecordsSql(flow_.sourceTable(), u"序号"_s));
    cmdQb_->setText(dropAll);
    enableChoosing();
}

void TransferPage::cmdXbClick() {
    if (frame_.albums.line().isEmpty()) return;
    const Hourglass hourglass;
    chosen_.clear();
    if (cmdXb_->text() == dropShown) {
        nothingChosen();
        return;
    }
    addNumbers(u"SELECT * FROM "_s + flow_.sourceTable() + whereCode(codeButtons_.chosenCode()) +
               u" ORDER BY [序号]"_s);
    cmdXb_->setText(dropShown);
    enableChoosing();
}

void TransferPage::addNumbers(const QString& source) {
    QStringList numbers;
    for (Recordset records = mekTp::catalogue.OpenRecordset(source); !records.Eof(); records.MoveNext()) {
        const FieldValue number = records.Fields(u"序号"_s).Value();
        if (!number.isNull()) numbers << number.toText();
    }
    chosen_.addAll(numbers);
    const bool any = chosen_.count() > 0;
    flow_.goTo(any ? 1 : 0);
    cmdQq_->setEnabled(true);
    linesChanged();
    preview_.allowOpening(transferOpener, any);
}

void TransferPage::linesChanged() {
    const int count = chosen_.count();
    chosen_.fitColumns();
    lbl5_->setText(chosenText(count));
    fraMb_->setEnabled(count > 0);
    frame_.work.setUnderWay(count > 0);
}

/// The panel of folders covers the left half of the page; what would look out from under it goes with it.
bool TransferPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == browser_.ground() && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        for (QWidget* covered :
             {static_cast<QWidget*>(cmdQb_), static_cast<QWidget*>(cmdXb_), static_cast<QWidget*>(lblJs_)})
            covered->setVisible(!inFront() || event->type() == QEvent::Hide);
    return QObject::eventFilter(watched, event);
}

/// The list has become empty by the user: whatever was begun with it is given up.
void TransferPage::nothingChosen() {
    startAnew();
    linesChanged();
    enableChoosing();
    frame_.hints.czts(2);
}

/// Each of the two buttons that choose many records waits until the other one has taken its choice back.
void TransferPage::enableChoosing() {
    cmdQb_->setEnabled(cmdXb_->text() != dropShown);
    cmdXb_->setEnabled(cmdQb_->text() != dropAll);
}
