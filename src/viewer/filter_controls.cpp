#include "viewer/filter_controls.h"

#include "catalogue/mektp.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

FilterControls::FilterControls(Page& page, ToolStrip& strip, StatusLine& status)
    : page_(page), selection_(page.selection()), strip_(strip), status_(status) {
    connect(&page, &Page::columnsChanged, this, guarded(page.window(), [this] { tpsx(); }));
    connect(&strip, &ToolStrip::numbersChanged, this, guarded(page.window(), [this] { tpsx(); }));
    connect(&strip, &ToolStrip::numbersEntered, this, guarded(page.window(), [this] { page_.xstp(); }));
}

void FilterControls::tpsx() {
    selection_.select(strip_.numberCondition(), page_.picturesPerPage());
    page_.setFirstIndex(0);
    status_.showPage(selection_.line());
    strip_.showPage(u"1"_s);
    page_.prepare();
}

void FilterControls::chooseDay(const std::optional<DayCondition>& day) {
    selection_.setDay(day);
    tpsx();
}

void FilterControls::chooseButton(const QString& name) {
    const Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 名称 = "_s + quoted(name));
    // First the code alone: without any condition there is nothing that `tpsx` could select by.
    selection_.chooseCode(row.Fields(u"编号"_s).Value().textOr());
    tpsx();
    page_.xstp();
    const int pictures = selection_.count();
    status_.showAlbum(selection_.title(),
                      u"(%1)[%2] 共 %3 张"_s.arg(mekTp::currentTable, name, QString::number(pictures)));
    status_.showPage(selection_.line() + placeInSelection(pictures == 0 ? 0 : 1));
}
