#include "catalogue_maker/chapters.h"
#include "help/shipped_manual.h"

using namespace Qt::Literals::StringLiterals;

void fillHelpContents(const Database& database) {
    for (const auto& [number, title] : sectionsOf(shippedManual().text))
        addRow(database, u"tcbz"_s, {{u"编号"_s, number}, {u"标题"_s, title}});
}
