#include "settings/editing/code_list.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "settings/frame/form_parts.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QRect list(5760, 1300, 3165, 2040);
constexpr int listColumns = 3;
const QRect group(5460, 720, 3765, 3180);
}  // namespace

CodeList::CodeList(const SettingsFrame& frame) : frame_(frame) {
    Frame8 = makeGroup(frame.sstFz, editingTab, u"Frame8"_s, u"选择编号"_s, group, rightColumn + heightens);
    const std::array captions{u"按序号排序"_s, u"按编号排序"_s};
    for (int i = 0; i < 2; ++i) {
        auto& option = optP2.at(i);
        option = make<QRadioButton>(Frame8, element(u"optP2"_s, i), captions.at(i));
        place(option, list.x() - group.x() + 1600 * i, 225, 1500, rowHeight);
        connect(option, &QRadioButton::clicked, this, guarded(frame.form, [this, i] { optP2Click(i); }));
    }
    groupOptions(optP2);
    lblZs = make<QLabel>(Frame8, u"lblZs"_s);
    lblZs->setTextFormat(Qt::PlainText);
    lblZs->setWordWrap(true);
    lblZs->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    place(lblZs, 120, list.y() + list.height() - group.y() + 15, group.width() - 240, 540);
    letGrow(lblZs, widens + movesDown);

    connect(&frame.choices, &ChoiceList::lineClicked, this, guarded(frame.form, [this](const QString& line) {
        if (inFront()) Q_EMIT codeClicked(codeOfLine(line));
    }));
    connect(&frame.choices, &ChoiceList::lineActivated, this, guarded(frame.form, [this](const QString& line) {
        if (inFront()) Q_EMIT codeActivated(codeOfLine(line));
    }));
    connect(frame.sstFz, &QTabWidget::currentChanged, this,
            [this] { frame_.choices.setToolTip(inFront() ? u"双击编号可按编号筛选"_s : QString()); });
}

bool CodeList::inFront() const {
    return frame_.isInFront(editingTab);
}

void CodeList::enter() {
    frame_.choices.putOn(editingTab, list, listColumns, rightColumn + heightens);
    clearOptions(optP2);
    fill(u"tcan"_s);
}

void CodeList::albumChosen() {
    clearOptions(optP2);
    fill(u"SELECT * FROM tcan"_s);
    frame_.choices.setEnabled(true);
}

void CodeList::albumLost() {
    frame_.choices.setEnabled(false);
    lblZs->clear();
    fill(source_);
}

void CodeList::readAgain() {
    frame_.choices.fillAgain(lines());
}

void CodeList::showListing(const QString& text) {
    lblZs->setText(text);
    lblZs->setToolTip(text);
}

/// One line a selection button; those that the album offers carry braces. None where they cannot be read.
QStringList CodeList::lines() const {
    QStringList lines;
    attempt([&] {
        const QString& album = frame_.albums.table();
        for (Recordset buttons = mekTp::catalogue.OpenRecordset(source_); !buttons.Eof(); buttons.MoveNext()) {
            const auto text = [&](const QString& column) { return buttons.Fields(column).Value().textOr(); };
            const bool offered = !album.isEmpty() && offersAlbum(text(u"图册"_s), album);
            lines << codeLine(text(u"编号"_s), text(u"名称"_s), offered);
        }
    });
    return lines;
}

void CodeList::fill(const QString& source) {
    source_ = source;
    frame_.choices.fill(lines());
}

void CodeList::optP2Click(int index) {
    fill(u"SELECT * FROM tcan ORDER BY ["_s + (index == 1 ? u"编号"_s : u"序号"_s) + u']');
}
