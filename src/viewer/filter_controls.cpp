#include "viewer/filter_controls.h"

#include "catalogue/mektp.h"
#include "platform/desktop/message_box.h"

using namespace Qt::Literals::StringLiterals;

FilterControls::FilterControls(Selection& selection, ToolStrip& strip, StatusLine& status, Page& page, QWidget* window,
                               QWidget* form)
    : selection_(selection), strip_(strip), status_(status), page_(page), picRq(new DateDialog(form)) {
    connect(&strip, &ToolStrip::numbersChanged, this, guarded(window, [this] { tpsx(); }));
    connect(&strip, &ToolStrip::numbersEntered, this, guarded(window, [this] { page_.xstp(); }));
    connect(picRq, &DateDialog::dayChosen, this, guarded(window, [this](const DayCondition& day) {
                selection_.setDay(day);
                tpsx();
                page_.xstp();
            }));
    connect(picRq, &DateDialog::dayDropped, this, guarded(window, [this] {
                selection_.setDay({});
                tpsx();
            }));
}

void FilterControls::tpsx() {
    selection_.select(strip_.numberCondition(), page_.picturesPerPage());
    page_.setFirstIndex(0);
    status_.showPage(selection_.line());
    strip_.showPage(u"1"_s);
    page_.prepare();
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
