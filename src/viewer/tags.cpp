#include "viewer/tags.h"

#include "platform/base/conversion.h"

using namespace Qt::Literals::StringLiterals;

namespace {
QString textOf(const Recordset& album, const QString& column) {
    return album.Fields(column).Value().textOr();
}
}  // namespace

QString tagOfRecord(const Recordset& album) {
    const FieldValue date = album.Fields(u"日期"_s).Value();
    const QString when = date.isNull() ? QString() : dateText(date.toDate(), shownDatePattern);
    return u"序号："_s + textOf(album, u"序号"_s) + u' ' + textOf(album, u"大小"_s) + u"KB "_s +
           textOf(album, u"规格"_s) + u' ' + when + u' ' + textOf(album, u"备注"_s);
}
