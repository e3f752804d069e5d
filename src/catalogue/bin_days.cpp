#include "catalogue/bin_days.h"

#include <QStringList>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int mostForOne = 7;         ///< Days that one day of use counts for.
constexpr std::size_t mostDays = 60;  ///< Remembered: more than any item needs.
}  // namespace

BinDays::BinDays(const QString& text) {
    for (const QString& entry : text.split(u' ', Qt::SkipEmptyParts)) {
        const Day day{QDate::fromString(entry.section(u':', 0, 0), Qt::ISODate), entry.section(u':', 1, 1).toInt(),
                      entry.section(u':', 2, 2).toLongLong()};
        const bool follows = days_.empty() || day.counted >= days_.back().counted;
        if (entry.count(u':') == 2 && day.date.isValid() && follows) days_.push_back(day);
    }
}

QString BinDays::text() const {
    QStringList entries;
    for (const Day& day : days_)
        entries << u"%1:%2:%3"_s.arg(day.date.toString(Qt::ISODate)).arg(day.counted).arg(day.newestRemoval);
    return entries.join(u' ');
}

/// A date that was seen already is that of a clock which goes back and forth.
void BinDays::use(const QDate& today, qint64 newestRemoval) {
    if (!days_.empty() && days_.back().date == today) {
        days_.back().newestRemoval = newestRemoval;
        return;
    }
    if (std::ranges::find(days_, today, &Day::date) != days_.end()) return;
    const int before = days_.empty() ? 0 : days_.back().counted;
    days_.push_back({today, before + daysCounted(today), newestRemoval});
    if (days_.size() > mostDays) days_.erase(days_.begin());
}

/// Since the nearest earlier date. A step back corrects a clock, or belongs to another computer: it counts for nothing.
int BinDays::daysCounted(const QDate& today) const {
    if (days_.empty() || today < days_.back().date) return 0;
    QDate nearest = days_.back().date;
    for (const Day& day : days_)
        if (day.date < today) nearest = std::max(nearest, day.date);
    return int(std::min<qint64>(nearest.daysTo(today), mostForOne));
}

qint64 BinDays::inBinFor(int days) const {
    qint64 removal = 0;
    for (const Day& day : days_)
        if (days_.back().counted - day.counted > days) removal = day.newestRemoval;
    return removal;
}
