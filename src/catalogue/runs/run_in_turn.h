#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

/// A run that takes one thing after the other. What is taken is durable, and whole, before the next one begins. The
/// first failure ends the run.
class RunInTurn {
  public:
    /// `names` are those of the things, for the report.
    explicit RunInTurn(QStringList names) : names_(std::move(names)) {}
    virtual ~RunInTurn() = default;
    RunInTurn(const RunInTurn&) = delete;
    RunInTurn& operator=(const RunInTurn&) = delete;

    RunReport run(RunWatch& watch);

  protected:
    struct Taken {
        Fate fate = Fate::taken;
        qint64 bytes = 0;  ///< Of the picture that was stored.
    };
    virtual void open() = 0;  ///< Opens what is read and written.
    virtual Taken take(qsizetype place) = 0;
    /// How much of the run is done with this place.
    virtual int percentWith(qsizetype place) const { return int((place + 1) * 100 / names_.size()); }

    const QStringList& names() const { return names_; }

  private:
    qint64 takeNext(RunReport& report, qsizetype place);

    QStringList names_;
};
