#include "platform/database/records/values_ahead.h"

#include "platform/base/error.h"
#include "platform/database/file/connection.h"

#include <limits>
#include <utility>

namespace {
/// Of every value this comes first: small pictures are whole then, and large ones have a preview there.
constexpr qint64 beginning = 128 << 10;
}  // namespace

ValuesAhead::ValuesAhead() : thread_([this](const std::stop_token& stop) { work(stop); }) {}

void ValuesAhead::ask(const QString& file, std::vector<qint64> values) {
    {
        const std::lock_guard lock(mutex_);
        file_ = file;
        values_ = std::move(values);
    }
    asked_.notify_one();
}

void ValuesAhead::work(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (asked_.wait(lock, stop, [this] { return !values_.empty(); })) {
        const std::vector<qint64> values = std::exchange(values_, {});
        const QString file = file_;
        lock.unlock();
        attempt([&] { bring(file, values, stop); });
        lock.lock();
    }
}

void ValuesAhead::bring(const QString& file, const std::vector<qint64>& values, const std::stop_token& stop) {
    for (const qint64 most : {beginning, std::numeric_limits<qint64>::max()}) {
        const std::shared_ptr<Connection> connection = Connection::open(file);
        for (const qint64 value : values) {
            if (hasMore() || stop.stop_requested()) return;
            attempt([&] { connection->longBinaries().askFor(value, most); });
        }
    }
}

/// Something else is wanted by now.
bool ValuesAhead::hasMore() {
    const std::lock_guard lock(mutex_);
    return !values_.empty();
}
