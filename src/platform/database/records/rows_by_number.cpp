#include "platform/database/records/rows_by_number.h"

#include "platform/base/error.h"
#include "platform/database/dialect/sql_tokens.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// More numbers than these are not worth a list: the whole column is read.
constexpr std::size_t mostListed = 500;

template <typename Number>
QString listed(const std::vector<Number>& numbers) {
    QStringList texts;
    for (const Number number : numbers) texts << QString::number(number);
    return texts.join(u',');
}

}  // namespace

RowsByNumber::RowsByNumber(const Database& database, const QString& table, const QString& column,
                           const std::vector<qint32>& numbers, const QString& andCondition) {
    const QString name = quotedName(column);
    QString sql = u"SELECT %1 AS number, CAST(_rowid_ AS TEXT) AS place FROM %2"_s.arg(name, quotedName(table));
    if (numbers.size() <= mostListed)
        sql += u" WHERE %1 IN (%2)"_s.arg(name, listed(numbers)) + andCondition;
    else if (!andCondition.isEmpty())
        sql += u" WHERE 1 = 1"_s + andCondition;
    const Recordset all = database.OpenRecordset(sql + u" ORDER BY _rowid_"_s);
    for (int i = 0; i < all.rowCount(); ++i) {
        const std::vector<FieldValue> values = all.valuesAt(i);
        if (const auto* number = std::get_if<qint32>(&values[0].storage()))
            rows_[*number].push_back(values[1].toText().toLongLong());
    }
}

Recordset recordsOfRows(const Database& database, const QString& table, const std::vector<qint64>& rows) {
    return database.OpenRecordset(
        u"SELECT * FROM %1 WHERE _rowid_ IN (%2) ORDER BY _rowid_"_s.arg(quotedName(table), listed(rows)));
}

void RecordsInTurn::open(std::size_t first) {
    const auto begin = rows_.begin() + qsizetype(first);
    looked_.assign(begin, begin + qsizetype(std::min(mostListed, rows_.size() - first)));
    std::ranges::sort(looked_);
    looked_.erase(std::unique(looked_.begin(), looked_.end()), looked_.end());
    first_ = first;
    together_ = recordsOfRows(database_, table_, looked_);
    areAllThere_ = std::size_t(together_.rowCount()) == looked_.size();
}

/// Where some of them were gone, nobody knows which ones. One may go later, too.
const Recordset& RecordsInTurn::at(std::size_t place) {
    if (const std::size_t first = place - place % mostListed; looked_.empty() || first != first_) open(first);
    if (areAllThere_) {
        together_.moveToRow(int(std::ranges::lower_bound(looked_, rows_[place]) - looked_.begin()));
        if (attempt([&] { (void)together_.Fields(0).isNull(); })) return together_;
    }
    alone_ = recordsOfRows(database_, table_, {rows_[place]});
    return alone_;
}

void removeRows(const Database& database, const QString& table, const std::vector<qint64>& rows) {
    Transaction together(database);
    Recordset records = recordsOfRows(database, table, rows);
    for (int row = records.rowCount(); row-- > 0;) {
        records.moveToRow(row);
        records.Delete();
    }
    together.commit();
}
