#include "viewer/filter_controls.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/typed_date.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "viewer/filters.h"
#include "viewer/small_dialog.h"

#include <QSignalBlocker>
#include <utility>

using namespace Qt::Literals::StringLiterals;

FilterControls::FilterControls(ViewerState& state, ToolStrip& strip, StatusLine& status, Page& page, QWidget* window,
                               QWidget* form)
    : picRq(makeSmallDialog(form, u"picRq"_s, 4050, 2400)),
      state_(state),
      strip_(strip),
      status_(status),
      page_(page),
      window_(window) {
    buildDateDialog();
    connectDateDialog();
    connect(strip.txtXh, &TextBox::textChanged, this, guarded(window, [this](const QString& text) {
                if (text == u"序号任意"_s) tpsx();
            }));
    connect(strip.txtXx, &TextBox::textChanged, this, guarded(window, [this] { tpsx(); }));
    connect(strip.txtXx, &TextBox::lostFocus, this, guarded(window, [this] { tpsx(); }));
    connect(strip.txtXx, &TextBox::enterPressed, this, guarded(window, [this] { page_.xstp(); }));
}

void FilterControls::buildDateDialog() {
    makeDialogLabel(picRq, u"lblRq"_s, u"请设置筛选日期"_s, 180, 120, 3000);
    cmdS0 = makeCloseButton(picRq, u"cmdS0"_s);
    const std::array<QString, 3> operators{u"早于"_s, u"晚于"_s, u"等于"_s};
    for (size_t i = 0; i < optRq.size(); ++i) {
        optRq[i] = make<QRadioButton>(picRq, element(u"optRq"_s, int(i)));
        optRq[i]->setText(operators[i]);
        place(optRq[i], 300 + int(i) * 1200, 600, 1050, 300);
    }
    groupOptions(optRq);
    makeDialogLabel(picRq, u"lblR1"_s, u"日期录入："_s, 300, 1140, 1050);
    txtR1 = make<TextBox>(picRq, u"txtR1"_s);
    place(txtR1, 1350, 1125, 2400, 330);
    txtR1->setLocked(true);

    cmdRq = makeDialogButton(picRq, u"cmdRq"_s, u"确 定"_s, 180, 1770, 1140);
    cmdRx = makeDialogButton(picRq, u"cmdRx"_s, u"取 消"_s, 1455, 1770, 1140);
    cmdRy = makeDialogButton(picRq, u"cmdRy"_s, u"任意日期"_s, 2730, 1770, 1140);
}

void FilterControls::connectDateDialog() {
    for (int i = 0; i < int(optRq.size()); ++i)
        connect(optRq[size_t(i)], &QRadioButton::clicked, this, guarded(window_, [this, i] {
                    chosenOperator_ = i;
                    txtR1->setLocked(false);
                    txtR1->setFocus();
                }));
    connect(txtR1, &TextBox::textChanged, this, guarded(window_, [this] { helpTyping(); }));
    connect(txtR1, &TextBox::enterPressed, this, guarded(window_, [this] { takeDate(); }));
    connect(cmdRq, &QPushButton::clicked, this, guarded(window_, [this] { takeDate(); }));
    connect(cmdRy, &QPushButton::clicked, this, guarded(window_, [this] { dropDate(); }));
    connect(cmdRx, &QPushButton::clicked, picRq, &QWidget::hide);
    connect(cmdS0, &QPushButton::clicked, picRq, &QWidget::hide);
}

/// Builds the selection out of code, date and number conditions. A statement that the engine refuses leaves the
/// selection in force.
void FilterControls::tpsx() {
    state_.firstPictureIndex = 0;
    const QString number = numberCondition(strip_.txtXh->text(), strip_.txtXx->text());
    const bool isNarrowed = !state_.dateCondition.isEmpty() || !number.isEmpty();
    attempt([&] {
        state_.albumRecordset = mekTp::catalogue.OpenRecordset(
            selectionSql(mekTp::currentTable, state_.selectionCode, state_.dateCondition, number));
        state_.isNarrowed = isNarrowed;
    });
    int pictures = 0;
    attempt([&] { pictures = visitAll(state_.albumRecordset); });
    state_.pictureCount = pictures;
    state_.pageCount = pagesFor(pictures, state_.picturesPerPage);
    state_.pageStatusText =
        pageStatus({state_.dateCondition, state_.dateOperator, state_.conditionDate, number, state_.isNarrowed},
                   pictures, state_.pageCount);
    status_.setPanel(3, state_.pageStatusText);
    strip_.txtYh->setText(u"1"_s);
    page_.prepare();
}

void FilterControls::openDateDialog() {
    clearOptions(optRq);
    txtR1->setLocked(true);
    txtR1->clear();
    place(picRq, 1900, 500);
    picRq->show();
    picRq->raise();
}

// Only growing text is helped along, so that the backspace key can take away what the help has added.
void FilterControls::helpTyping() {
    const QString typed = txtR1->text();
    const int grown = int(typed.size() - std::exchange(typedLength_, typed.size()));
    if (grown <= 0) return;
    const TypedDate helped = helpTypedDate({typed, txtR1->cursorPosition()}, grown);
    const QSignalBlocker silence(txtR1);
    if (helped.text != typed) txtR1->setText(helped.text);
    txtR1->setCursorPosition(helped.caret);
    typedLength_ = helped.text.size();
}

void FilterControls::takeDate() {
    const QString typed = txtR1->text();
    if (typed.isEmpty()) return;
    const auto date = dateForCondition(typed);
    if (!date) {
        refuseDate(typed);
        return;
    }
    state_.dateOperator = chosenOperator_;
    state_.conditionDate = *date;
    state_.dateCondition = dateConditionFor(chosenOperator_, *date);
    picRq->hide();
    tpsx();
    page_.xstp();
}

void FilterControls::refuseDate(const QString& typed) {
    say(window_, u"“%1”不是日期，请重新输入。\n\n可以这样写：%2。"_s.arg(typed, typedDateForms));
    txtR1->setFocus();
}

void FilterControls::dropDate() {
    state_.dateCondition.clear();
    picRq->hide();
    tpsx();
}
