#include "catalogue/next_number.h"

#include "platform/base/error.h"

#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

NextNumber::NextNumber(const Database& database, const QString& table) {
    const Recordset rows = database.OpenRecordset(u"SELECT MAX([序号]) AS 最大 FROM ["_s + table + u']');
    const FieldValue highest = rows.Fields(0).Value();
    if (!highest.isNull()) number_ = std::max<qint64>(highest.toInteger(), 0) + 1;
}

int NextNumber::value() const {
    if (number_ > std::numeric_limits<qint32>::max()) throw Error(u"图册的序号已用完，请先重排序号。"_s);
    return int(number_);
}
