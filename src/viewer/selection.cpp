#include "viewer/selection.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "viewer/page_layout.h"

using namespace Qt::Literals::StringLiterals;

void Selection::open(const QString& table, const QString& title) {
    records_ = mekTp::catalogue.OpenRecordset(buttonSql(table, allPicturesCode));
    mekTp::currentTable = table;
    title_ = title;
    countAll();
    line_ = u"全部"_s;
}

void Selection::close() {
    const auto day = conditions_.day;
    *this = Selection();
    conditions_.day = day;
    title_ = presetTitle;
    mekTp::currentTable = demoTable;
}

void Selection::chooseCode(const QString& code) {
    conditions_.code = code;
    records_ = mekTp::catalogue.OpenRecordset(buttonSql(mekTp::currentTable, code));
    isNarrowed_ = false;
}

void Selection::select(const QString& number, int picturesPerPage) {
    conditions_.number = number;
    if (const auto sql = selectionSql(mekTp::currentTable, conditions_))
        attempt([&] {
            records_ = mekTp::catalogue.OpenRecordset(*sql);
            isNarrowed_ = conditions_.day || !number.isEmpty();
        });
    countAll();
    line_ = pageStatus(conditions_, isNarrowed_, count_, pagesFor(count_, picturesPerPage));
}

void Selection::countAll() {
    count_ = 0;
    attempt([&] {
        count_ = records_.rowCount();
        if (count_ > 0) records_.MoveFirst();
    });
}
