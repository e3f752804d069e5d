#pragma once

#include "catalogue/fingerprint.h"
#include "catalogue/runs/read_ahead.h"
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
    QString source = {};     ///< The statement that lists the records of the old one; empty for all.
    QSet<int> skipped = {};  ///< Records of that list, from 0, that are not in the new one.
};

/// Reads everything in the column 图片 of some tables back from a new catalogue, with all processors over connections
/// of their own, and compares it with a second reading of the old one. The fingerprints of an album's pictures that are
/// the same are kept in the new catalogue.
class Verification {
  public:
    Verification(const Database& secondReading, const Database& target, std::vector<TablePair> tables);
    virtual ~Verification() = default;
    Verification(const Verification&) = delete;
    Verification& operator=(const Verification&) = delete;

    /// Tells the watch how far it is, from `begun` percent on. The report gets the count of compared pictures, and has
    /// come to its end when neither the watch has stopped this nor a difference was found. That one is its failure,
    /// with `consequence` behind it, such as "，没有转换".
    void run(RunReport& report, RunWatch& watch, int begun, const QString& consequence = {});

  protected:
    /// The fingerprint of a value of the second reading, which holds fingerprints itself (see `SecondReading`), when
    /// `stored` came out of the new catalogue. Throws `Error` when the value cannot be read.
    virtual Fingerprint read(const StoredValue& value, const Fingerprint& stored) const;
    /// The fingerprint that is kept in the new catalogue for a picture that came over as it was read.
    virtual Fingerprint kept(const TablePair&, int, const StoredValue&, const Fingerprint& read) { return read; }

  private:
    bool compareAll(RunWatch& watch);
    bool compare(const TablePair& pair, RunWatch& watch);
    bool comparePictures(const TablePair& pair, const Recordset& old, const Recordset& target, RunWatch& watch);
    /// Not before the threads have ended: on a slow disk they would wait too long for this change of the file.
    void keepPrints();
    /// The run is through with a record. False when the watch ends it.
    bool pass(RunWatch& watch);
    /// What is read ahead in the threads: the fingerprints of a new table's pictures, empty ones for Null.
    ReadAhead<Fingerprint>::Prepare reader(const QString& table) const;
    QString differenceAt(const Recordset& old, int oldRow, const StoredValue& picture, const Fingerprint& stored,
                         const TablePair& pair);
    Fingerprint printAt(const Recordset& secondReading, int row, const Fingerprint& stored) const;

    const Database& secondReading_;
    const Database& target_;
    std::vector<TablePair> tables_;
    RunProgress progress_;
    int begun_ = 0;
    std::vector<std::pair<StoredValue, Fingerprint>> same_;  ///< Of the table in hand.
    int verified_ = 0;                                       ///< Pictures of albums.
    QString difference_;                                     ///< The first one; empty when there is none.
};
