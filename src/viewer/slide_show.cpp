#include "viewer/slide_show.h"

#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "viewer/settings_row.h"
#include "viewer/small_dialog.h"

#include <QStyle>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

SlideShow::SlideShow(ViewerState& state, ToolStrip& strip, Page& page, QWidget* window, QWidget* form)
    : picYc(makeSmallDialog(form, u"picYc"_s, 4500, 2250)), state_(state), strip_(strip), page_(page), window_(window) {
    tmr2 = new QTimer(window);
    tmr2->setObjectName(u"tmr2"_s);
    connect(tmr2, &QTimer::timeout, this, guarded(window, [this] { step(); }));
    // One picture to a page is what the show steps through.
    connect(strip.txtLs, &TextBox::textChanged, this, [this] {
        if (state_.picturesPerPage != 1 && isRunning()) stop();
    });
    buildDialog();
}

void SlideShow::buildDialog() {
    lblCc = makeDialogLabel(picYc, u"lblCc"_s, u"幻灯延迟时间：500 毫秒"_s, 240, 150, 3600);
    auto* cmdX0 = makeCloseButton(picYc, u"cmdX0"_s);
    sliSj = make<QSlider>(picYc, u"sliSj"_s, Qt::Horizontal);
    sliSj->setRange(0, 5000);
    sliSj->setSingleStep(1);
    sliSj->setPageStep(5);
    sliSj->setValue(500);
    sliSj->setTickPosition(QSlider::TicksBelow);
    sliSj->setTickInterval(500);
    sliSj->setAccessibleName(u"幻灯延迟时间（毫秒）"_s);
    connect(sliSj, &QSlider::valueChanged, this, [this](int value) { tellInterval(value); });
    place(sliSj, 240, 600, 4020, 450);
    chkYc = make<QCheckBox>(picYc, u"chkYc"_s);
    chkYc->setText(u"循环显示"_s);
    place(chkYc, 270, 1155, 1500, 300);
    auto* cmdQ1 = makeDialogButton(picYc, u"cmdQ1"_s, u"确定(&Q)"_s, 1740, 1620, 1200);
    auto* cmdX1 = makeDialogButton(picYc, u"cmdX1"_s, u"取消(&X)"_s, 3060, 1620, 1200);
    connect(cmdQ1, &QPushButton::clicked, this, guarded(window_, [this] { store(); }));
    connect(cmdX1, &QPushButton::clicked, picYc, &QWidget::hide);
    connect(cmdX0, &QPushButton::clicked, picYc, &QWidget::hide);
}

/// Over the handle, while it is moved.
void SlideShow::tellInterval(int milliseconds) {
    const QString text = u"%1 毫秒"_s.arg(milliseconds);
    sliSj->setToolTip(text);
    if (!sliSj->isVisible()) return;
    const int x = QStyle::sliderPositionFromValue(sliSj->minimum(), sliSj->maximum(), milliseconds, sliSj->width());
    QToolTip::showText(sliSj->mapToGlobal(QPoint(x, sliSj->height() / 2)), text, sliSj);
}

void SlideShow::toggle() {
    if (isRunning())
        stop();
    else
        start();
}

bool SlideShow::isAtEnd() const {
    bool atEnd = true;
    attempt([&] { atEnd = state_.albumRecordset.Eof(); });
    return atEnd;
}

void SlideShow::start() {
    if (isAtEnd()) {
        attempt([&] { state_.albumRecordset.MoveFirst(); });
        strip_.txtYh->setText(u"0"_s);
        state_.firstPictureIndex = -1;  // the next step is the first picture
    }
    int interval = 0;
    attempt([&] {
        const Recordset settings = settingsRow();
        attempt([&] { state_.slideLoop = settings.Fields(u"幻灯循环"_s).Value().toBool(); });
        interval = settings.Fields(u"幻灯延时"_s).Value().toInteger();
    });
    tmr2->setInterval(std::max(0, interval));
    if (interval > 0) tmr2->start();
    strip_.tlb1->setImage(u"hd"_s, u"hb"_s);
    strip_.tlb1->setToolTip(u"hd"_s, u"关闭幻灯"_s);
}

void SlideShow::stop() {
    tmr2->stop();
    strip_.tlb1->setImage(u"hd"_s, u"hd"_s);
    strip_.tlb1->setToolTip(u"hd"_s, u"幻灯"_s);
}

void SlideShow::step() {
    if (!isRunning()) tmr2->stop();
    if (!isAtEnd()) {
        if (state_.pageShown) state_.firstPictureIndex += 1;
        page_.xstp();
        return;
    }
    if (!state_.slideLoop || !attempt([&] { state_.albumRecordset.MoveFirst(); })) {
        stop();
        return;
    }
    state_.firstPictureIndex = 0;
    page_.xstp();
}

void SlideShow::openDialog() {
    attempt([&] {
        const Recordset settings = settingsRow();
        attempt([&] { chkYc->setChecked(settings.Fields(u"幻灯循环"_s).Value().toBool()); });
        const int interval = settings.Fields(u"幻灯延时"_s).Value().toInteger();
        sliSj->setValue(interval);
        lblCc->setText(u"幻灯延迟时间：%1 毫秒"_s.arg(interval));
    });
    place(picYc, (widthOf(window_) - widthOf(picYc)) / 2, (heightOf(window_) - heightOf(picYc)) / 2);
    picYc->show();
    picYc->raise();
}

void SlideShow::store() {
    Recordset settings = settingsRow();
    settings.Edit();
    settings.Fields(u"幻灯延时"_s).SetValue(sliSj->value());
    settings.Fields(u"幻灯循环"_s).SetValue(chkYc->isChecked());
    settings.Update();
    picYc->hide();
}
