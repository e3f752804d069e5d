#include "settings/editing/renumbering_row.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/renumbering.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "settings/editing/editing_rules.h"
#include "settings/frame/form_parts.h"

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

RenumberingRow::RenumberingRow(const SettingsFrame& frame) : frame_(frame) {
    TabControl* sstFz = frame.sstFz;
    QWidget* page = sstFz->page(editingTab);
    const std::array options{OrderOption{u"按原序号"_s, 300, 1080}, OrderOption{u"按日期"_s, 1425, 900},
                             OrderOption{u"按编号"_s, 2370, 900}};
    for (int i = 0; i < 3; ++i) {
        const auto& [caption, left, width] = options.at(i);
        auto& option = optP1.at(i);
        option = make<QRadioButton>(page, element(u"optP1"_s, i), caption);
        sstFz->putOn(editingTab, option, left, rowTopOnPage, width, controlHeight);
        connect(option, &QRadioButton::clicked, this, guarded(frame.form, [this, i] { optP1Click(i); }));
    }
    groupOptions(optP1);
    cmdJh = make<QPushButton>(page, u"cmdJh"_s, u"重排序号"_s);
    cmdS1 = make<QPushButton>(page, u"cmdS1"_s, u"表格刷新"_s);
    sstFz->putOn(editingTab, cmdJh, 3360, rowTopOnPage, 990, controlHeight);
    sstFz->putOn(editingTab, cmdS1, 4410, rowTopOnPage, 990, controlHeight);
    connect(cmdJh, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdJhClick(); }));
    connect(cmdS1, &QPushButton::clicked, this, guarded(frame.form, [this] {
                if (mayLeave()) frame_.grid.listAgain();
            }));
}

bool RenumberingRow::isChangeable() const {
    return !frame_.albums.table().isEmpty() && !isDemo(frame_.albums.table());
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
    frame_.grid.listAlbum(frame_.albums.table(), sortColumn(order_));
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
    const QString album = frame_.albums.line();
    const QString acting = optP1.at(static_cast<std::size_t>(order_))->text();
    return marked_ >= 0 ? renumberingQuestion(album, acting) : renumberingQuestion(album, optP1.back()->text(), acting);
}

void RenumberingRow::cmdJhClick() {
    if (!mayLeave() || !ask(frame_.form, question())) return;
    mark(-1);
    cmdJh->setEnabled(false);
    cmdS1->setEnabled(false);
    const auto renumber = [catalogue = mekTp::cataloguePath(), table = frame_.albums.table(),
                           order = sortColumn(order_)](RunWatch& watch) {
        return renumberAlbum(OpenDatabase(catalogue), table, order, watch);
    };
    frame_.runBar.start({{720, 1065, 4035, 225}, editingTab}, {u"重排"_s}, renumber,
                        [this](const RunReport& report) { finish(report); });
}

void RenumberingRow::finish(const RunReport& report) {
    const auto atRest = qScopeGuard([this] {
        cmdS1->setEnabled(true);
        cmdJh->setEnabled(true);
    });
    if (!report.cameToEnd) {
        const QString unchanged = u"序号没有重排，图册[%1]的序号全都没有改变。"_s.arg(frame_.albums.table());
        say(frame_.form, report.failure.isEmpty() ? unchanged : unchanged + u"\n\n"_s + report.failure);
        return;
    }
    attempt([&] { frame_.grid.listAlbum(frame_.albums.table(), sortColumn(0)); });
    Q_EMIT wholeAlbumShown();
    say(frame_.form, u"重新设置序号已经完成！"_s);
}
