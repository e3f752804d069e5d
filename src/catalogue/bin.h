#pragma once

#include "platform/database/records/own_rows.h"
#include "platform/database/records/own_values.h"

/// Why an item is in the bin.
enum class BinKind {
    deleted,   ///< A record that was deleted, by itself or with its album.
    moved,     ///< A record that was moved elsewhere.
    replaced,  ///< The picture of a record that has another one now.
    album,     ///< An album: its place in the directory. Its records are items of their own.
    button     ///< A selection button, or one whose picture was replaced.
};

/// The bin of the catalogue, the table `lunq_bin`: what is taken away goes into it, with its picture, which is not
/// moved or copied for that. All that one object takes belongs together: it is one removal. The caller takes the row
/// away after that, in the same transaction; the picture stays as long as its item. In a file without a bin nothing is
/// kept. All throw `Error`.
class Bin {
  public:
    explicit Bin(const Database& catalogue);

    /// The table, and the triggers by which pictures stay and go with it.
    static OwnTables tables();
    bool isKept() const { return isKept_; }
    /// No later removal has this number or a lower one, and all earlier ones have; 0 before the first one.
    qint64 newestRemoval() const;

    void takeAlbum(const QString& table);
    /// Rows of an album by their identities.
    void takeRows(const QString& album, const std::vector<qint64>& rows, BinKind kind);
    /// The current record of a table: an album, or the buttons.
    void takeRecord(const QString& table, const Recordset& record, BinKind kind);
    /// The item that was taken last has made way for that picture. If that is its own, the item goes.
    void noteSuccessor(const StoredValue& picture);

  private:
    void take(const QString& table, const QString& columns, const QString& where, const OwnRows::Values& values,
              BinKind kind);
    qint64 removal();

    Database catalogue_;
    OwnRows rows_;
    bool isKept_;
    qint64 removal_ = 0;
};

/// Removes the current record; it is in the bin then. One change.
void removeIntoBin(const Database& catalogue, const QString& table, Recordset& record, BinKind kind = BinKind::deleted);
/// Stores what was set in the current record under `Edit`; the picture that it had is in the bin then. One change.
void updateIntoBin(const Database& catalogue, const QString& table, Recordset& record);
