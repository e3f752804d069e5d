#include "catalogue/colour_scheme.h"

#include "catalogue/colour_text.h"
#include "catalogue/mektp.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

ColourScheme storedScheme(const QString& number) {
    const Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcys WHERE 序号 = "_s + quoted(number));
    const auto colour = [&row](const QString& column) {
        QColor found;
        attempt([&] { found = colourFromText(row.Fields(column).Value().toText()); });
        return found;
    };
    return {colour(u"窗体"_s), colour(u"外框"_s), colour(u"填充"_s), colour(u"内框"_s)};
}

ColourScheme activeScheme() {
    return storedScheme(setting(u"颜色"_s).toText());
}
