#include "start/bin_keeping.h"

#include "catalogue/bin_contents.h"
#include "catalogue/bin_days.h"
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

/// Notes the day, and tells which removals have been in the bin long enough.
qint64 BinKeeping::lastOver() const {
    const QString before = remembered::text(daysName);
    BinDays days(before);
    days.use(pace_.today(), Bin(mekTp::catalogue).newestRemoval());
    if (const QString now = days.text(); now != before) remembered::setText(daysName, now);
    return days.inBinFor(binDays);
}

void BinKeeping::work() {
    bool isMore = false;
    const bool isBusy = LongWork::isAnyAtWork() || BackupRun::current() != nullptr;
    attempt([&] {
        if (isBusy || !mekTp::catalogue.isOpen() || isBinEmpty(mekTp::catalogue)) return;
        const std::vector<qint64> items = binItemsUpTo(mekTp::catalogue, lastOver());
        removeFromBin(mekTp::catalogue, items);
        isMore = !items.empty();
    });
    next_.start(isMore || isBusy ? pace_.between : pace_.again);
}
