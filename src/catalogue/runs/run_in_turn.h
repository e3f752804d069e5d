#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

#include <optional>

/// A run that stores one thing after the other in a database. Several of them share one change, so that the disk is
/// waited for once a group: a kill or a full disk leaves whole things alone. A group is as large as the disk takes
/// within half a second, and ends before anything else is waited for. When a group is lost, its things are stored once
/// more, each by itself. So what the watch was told of is stored, or has failed, also when the watch ends the run.
class RunInTurn {
  public:
    /// `names` are those of the things, for the report.
    explicit RunInTurn(QStringList names);
    virtual ~RunInTurn() = default;
    RunInTurn(const RunInTurn&) = delete;
    RunInTurn& operator=(const RunInTurn&) = delete;

    RunReport run(RunWatch& watch);

  protected:
    struct Taken {
        Fate fate = Fate::taken;
        qint64 bytes = 0;  ///< Of the picture that was stored.
    };
    /// Opens what is read and written. Called once more when a group was lost: what was noted of the database is no
    /// longer true then.
    virtual void open() = 0;
    /// The database that things are stored in.
    virtual const Database& target() const = 0;
    /// Stores a thing, within a change of the target. Throws when it cannot; nothing of it is left then.
    virtual Taken take(qsizetype place) = 0;
    /// Whether a thing can be stored without waiting for where it comes from, but for a moment.
    virtual bool isAtHand(qsizetype) { return true; }
    /// How much of the run is done with this place.
    virtual int percentWith(qsizetype place) const { return int((place + 1) * 100 / names_.size()); }

    const QStringList& names() const { return names_; }

  private:
    struct Group;
    void takeGroup(RunWatch& watch);
    void takeNext(Group& group, RunWatch& watch);
    bool isFull(const Group& group);
    void close(const Group& group);
    void lose(Group& group, const QString& reason);
    void fail(const RunItem& item, RunWatch& watch);

    QStringList names_;
    RunReport report_;
    RunProgress progress_;
    qsizetype end_ = 0;  ///< Where the run ends.
    bool passesOver_ = false;
    qsizetype singlyUpTo_ = 0;  ///< Things before this place are stored each by itself.
    qint64 groupBytes_;         ///< After so many bytes a group ends.
};
