#include "viewer/paging.h"

#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

Paging::Paging(Page& page, ToolStrip& strip, StatusLine& status) : page_(page), strip_(strip), status_(status) {
    QWidget* window = page.window();
    connect(&strip, &ToolStrip::pageTyped, this, guarded(window, [this] { takePageNumber(); }));
    connect(&strip, &ToolStrip::pageEntered, this, guarded(window, [this](bool isTyped) {
        if (isTyped || strip_.page() <= 0) takePageNumber();
        page_.xstp();
    }));
    connect(&strip, &ToolStrip::columnsChanged, this,
            guarded(window, [this](const QString& text) { changeColumns(columnsFromText(text)); }));
    connect(&strip, &ToolStrip::columnsEntered, this, guarded(window, [this] { page_.xstp(); }));
}

void Paging::drawAt(int firstIndex, const QString& pageText) {
    page_.setFirstIndex(firstIndex);
    strip_.showPage(pageText);
    page_.xstp();
}

void Paging::firstPage() {
    drawAt(0, u"1"_s);
    strip_.offer(u"xy"_s, true);
}

void Paging::previousPage() {
    strip_.offer(u"xy"_s, true);
    if (page_.firstIndex() < page_.picturesPerPage()) {
        status_.showPage(u"翻页已到文件头！"_s);
        strip_.offer(u"sy"_s, false);
        return;
    }
    drawAt(page_.firstIndex() - page_.picturesPerPage(), pageText(strip_.page() - 1));
}

void Paging::nextPage() {
    strip_.offer(u"sy"_s, true);
    if (page_.firstIndex() + page_.picturesPerPage() >= page_.selection().count()) {
        status_.showPage(u"翻页已到文件尾！"_s);
        strip_.offer(u"xy"_s, false);
        return;
    }
    drawAt(page_.firstIndex() + page_.picturesPerPage(), pageText(strip_.page() + 1));
}

// The last view is full: it may overlap the page before it.
void Paging::lastPage() {
    const int pictures = page_.selection().count();
    drawAt(pictures - page_.picturesPerPage(), QString::number(pagesFor(pictures, page_.picturesPerPage())));
    strip_.offer(u"sy"_s, true);
    strip_.offer(u"xy"_s, true);
}

void Paging::redraw() {
    page_.xstp();
    strip_.showPage(pageText(double(page_.firstIndex()) / page_.picturesPerPage() + 1));
}

void Paging::redrawFromMenu() {
    strip_.showPage(pageText(strip_.page() - double(page_.firstIndex()) / page_.picturesPerPage()));
    page_.xstp();
}

void Paging::takePageNumber() {
    const double page = strip_.page();
    if (page > 0) {
        page_.setFirstIndex(firstIndexOfPage(page, page_.picturesPerPage()));
        page_.prepare();
        return;
    }
    strip_.showPage(u"1"_s);
    strip_.selectPage();  // what is typed next replaces it
    page_.setFirstIndex(0);
}

void Paging::changeColumns(int columns) {
    if (columns == 0) return;
    page_.setColumns(columns);
    for (const QString& key : {u"yd"_s, u"hd"_s}) strip_.offer(key, columns == 1);
}
