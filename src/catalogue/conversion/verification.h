#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

#include <QSet>
#include <vector>

/// Two tables that are to hold the same records.
struct TablePair {
    QString old;
    QString target;
    bool isAlbum = true;
    QSet<int> skipped = {};  ///< Rows of the old one, from 0, that are not in the new one.
};

/// Reads everything in the column 图片 of some tables back from a new catalogue, and compares it with a second reading
/// of the old one, which holds fingerprints (see `SecondReading`). The fingerprints of what is the same are kept in the
/// new catalogue.
class Verification {
  public:
    Verification(const Database& secondReading, const Database& target, std::vector<TablePair> tables);

    /// Tells the watch how far it is, from `begun` percent on; false when that ends it.
    bool run(RunWatch& watch, int begun);

    int verified() const { return verified_; }  ///< Pictures of albums.
    /// The first difference; empty when there is none.
    const QString& difference() const { return difference_; }

  private:
    bool compare(const TablePair& pair, RunWatch& watch);
    QString differenceAt(const Recordset& old, int oldRow, const Recordset& target, int row, bool isAlbum);

    const Database& secondReading_;
    const Database& target_;
    std::vector<TablePair> tables_;
    RunProgress progress_;
    int begun_ = 0;
    int verified_ = 0;
    QString difference_;
};
