#pragma once

#include "jet_failure.h"
#include "jet_table.h"

#include <SQLiteCpp/SQLiteCpp.h>

/// Writes tables into an SQLite file as the album's own files hold them: columns declared with their types and lengths,
/// long-binary values in a side table. Failures of the engine are thrown as its own exception.
class CopyWriter {
  public:
    enum class LongValues { whole, hashes };
    CopyWriter(const std::string& path, LongValues longValues);

    /// Copies the remaining rows, and sends signs of progress. What cannot be read of them is noted.
    void copy(const std::string& name, JetTable& table);
    /// A row of `readingNotesTable`.
    struct Note {
        std::string kind;
        std::string name = {};
        std::string field = {};
        int64_t number = 0;
    };
    void note(const Note& note);
    void finish();

    /// What a failure of the engine means for the reading.
    JetOutcome outcomeOf(const SQLite::Exception& failure) const;

  private:
    void copyRow(const std::string& name, const JetTable& table, SQLite::Statement& insertRow);
    JetValue valueOrNothing(const JetTable& table, size_t column, std::vector<size_t>& lost) const;
    int64_t store(const std::vector<unsigned char>& bytes);

    LongValues longValues_;
    SQLite::Database database_;
    SQLite::Statement insertBytes_;
    SQLite::Statement insertNote_;
};
