#include "copy_database.h"

#include "copy_writer.h"

namespace {

JetOutcome copyTables(JetFile& file, CopyWriter& writer) {
    try {
        for (const TablePlace& place : userTables(file)) {
            JetTable table(file, place.page);
            writer.copy(place.name, table);
        }
        writer.finish();
        return JetOutcome::done;
    } catch (const SQLite::Exception& failure) {
        return writer.outcomeOf(failure);
    }
}

}  // namespace

JetOutcome copyDatabase(const std::string& from, const std::string& to) {
    try {
        JetFile file(from);
        CopyWriter writer(to);
        return copyTables(file, writer);
    } catch (const JetFailure& failure) {
        return failure.outcome;
    } catch (const SQLite::Exception&) {
        return JetOutcome::diskFull;  // the very first writes
    } catch (const std::bad_alloc&) {
        return JetOutcome::limitExceeded;
    }
}
