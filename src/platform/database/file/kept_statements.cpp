#include "platform/database/file/kept_statements.h"

#include "platform/base/error.h"

#include <algorithm>

namespace {
constexpr std::size_t mostKept = 24;
}  // namespace

KeptStatements::Use KeptStatements::use(const QString& sql) {
    std::list<Kept> one;
    const auto known = std::ranges::find(free_, sql, &Kept::sql);
    if (known != free_.end())
        one.splice(one.begin(), free_, known);
    else
        one.push_back({sql, SQLite::Statement(database_, sql.toStdString())});
    return {*this, std::move(one)};
}

/// What the last step has said was heard when it was made. One that cannot be made ready is parsed anew next time.
void KeptStatements::giveBack(std::list<Kept> statement) noexcept {
    const bool isReady = attempt([&] {
        statement.front().statement.tryReset();
        statement.front().statement.clearBindings();
    });
    if (isReady) free_.splice(free_.begin(), statement);
    if (free_.size() > mostKept) free_.pop_back();
}
