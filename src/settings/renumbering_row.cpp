#include "settings/renumbering_row.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/renumbering.h"
#include "intake/progress_bar_watch.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/tab_control.h"
#include "settings/editing_rules.h"
#include "settings/form_parts.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rowTopOnPage = 1035, controlHeight = 285;

struct OrderOption {
    QString caption;
    int left;
    int width;
};

}  // namespace

RenumberingRow::RenumberingRow(SharedControls& controls, FormState& state) : controls_(controls), state_(state) {
    TabControl* sstFz = controls.sstFz;
    QWidget* page = sstFz->page(editingTab);
    const std::array options{OrderOption{u"按原序号"_s, 300, 1080}, OrderOption{u"按日期"_s, 1425, 900},
                             OrderOption{u"按编号"_s, 2370, 900}};
    for (int i = 0; i < 3; ++i) {
        const auto& [caption, left, width] = options.at(i);
        auto& option = optP1.at(i);
        option = make<QRadioButton>(page, element(u"optP1"_s, i), caption);
        sstFz->putOn(editingTab, option, left, rowTopOnPage, width, controlHeight);
        connect(option, &QRadioButton::clicked, this, guarded(controls.form, [this, i] { optP1Click(i); }));
    }
    groupOptions(optP1);
    cmdJh = make<QPushButton>(page, u"cmdJh"_s, u"重排序号"_s);
    cmdS1 = make<QPushButton>(page, u"cmdS1"_s, u"表格刷新"_s);
    sstFz->putOn(editingTab, cmdJh, 3360, rowTopOnPage, 990, controlHeight);
    sstFz->putOn(editingTab, cmdS1, 4410, rowTopOnPage, 990, controlHeight);
    connect(cmdJh, &QPushButton::clicked, this, guarded(controls.form, [this] { cmdJhClick(); }));
    connect(cmdS1, &QPushButton::clicked, this, guarded(controls.form, [this] {
                if (mayLeave()) controls_.datBj->Refresh();
            }));
}

bool RenumberingRow::isChangeable() const {
    return !state_.albumTable.isEmpty() && !isDemo(state_.albumTable);
}

void RenumberingRow::albumChosen() {
    for (QRadioButton* option : optP1) option->setEnabled(true);
    cmdJh->setEnabled(isChangeable());
    cmdS1->setEnabled(isChangeable());
}

void RenumberingRow::albumLost() {
    for (QRadioButton* option : optP1) option->setEnabled(false);
    cmdJh->setEnabled(false);
    cmdS1->setEnabled(false);
}

// Shows the album in the order that a renumbering would make its own.
void RenumberingRow::optP1Click(int index) {
    if (!mayLeave()) {
        mark(marked_);
        return;
    }
    order_ = marked_ = index;
    controls_.datBj->setRecordSource(sortedRecords(state_.albumTable, sortColumn(order_)));
    controls_.datBj->Refresh();
    cmdJh->setEnabled(isChangeable());
    Q_EMIT wholeAlbumShown();
}

/// -1 for none of them.
void RenumberingRow::mark(int option) {
    marked_ = option;
    clearOptions(optP1);
    if (option >= 0) optP1.at(static_cast<std::size_t>(option))->setChecked(true);
}

/// With none marked the question names the last option all the same; the order that acts is told below it.
QString RenumberingRow::question() const {
    const QString album = controls_.cboBm->currentText();
    const QString acting = optP1.at(static_cast<std::size_t>(order_))->text();
    return marked_ >= 0 ? renumberingQuestion(album, acting) : renumberingQuestion(album, optP1.back()->text(), acting);
}

void RenumberingRow::cmdJhClick() {
    if (!mayLeave() || !ask(controls_.form, question())) return;
    mark(-1);
    cmdJh->setEnabled(false);
    cmdS1->setEnabled(false);
    const auto atRest = qScopeGuard([this] {
        cmdS1->setEnabled(true);
        cmdJh->setEnabled(true);
    });
    if (const RunReport report = renumber(); !report.cameToEnd) {
        say(controls_.form,
            u"序号没有重排，图册[%1]的序号全都没有改变。\n\n"_s.arg(state_.albumTable) + report.failure);
        return;
    }
    controls_.datBj->setRecordSource(sortedRecords(state_.albumTable, sortColumn(0)));
    attempt([&] { controls_.datBj->Refresh(); });
    Q_EMIT wholeAlbumShown();
    say(controls_.form, u"重新设置序号已经完成！"_s);
}

RunReport RenumberingRow::renumber() {
    controls_.sstFz->putOn(editingTab, controls_.prg2, 720, 1065, 4035, 225);
    ProgressBarWatch watch(controls_.prg2);
    return renumberAlbum(mekTp::catalogue, state_.albumTable, sortColumn(order_), watch);
}
