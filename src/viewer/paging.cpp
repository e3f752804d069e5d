#include "viewer/paging.h"

#include "platform/base/conversion.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

Paging::Paging(ViewerState& state, ToolStrip& strip, StatusLine& status, Page& page, FilterControls& filters,
               QWidget* window)
    : state_(state), strip_(strip), status_(status), page_(page), filters_(filters) {
    strip.txtYh->setText(u"0"_s);
    connect(strip.txtYh, &TextBox::textEdited, this, guarded(window, [this] { takePageNumber(); }));
    connect(strip.txtYh, &TextBox::enterPressed, this, guarded(window, [this] {
                const bool isTyped = strip_.txtYh->isModified();
                if (isTyped || numericValue(strip_.txtYh->text()) <= 0) takePageNumber();
                page_.xstp();
            }));
    // The press of the mouse that brings the focus would take the selection away again.
    connect(strip.txtYh, &TextBox::gotFocus, this, [this] {
        strip_.txtYh->selectAll();
        justEntered_ = true;
    });
    connect(strip.txtYh, &TextBox::clicked, this, [this] {
        if (std::exchange(justEntered_, false)) strip_.txtYh->selectAll();
    });
    connect(strip.txtLs, &TextBox::textChanged, this, guarded(window, [this] { changeColumns(); }));
    connect(strip.txtLs, &TextBox::enterPressed, this, guarded(window, [this] { page_.xstp(); }));
}

void Paging::drawAt(int firstIndex, const QString& pageText) {
    state_.firstPictureIndex = firstIndex;
    strip_.txtYh->setText(pageText);
    page_.xstp();
}

void Paging::firstPage() {
    drawAt(0, u"1"_s);
    strip_.tlb1->setEnabled(u"xy"_s, true);
}

void Paging::previousPage() {
    strip_.tlb1->setEnabled(u"xy"_s, true);
    if (state_.firstPictureIndex < state_.picturesPerPage) {
        status_.setPanel(3, u"翻页已到文件头！"_s);
        strip_.tlb1->setEnabled(u"sy"_s, false);
        return;
    }
    drawAt(state_.firstPictureIndex - state_.picturesPerPage, pageText(numericValue(strip_.txtYh->text()) - 1));
}

void Paging::nextPage() {
    strip_.tlb1->setEnabled(u"sy"_s, true);
    if (state_.firstPictureIndex + state_.picturesPerPage >= state_.pictureCount) {
        status_.setPanel(3, u"翻页已到文件尾！"_s);
        strip_.tlb1->setEnabled(u"xy"_s, false);
        return;
    }
    drawAt(state_.firstPictureIndex + state_.picturesPerPage, pageText(numericValue(strip_.txtYh->text()) + 1));
}

// The last view is full: it may overlap the page before it.
void Paging::lastPage() {
    drawAt(state_.pictureCount - state_.picturesPerPage, QString::number(state_.pageCount));
    strip_.tlb1->setEnabled(u"sy"_s, true);
    strip_.tlb1->setEnabled(u"xy"_s, true);
}

void Paging::redraw() {
    page_.xstp();
    strip_.txtYh->setText(pageText(double(state_.firstPictureIndex) / state_.picturesPerPage + 1));
}

void Paging::redrawFromMenu() {
    const double page = numericValue(strip_.txtYh->text());
    strip_.txtYh->setText(pageText(page - double(state_.firstPictureIndex) / state_.picturesPerPage));
    page_.xstp();
}

void Paging::takePageNumber() {
    const double page = numericValue(strip_.txtYh->text());
    if (page > 0) {
        state_.firstPictureIndex = firstIndexOfPage(page, state_.picturesPerPage);
        page_.prepare();
        return;
    }
    strip_.txtYh->setText(u"1"_s);
    strip_.txtYh->selectAll();  // what is typed next replaces it
    state_.firstPictureIndex = 0;
}

void Paging::changeColumns() {
    const int columns = columnsFromText(strip_.txtLs->text());
    if (columns == 0) return;
    state_.picturesPerPage = columns * columns;
    strip_.txtYh->setText(u"1"_s);
    filters_.tpsx();
    for (const QString& key : {u"yd"_s, u"hd"_s}) strip_.tlb1->setEnabled(key, state_.picturesPerPage == 1);
}
