#pragma once

#include "jet_file.h"

#include <variant>

struct JetColumn {
    std::string name;
    std::vector<unsigned char> nameBytes;  ///< Of Jet 3, in the code page of the file.
    int type = 0;                          ///< One of the library's `MDB_…` numbers.
    int size = 0;                          ///< Characters of a text, bytes of a binary value.
    int scale = 0;
};

/// Null, a whole number or truth value, a real one, a text, or bytes.
using JetValue = std::variant<std::monostate, int64_t, double, std::string, std::vector<unsigned char>>;

/// One table, and the row of it that is being read. Only one table of a file can be read at a time.
class JetTable {
  public:
    JetTable(JetFile& file, unsigned long definitionPage);

    /// In the order of their design.
    const std::vector<JetColumn>& columns() const { return columns_; }

    /// Goes to the next row that can be read; false behind the last one.
    bool next();
    /// Rows that could not be read, behind the last one: -1 when their number is not known.
    int64_t missingRows() const;
    JetValue value(size_t column) const;
    /// The bytes of a text or memo; nothing for Null, and for other columns.
    std::vector<unsigned char> textBytes(size_t column) const;

  private:
    struct Free {
        void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
    };
    std::vector<unsigned char> definition(unsigned long page);
    void readDefinition(unsigned long page);
    void readColumns();
    void orderByDesign(Bytes definition);
    bool nextEntry(int& entry);
    bool cutEntry(int entry);
    int follow(int place);
    void cutRow(int place);
    Bytes bytesOf(size_t column) const;

    JetFile& file_;
    MdbCatalogEntry entry_{};  ///< The library's table points at it.
    std::unique_ptr<MdbTableDef, Free> table_;
    std::vector<JetColumn> columns_;
    std::vector<size_t> places_;  ///< Of the columns among the library's, which are in the order of their numbers.
    std::vector<MdbField> fields_;
    unsigned rows_ = 0;
    unsigned pageRows_ = 0;  ///< Of the page; the next one is `pageRow_`.
    unsigned pageRow_ = 0;
    size_t size_ = 0;      ///< Of the row, in bytes.
    bool isAway_ = false;  ///< The page in hand is that of a moved row.
};

struct TablePlace {
    std::string name;
    std::vector<unsigned char> nameBytes;
    unsigned long page;
};

struct TableList {
    std::vector<TablePlace> tables;
    bool isWhole = true;  ///< Others may have been lost.
};

/// The tables that are not the engine's own, in the order of their creation.
TableList userTables(JetFile& file);
