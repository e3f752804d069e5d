#include "viewer/date_dialog.h"

#include "platform/base/typed_date.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"

#include <QSignalBlocker>
#include <utility>

using namespace Qt::Literals::StringLiterals;

DateDialog::DateDialog(QWidget* form) : SmallDialog(form, u"picRq"_s, 4050, 2400) {
    addLabel(u"lblRq"_s, u"请设置筛选日期"_s, 180, 120, 3000);
    addCloseButton(u"cmdS0"_s);
    buildOptions();
    addLabel(u"lblR1"_s, u"日期录入："_s, 300, 1140, 1050);
    txtR1 = make<TextBox>(this, u"txtR1"_s);
    place(txtR1, 1350, 1125, 2400, 330);
    txtR1->setLocked(true);
    connect(txtR1, &TextBox::textChanged, this, &DateDialog::helpTyping);
    connect(txtR1, &TextBox::enterPressed, this, &DateDialog::takeDay);

    connect(addButton(u"cmdRq"_s, u"确 定"_s, 180, 1770, 1140), &QPushButton::clicked, this, &DateDialog::takeDay);
    connect(addButton(u"cmdRx"_s, u"取 消"_s, 1455, 1770, 1140), &QPushButton::clicked, this, &QWidget::hide);
    connect(addButton(u"cmdRy"_s, u"任意日期"_s, 2730, 1770, 1140), &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT dayDropped();
    });
}

void DateDialog::buildOptions() {
    const std::array<QString, 3> captions{u"早于"_s, u"晚于"_s, u"等于"_s};
    for (size_t i = 0; i < optRq.size(); ++i) {
        optRq[i] = make<QRadioButton>(this, element(u"optRq"_s, int(i)));
        optRq[i]->setText(captions[i]);
        place(optRq[i], 300 + int(i) * 1200, 600, 1050, 300);
        connect(optRq[i], &QRadioButton::clicked, this, [this, i] {
            relation_ = DateRelation(i);
            txtR1->setLocked(false);
            txtR1->setFocus();
        });
    }
    groupOptions(optRq);
}

void DateDialog::open() {
    clearOptions(optRq);
    txtR1->setLocked(true);
    txtR1->clear();
    openAt(1900, 500);
}

// Only a growing text gets help, so that the backspace key can delete what the help has added.
void DateDialog::helpTyping() {
    const QString typed = txtR1->text();
    const int grown = int(typed.size() - std::exchange(typedLength_, typed.size()));
    if (grown <= 0) return;
    const TypedDate helped = helpTypedDate({typed, txtR1->cursorPosition()}, grown);
    const QSignalBlocker silence(txtR1);
    if (helped.text != typed) txtR1->setText(helped.text);
    txtR1->setCursorPosition(helped.caret);
    typedLength_ = helped.text.size();
}

void DateDialog::takeDay() {
    const QString typed = txtR1->text();
    if (typed.isEmpty()) return;
    const auto day = dayCondition(relation_, typed);
    if (!day) {
        refuseDay(typed);
        return;
    }
    hide();
    Q_EMIT dayChosen(*day);
}

void DateDialog::refuseDay(const QString& typed) {
    say(window(), u"“%1”不是日期，请重新输入。\n\n可以这样写：%2。"_s.arg(typed, typedDateForms));
    txtR1->setFocus();
}
