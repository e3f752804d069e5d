#include "settings/frame/run_bar.h"

#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/progress_bar_watch.h"
#include "settings/frame/settings_tab.h"

using namespace Qt::Literals::StringLiterals;

RunBar::RunBar(TabControl* sstFz) : sstFz_(sstFz), prg2(make<QProgressBar>(sstFz->page(editingTab), u"prg2"_s)) {
    prg2->hide();
}

RunReport RunBar::during(int page, const QRect& at, const Run& run) {
    sstFz_->putOn(page, prg2, at.x(), at.y(), at.width(), at.height());
    ProgressBarWatch watch(prg2);
    return run(watch);
}

RunReport RunBar::during(const QRect& at, const Run& run) {
    prg2->setParent(sstFz_);
    place(prg2, at.x(), at.y(), at.width(), at.height());
    ProgressBarWatch watch(prg2);
    return run(watch);
}
