#include "viewer/slide_show.h"

#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

SlideShow::SlideShow(Page& page, ToolStrip& strip) : page_(page), selection_(page.selection()), strip_(strip) {
    tmr2 = new QTimer(page.window());
    tmr2->setObjectName(u"tmr2"_s);
    connect(tmr2, &QTimer::timeout, this, guarded(page.window(), [this] { step(); }));
    // The show needs one picture to a page.
    connect(&page, &Page::columnsChanged, this, [this] {
        if (page_.picturesPerPage() != 1 && isRunning_) stop();
    });
}

void SlideShow::toggle() {
    if (isRunning_)
        stop();
    else
        start();
}

bool SlideShow::isAtEnd() const {
    return !selection_.isOpen() || selection_.records().Eof();
}

void SlideShow::start() {
    if (isAtEnd()) {
        attempt([&] { selection_.records().MoveFirst(); });
        strip_.showPage(u"0"_s);
        page_.setFirstIndex(-1);  // the next step is the first picture
    }
    int interval = 0;
    attempt([&] {
        const Recordset settings = settingsRow();
        attempt([&] { loops_ = settings.Fields(u"幻灯循环"_s).Value().toBool(); });
        interval = settings.Fields(u"幻灯延时"_s).Value().toInteger();
    });
    tmr2->setInterval(std::max(0, interval));
    if (interval > 0) tmr2->start();
    showRunning(true);
}

void SlideShow::stop() {
    tmr2->stop();
    showRunning(false);
}

void SlideShow::showRunning(bool on) {
    isRunning_ = on;
    strip_.showSlideShow(on);
}

void SlideShow::step() {
    if (!isRunning_) tmr2->stop();
    if (!isAtEnd()) {
        if (page_.isShown()) page_.setFirstIndex(page_.firstIndex() + 1);
        page_.xstp();
        return;
    }
    if (!loops_ || !attempt([&] { selection_.records().MoveFirst(); })) {
        stop();
        return;
    }
    page_.setFirstIndex(0);
    page_.xstp();
}
