#include "start/bin_keeping.h"

#include "catalogue/bin_contents.h"
#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "platform/base/error.h"
#include "platform/desktop/long_work.h"
#include "settings/backup/backup_run.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QString daysName = u"bin.days"_s;
}  // namespace

BinKeeping::BinKeeping(const Pace& pace) : pace_(pace) {
    next_.setSingleShot(true);
    next_.callOnTimeout(this, &BinKeeping::work);
    next_.start(pace_.start);
}

/// The last day on which the program was used with something in its bin, before this one; the two days are remembered.
QDate BinKeeping::dayBefore(const QDate& today) const {
    const QString now = today.toString(Qt::ISODate);
    const QString days = remembered::text(daysName);
    const QString last = days.section(u' ', 1, 1);
    if (last == now) return QDate::fromString(days.section(u' ', 0, 0), Qt::ISODate);
    remembered::setText(daysName, (last.isEmpty() ? now : last) + u' ' + now);
    return QDate::fromString(last, Qt::ISODate);
}

void BinKeeping::work() {
    bool isMore = false;
    const bool isBusy = LongWork::isAnyAtWork() || BackupRun::current() != nullptr;
    attempt([&] {
        if (isBusy || !mekTp::catalogue.isOpen() || isBinEmpty(mekTp::catalogue)) return;
        const QDate today = pace_.today();
        const QDate before = dayBefore(today);
        if (!before.isValid()) return;
        const std::vector<qint64> items = expiredBinItems(mekTp::catalogue, today, before);
        removeFromBin(mekTp::catalogue, items);
        isMore = !items.empty();
    });
    next_.start(isMore || isBusy ? pace_.between : pace_.again);
}
