#include "settings/editing/editing_page.h"

#include "platform/base/error.h"
#include "settings/editing/editing_rules.h"
#include "settings/frame/columns.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

EditingPage::EditingPage(const SettingsFrame& frame, Preview& preview)
    : frame_(frame), codes_(frame), record_(frame, preview), renumbering_(frame) {
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

PageLayout EditingPage::layout() const {
    return {.outerFrame = {0, 0, 255},
            .innerFrame = {0, 255, 0},
            .grid = {300, 1350, 5100, 5150},
            .gridGrowth = leftColumn + heightens,
            .chooser = PageLayout::Chooser{{370, 790}, u"选择图册："_s, {1245, 720}, 4155, leftColumn}};
}

void EditingPage::enter() {
    record_.rest();
    frame_.hints.show(u"操作提示：请在左侧选择要编辑的图片"_s);
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
    return row == frame_.grid.records().row() ? !record_.isChanged() : record_.mayLeave();
}

void EditingPage::catalogueRestored() {
    codes_.readAgain();
    tellAgain();
}

void EditingPage::listFiltered(int option) {
    if (!record_.mayLeave()) {
        record_.showFilterAgain();
        return;
    }
    const RecordFilter filter = recordFilter(option);
    list(filteredRecords(frame_.albums.table(), filter));
    tellListing([filter](const QString& albumLine, int count) { return filterText(albumLine, filter, count); });
}

void EditingPage::listWithCode(const QString& code) {
    list(recordsWithCode(frame_.albums.table(), code));
    record_.showFilter(-1);
    tellListing([code](const QString& albumLine, int count) { return codeFilterText(albumLine, code, count); });
}

void EditingPage::list(const QString& source) {
    attempt([&] { frame_.grid.list(source); });
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
    if (listing_) codes_.showListing(listing_(frame_.albums.line(), frame_.grid.total()));
}
