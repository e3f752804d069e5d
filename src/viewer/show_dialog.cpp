#include "viewer/show_dialog.h"

#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QStyle>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

ShowDialog::ShowDialog(QWidget* form) : SmallDialog(form, u"picYc"_s, 4500, 2250) {
    lblCc = addLabel(u"lblCc"_s, u"幻灯延迟时间：500 毫秒"_s, 240, 150, 3600);
    addCloseButton(u"cmdX0"_s);
    buildSlider();
    chkYc = make<QCheckBox>(this, u"chkYc"_s);
    chkYc->setText(u"循环显示"_s);
    place(chkYc, 270, 1155, 1500, 300);
    connect(addButton(u"cmdQ1"_s, u"确定(&Q)"_s, 1740, 1620, 1200), &QPushButton::clicked, this,
            guarded(form->window(), [this] { store(); }));
    connect(addButton(u"cmdX1"_s, u"取消(&X)"_s, 3060, 1620, 1200), &QPushButton::clicked, this, &QWidget::hide);
}

void ShowDialog::buildSlider() {
    sliSj = make<QSlider>(this, u"sliSj"_s, Qt::Horizontal);
    sliSj->setRange(0, 5000);
    sliSj->setSingleStep(1);
    sliSj->setPageStep(5);
    sliSj->setValue(500);
    sliSj->setTickPosition(QSlider::TicksBelow);
    sliSj->setTickInterval(500);
    sliSj->setAccessibleName(u"幻灯延迟时间（毫秒）"_s);
    connect(sliSj, &QSlider::valueChanged, this, [this](int value) { showInterval(value); });
    place(sliSj, 240, 600, 4020, 450);
}

// Over the handle, while it is moved.
void ShowDialog::showInterval(int milliseconds) {
    const QString text = u"%1 毫秒"_s.arg(milliseconds);
    sliSj->setToolTip(text);
    if (!sliSj->isVisible()) return;
    const int x = QStyle::sliderPositionFromValue(sliSj->minimum(), sliSj->maximum(), milliseconds, sliSj->width());
    QToolTip::showText(sliSj->mapToGlobal(QPoint(x, sliSj->height() / 2)), text, sliSj);
}

void ShowDialog::open() {
    attempt([&] {
        const Recordset settings = settingsRow();
        attempt([&] { chkYc->setChecked(settings.Fields(u"幻灯循环"_s).Value().toBool()); });
        const int interval = settings.Fields(u"幻灯延时"_s).Value().toInteger();
        sliSj->setValue(interval);
        lblCc->setText(u"幻灯延迟时间：%1 毫秒"_s.arg(interval));
    });
    openAt((widthOf(window()) - widthOf(this)) / 2, (heightOf(window()) - heightOf(this)) / 2);
}

void ShowDialog::store() {
    Recordset settings = settingsRow();
    settings.Edit();
    settings.Fields(u"幻灯延时"_s).SetValue(sliSj->value());
    settings.Fields(u"幻灯循环"_s).SetValue(chkYc->isChecked());
    settings.Update();
    hide();
}
