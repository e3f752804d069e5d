#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

#include <optional>

/// A run that stores one thing after the other. They go in groups, so that the disk is waited for once a group: a kill
/// or a full disk leaves whole things alone. A group is as large as the disk takes within half a second, and ends
/// before anything else is waited for. When a group is lost, its things are stored once more, each by itself. So what
/// the watch was told of is stored, or has failed, also when the watch ends the run.
class RunInTurn {
  public:
    /// `names` are those of the things, for the report. A group ends after `mostBytes`: a run that keeps its things in
    /// memory until they are stored has less room.
    explicit RunInTurn(QStringList names, qint64 mostBytes = 64 << 20);
    virtual ~RunInTurn() = default;
    RunInTurn(const RunInTurn&) = delete;
    RunInTurn& operator=(const RunInTurn&) = delete;

    RunReport run(RunWatch& watch);

  protected:
    struct Taken {
        Fate fate = Fate::taken;
        qint64 bytes = 0;     ///< Of the picture that was stored.
        QString reason = {};  ///< Why it was not stored, where that is no failure of the run.
        QString file = {};    ///< That it goes to.
    };
    /// Opens what is read and written. Called once more when a group was lost: what was noted of the target is no
    /// longer true then.
    virtual void open() = 0;
    virtual void beginGroup() = 0;
    /// Stores a thing, within a group. Throws when it cannot; nothing of it is left then. The fate `left` says that the
    /// run was ended before it was stored.
    virtual Taken take(qsizetype place) = 0;
    /// What was taken is on the disk then, or nothing of it is and this throws.
    virtual void storeGroup() = 0;
    /// Called at the end of every group: gives up what was not stored.
    virtual void endGroup() = 0;
    /// What there is to do with the things of a group that is stored. It may change their fates, and returns the first
    /// one that has failed. Does not throw.
    virtual std::optional<RunItem> finish(std::vector<RunItem>&) { return {}; }
    /// The same, but later: what `finish` has begun goes on while the next group is taken. Called when that one is
    /// stored or lost, before its own `finish`, and at the end of the run. What has failed behind a group is in the
    /// list.
    virtual std::optional<RunItem> settle(std::vector<RunItem>&) { return {}; }
    /// Whether a thing can be stored without waiting for where it comes from, but for a moment.
    virtual bool isAtHand(qsizetype) const { return true; }
    /// How much of the run is done with this place.
    virtual int percentWith(qsizetype place) const { return int((place + 1) * 100 / names_.size()); }

    const QStringList& names() const { return names_; }
    /// Asks the watch whether the run goes on; for what takes long before the first thing.
    bool goesOn();
    /// Whether the run was ended before this thing. What was asked with `goesOn` meanwhile has no answer then.
    bool endsBefore(qsizetype place) const { return end_ <= place; }
    void noteVerified(int pictures) { report_.verified += pictures; }
    void noteMissing(const QStringList& parts) { report_.missing = parts; }

  private:
    struct Group;
    void takeGroup();
    void takeNext(Group& group);
    void pass(qsizetype place);
    bool isFull(const Group& group) const;
    void close(const Group& group);
    void lose(Group& group, const QString& reason);
    std::optional<RunItem> settleLast();
    void askAbout(const std::optional<RunItem>& failed);

    QStringList names_;
    RunWatch* watch_ = nullptr;  ///< During the run.
    RunReport report_;
    RunProgress progress_;
    std::vector<RunItem> unsettled_;  ///< The group that was stored last, and what failed behind it.
    qsizetype end_ = 0;               ///< Where the run ends.
    bool passesOver_ = false;
    qsizetype singlyUpTo_ = 0;  ///< Things before this place are stored each by itself.
    qint64 mostBytes_;
    qint64 groupBytes_;  ///< After so many bytes a group ends, no more than those.
};

/// A run that stores things in a database. A group is one change of it.
class RunIntoDatabase : public RunInTurn {
  protected:
    using RunInTurn::RunInTurn;

    virtual const Database& target() const = 0;

    void beginGroup() override { together_.emplace(target()); }
    void storeGroup() override { together_->commit(); }
    void endGroup() override { together_.reset(); }

  private:
    std::optional<Transaction> together_;
};
