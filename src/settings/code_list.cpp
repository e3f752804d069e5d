#include "settings/code_list.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/tab_control.h"
#include "settings/editing_rules.h"
#include "settings/form_parts.h"

#include <QScrollBar>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int listLeft = 5760, listTop = 1300, listWidth = 3165, listHeight = 2040;
constexpr int listColumns = 3;
const QRect frame(5460, 720, 3765, 3180);
}  // namespace

CodeList::CodeList(SharedControls& controls, FormState& state) : controls_(controls), state_(state) {
    Frame8 = makeGroup(controls.sstFz, editingTab, u"Frame8"_s, u"选择编号"_s, frame);
    const std::array captions{u"按序号排序"_s, u"按编号排序"_s};
    for (int i = 0; i < 2; ++i) {
        auto& option = optP2.at(i);
        option = make<QRadioButton>(Frame8, element(u"optP2"_s, i), captions.at(i));
        place(option, listLeft - frame.x() + 1600 * i, 225, 1500, rowHeight);
        connect(option, &QRadioButton::clicked, this, guarded(controls.form, [this, i] { optP2Click(i); }));
    }
    groupOptions(optP2);
    lblZs = make<QLabel>(Frame8, u"lblZs"_s);
    lblZs->setTextFormat(Qt::PlainText);
    lblZs->setWordWrap(true);
    lblZs->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    place(lblZs, 120, listTop + listHeight - frame.y() + 15, frame.width() - 240, 540);

    const ListBox* lstBh = controls.lstBh;
    connect(lstBh, &ListBox::lineClicked, this, guarded(controls.form, [this](int line) {
                if (inFront()) Q_EMIT codeClicked(codeOfLine(controls_.lstBh->List(line)));
            }));
    connect(lstBh, &ListBox::lineActivated, this, guarded(controls.form, [this](int line) {
                if (inFront()) Q_EMIT codeActivated(codeOfLine(controls_.lstBh->List(line)));
            }));
    connect(controls.sstFz, &QTabWidget::currentChanged, this,
            [this] { controls_.lstBh->setToolTip(inFront() ? u"双击编号可按编号筛选"_s : QString()); });
}

bool CodeList::inFront() const {
    return controls_.sstFz->currentIndex() == editingTab;
}

void CodeList::enter() {
    ListBox* lstBh = controls_.lstBh;
    lstBh->setColumns(listColumns);
    controls_.sstFz->putOn(editingTab, lstBh, listLeft, listTop, listWidth, listHeight);
    lstBh->raise();
    clearOptions(optP2);
    attempt([&] { fill(u"tcan"_s); });
}

void CodeList::albumChosen() {
    clearOptions(optP2);
    attempt([&] { fill(u"SELECT * FROM tcan"_s); });
    controls_.lstBh->setEnabled(true);
}

void CodeList::albumLost() {
    controls_.lstBh->setEnabled(false);
    lblZs->clear();
    attempt([&] { fill(source_); });
}

void CodeList::readAgain() {
    QScrollBar* bar = controls_.lstBh->horizontalScrollBar();
    const int place = bar->value();
    const int line = controls_.lstBh->currentRow();
    attempt([&] { fill(source_); });
    controls_.lstBh->setCurrentRow(line);
    bar->setValue(place);
}

void CodeList::showListing(const QString& text) {
    lblZs->setText(text);
    lblZs->setToolTip(text);
}

/// One line a selection button; those that the album offers carry braces.
void CodeList::fill(const QString& source) {
    source_ = source;
    ListBox* lstBh = controls_.lstBh;
    lstBh->clear();
    for (Recordset buttons = mekTp::catalogue.OpenRecordset(source); !buttons.Eof(); buttons.MoveNext()) {
        const auto text = [&](const QString& column) { return buttons.Fields(column).Value().textOr(); };
        const bool offered = !state_.albumTable.isEmpty() && offersAlbum(text(u"图册"_s), state_.albumTable);
        lstBh->AddItem(codeLine(text(u"编号"_s), text(u"名称"_s), offered));
    }
}

void CodeList::optP2Click(int index) {
    fill(u"SELECT * FROM tcan ORDER BY ["_s + (index == 1 ? u"编号"_s : u"序号"_s) + u']');
}
