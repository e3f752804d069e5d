#include "settings/editing_page.h"

#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "settings/editing_rules.h"

#include <QComboBox>
#include <utility>

using namespace Qt::Literals::StringLiterals;

EditingPage::EditingPage(SharedControls& controls, FormState& state, HintLine& hints, PreviewPanel& preview)
    : controls_(controls),
      state_(state),
      hints_(hints),
      codes_(controls, state),
      record_(controls, state, hints, preview),
      renumbering_(controls, state) {
    renumbering_.albumLost();
    renumbering_.mayLeave = [this] { return record_.mayLeave(); };
    connect(&record_, &RecordFrame::filterChosen, this, &EditingPage::listFiltered);
    connect(&record_, &RecordFrame::codesRegistered, &codes_, &CodeList::readAgain);
    connect(&record_, &RecordFrame::recordDeleted, this, &EditingPage::tellAgain);
    connect(&renumbering_, &RenumberingRow::wholeAlbumShown, this, &EditingPage::tellAll);
    connect(&codes_, &CodeList::codeClicked, this, [this](const QString& code) {
        if (record_.isEditing()) record_.appendCode(code);
    });
    connect(&codes_, &CodeList::codeActivated, this, [this](const QString& code) {
        if (!record_.isEditing()) listWithCode(code);
    });
}

void EditingPage::enter() {
    record_.rest();
    hints_.show(u"操作提示：请在左侧选择要编辑的图片"_s);
    codes_.enter();
}

void EditingPage::albumChosen() {
    codes_.albumChosen();
    record_.albumChosen();
    renumbering_.albumChosen();
    tellAll();
}

void EditingPage::albumLost() {
    listing_ = {};
    codes_.albumLost();
    record_.albumLost();
    renumbering_.albumLost();
}

/// To read the current record anew would take away what is typed over it.
bool EditingPage::mayGoTo(int row) {
    return row == controls_.datBj->Recordset().row() ? !record_.isChanged() : record_.mayLeave();
}

void EditingPage::listFiltered(int option) {
    if (!record_.mayLeave()) {
        record_.showFilterAgain();
        return;
    }
    const RecordFilter filter = recordFilter(option);
    list(filteredRecords(state_.albumTable, filter));
    tellListing([filter](const QString& albumLine, int count) { return filterText(albumLine, filter, count); });
}

void EditingPage::listWithCode(const QString& code) {
    list(recordsWithCode(state_.albumTable, code));
    record_.showFilter(-1);
    tellListing([code](const QString& albumLine, int count) { return codeFilterText(albumLine, code, count); });
}

void EditingPage::list(const QString& source) {
    controls_.datBj->setRecordSource(source);
    attempt([&] { controls_.datBj->Refresh(); });
}

void EditingPage::tellAll() {
    record_.showFilter(0);
    const RecordFilter all = recordFilter(0);
    tellListing([all](const QString& albumLine, int count) { return filterText(albumLine, all, count); });
}

void EditingPage::tellListing(ListingText text) {
    listing_ = std::move(text);
    tellAgain();
}

void EditingPage::tellAgain() {
    if (listing_) codes_.showListing(listing_(controls_.cboBm->currentText(), controls_.datBj->total()));
}
