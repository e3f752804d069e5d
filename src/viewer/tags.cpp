#include "viewer/tags.h"

#include "platform/base/conversion.h"

using namespace Qt::Literals::StringLiterals;

namespace {
QString textOf(const Recordset& album, int row, const QString& column) {
    return album.valueAt(row, column).textOr();
}
}  // namespace

QString tagOfRecord(const Recordset& album, int row) {
    const FieldValue date = album.valueAt(row, u"日期"_s);
    const QString when = date.isNull() ? QString() : dateText(date.toDate(), shownDatePattern);
    return u"序号："_s + textOf(album, row, u"序号"_s) + u' ' + textOf(album, row, u"大小"_s) + u"KB "_s +
           textOf(album, row, u"规格"_s) + u' ' + when + u' ' + textOf(album, row, u"备注"_s);
}
