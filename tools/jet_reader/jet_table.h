#pragma once

#include "jet_file.h"

#include <variant>

struct JetColumn {
    std::string name;
    int type = 0;  ///< One of the library's `MDB_…` numbers.
    int size = 0;  ///< Characters of a text, bytes of a binary value.
    int scale = 0;
};

/// Null, a whole number or truth value, a real one, a text, or bytes.
using JetValue = std::variant<std::monostate, int64_t, double, std::string, std::vector<unsigned char>>;

/// One table, and the row of it that is being read. Only one table of a file can be read at a time.
class JetTable {
  public:
    JetTable(JetFile& file, unsigned long definitionPage);

    const std::vector<JetColumn>& columns() const { return columns_; }

    /// Goes to the next row; false behind the last one. Throws `JetFailure` when rows are missing.
    bool next();
    JetValue value(size_t column) const;

  private:
    struct Free {
        void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
    };
    void checkPages(unsigned long page);
    void readDefinition(unsigned long page);
    void readColumns();

    JetFile& file_;
    MdbCatalogEntry entry_{};  ///< The library's table points at it.
    std::unique_ptr<MdbTableDef, Free> table_;
    std::vector<JetColumn> columns_;
    std::vector<MdbField> fields_;
    unsigned rows_ = 0;
};

struct TablePlace {
    std::string name;
    unsigned long page;
};

/// The tables that are not the engine's own, in the order of their creation.
std::vector<TablePlace> userTables(JetFile& file);
