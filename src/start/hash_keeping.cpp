#include "start/hash_keeping.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/input_events.h"
#include "platform/desktop/long_work.h"
#include "settings/backup/backup_run.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

HashKeeping::HashKeeping(const QString& catalogue, const Pace& pace)
    : pace_(pace),
      hashing_(
          catalogue, [this] { return isQuiet(); },
          [this] { QMetaObject::invokeMethod(this, &HashKeeping::storeWhenQuiet, Qt::QueuedConnection); },
          pace.hashing) {
    wait_.setSingleShot(true);
    wait_.callOnTimeout(this, &HashKeeping::storeWhenQuiet);
    QCoreApplication::instance()->installEventFilter(this);
}

bool HashKeeping::eventFilter(QObject* watched, QEvent* event) {
    if (isInput(event->type())) lastInput_ = Clock::now();
    return QObject::eventFilter(watched, event);
}

bool HashKeeping::isQuiet() const {
    return !LongWork::isAnyAtWork() && Clock::now() >= lastInput_.load() + pace_.quiet;
}

/// A copy of the file would begin anew with every change.
void HashKeeping::storeWhenQuiet() {
    if (wait_.isActive()) return;  // what was made meanwhile is stored then, too
    if (!isQuiet() || BackupRun::current() != nullptr) {
        wait_.start(pace_.quiet);
        return;
    }
    std::vector<Proven> batch = hashing_.take();
    if (batch.empty()) return;
    QMap<qint64, Fault> damaged;
    const bool isStored = attempt([&] { damaged = storeProof(mekTp::catalogue, batch); });
    if (!damaged.isEmpty()) Q_EMIT damageFound();
    if (!isStored) hashing_.giveBack(std::move(batch));
    wait_.start(isStored ? pace_.quiet : pace_.again);
}
