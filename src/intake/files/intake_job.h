#pragma once

#include "catalogue/runs/file_intake.h"
#include "catalogue/runs/record_copy.h"
#include "settings/frame/run_words.h"

#include <variant>

/// What one press of cmdLr takes into an album: files, or records of another database. A value, so that any thread can
/// run it, and a part of it can be run again.
class IntakeJob {
  public:
    IntakeJob(QString table, IntakeOrder files) : table_(std::move(table)), order_(std::move(files)) {}
    IntakeJob(QString table, CopyOrder records) : table_(std::move(table)), order_(std::move(records)) {}

    /// Opens the catalogue in this thread.
    RunReport run(const QString& catalogue, RunWatch& watch) const;

    /// The same for those at some places of its order alone.
    IntakeJob some(const QList<qsizetype>& places) const;
    /// Takes doubtful pictures in, too.
    void takeDoubtful();

    bool isOfFiles() const { return std::holds_alternative<IntakeOrder>(order_); }
    bool replaces() const;
    RunWords words() const;

  private:
    QString table_;
    std::variant<IntakeOrder, CopyOrder> order_;
};
