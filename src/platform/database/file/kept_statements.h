#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QString>
#include <list>

/// Statements of a connection that were parsed before. A run stores thousands of records, and parsing takes as long as
/// storing one. The ones used last are kept; the engine parses one anew when a table has changed meanwhile.
class KeptStatements {
  private:
    struct Kept {
        QString sql;
        SQLite::Statement statement;
    };

  public:
    explicit KeptStatements(SQLite::Database& database) : database_(database) {}

    /// A statement in use. Its end makes it ready for the next one, without values.
    class Use {
      public:
        Use(KeptStatements& owner, std::list<Kept> statement) : owner_(owner), statement_(std::move(statement)) {}
        ~Use() { owner_.giveBack(std::move(statement_)); }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        SQLite::Statement& operator*() { return statement_.front().statement; }
        SQLite::Statement* operator->() { return &statement_.front().statement; }

      private:
        KeptStatements& owner_;
        std::list<Kept> statement_;  ///< One.
    };

    /// Throws the exception of the engine's wrapper.
    Use use(const QString& sql);

  private:
    void giveBack(std::list<Kept> statement) noexcept;

    SQLite::Database& database_;
    std::list<Kept> free_;  ///< The one used last is the first.
};
