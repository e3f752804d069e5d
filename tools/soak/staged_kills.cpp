#include "soak/staged_kills.h"

#include "platform/base/error.h"
#include "soak/stage.h"
#include "soak/unsynced_vfs.h"

#include <sys/resource.h>

#include <QDir>
#include <QElapsedTimer>
#include <QMap>
#include <QProcess>
#include <QRandomGenerator>
#include <QTextStream>
#include <algorithm>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int patienceMs = 60'000;
constexpr int livesOfAFolder = 6;

StageKind kindOf(const QString& name) {
    for (StageKind kind : {conversionStage(), backupStage(), restoreStage(), raisingStage(), rescueStage()})
        if (kind.name == name) return kind;
    throw Error(u"There is no stage "_s + name);
}

enum class Trouble { none, kill, fullDisk, goneDisk };

class Kills {
  public:
    Kills(const StageKind& kind, const KillOrder& order)
        : kind_(kind), order_(order), random_(order.seed), stage_(kind.make(order.folder, order.freshCatalogue)) {}

    int run() {
        QElapsedTimer clock;
        clock.start();
        beginAnew();
        length_ = 1;
        live(Trouble::none);
        length_ = lived_;
        for (int life = 0; count_[Trouble::kill] < order_.kills && clock.elapsed() < order_.minutes * 60'000LL;
             ++life) {
            if (life % livesOfAFolder == 0 || stage_->isDone()) beginAnew();
            live(trouble());
            constexpr int oneIn = 5;
            if (random_.bounded(oneIn) == 0) live(Trouble::none);
        }
        QTextStream(stdout)
            << u"%1 of %2 ms: %3 kills, %4 full disks, %5 disks taken away, %6 undisturbed, %7 faults\n"_s
                   .arg(kind_.name)
                   .arg(length_)
                   .arg(count_[Trouble::kill])
                   .arg(count_[Trouble::fullDisk])
                   .arg(count_[Trouble::goneDisk])
                   .arg(count_[Trouble::none])
                   .arg(faults_);
        return faults_ == 0 ? 0 : 1;
    }

  private:
    void beginAnew() {
        QDir(order_.folder).removeRecursively();
        QDir().mkpath(order_.folder);
        stage_->beginAnew();
    }

    Trouble trouble() {
        constexpr int oneIn = 5;
        const auto chance = random_.bounded(oneIn);
        if (chance == 0) return Trouble::fullDisk;
        if (chance == 1 && !stage_->removable().isEmpty()) return Trouble::goneDisk;
        return Trouble::kill;
    }

    /// One process, and a look at what it leaves.
    void live(Trouble trouble) {
        ++count_[trouble];
        QStringList arguments{u"--play"_s, kind_.name, u"--folder"_s, order_.folder};
        if (trouble == Trouble::fullDisk) arguments << u"--room"_s << QString::number(random_.bounded(longestFile()));
        const bool losesWrites = trouble == Trouble::kill && stage_->isEngineAlone() && random_.bounded(2) == 0;
        if (losesWrites) arguments << u"--unsynced"_s << u"--seed"_s << QString::number(random_.generate());
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedChannels);
        QElapsedTimer clock;
        clock.start();
        program.start(order_.program, arguments);
        if (!program.waitForStarted()) throw Error(program.errorString());
        disturb(program, trouble, losesWrites);
        lived_ = clock.elapsed();
        const bool isThrough = program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
        QStringList faults = stage_->look(isThrough);
        if (trouble == Trouble::none && !isThrough) faults << u"it did not end well"_s;
        for (const QString& fault : faults) complain(trouble, fault);
        if (!faults.isEmpty()) keepFolder();
    }

    void disturb(QProcess& program, Trouble trouble, bool losesWrites) {
        const int moment = random_.bounded(int(length_ + length_ / 10 + 1));
        const bool ends = trouble == Trouble::none || trouble == Trouble::fullDisk;
        if (program.waitForFinished(ends ? patienceMs : moment)) return;
        if (trouble == Trouble::goneDisk) {
            takeDiskAway(program);
            return;
        }
        constexpr int soonMs = 300;
        if (losesWrites) ::kill(pid_t(program.processId()), SIGUSR1);
        if (!losesWrites || !program.waitForFinished(soonMs)) program.kill();
        program.waitForFinished();
    }

    /// It is there again when the process has ended.
    void takeDiskAway(QProcess& program) {
        const QString disk = stage_->removable(), away = disk + u"-away"_s;
        QDir().rename(disk, away);
        if (!program.waitForFinished(patienceMs)) program.kill();
        program.waitForFinished();
        if (QFileInfo::exists(disk)) complain(Trouble::goneDisk, u"a folder was made in the place of the disk"_s);
        QDir(disk).removeRecursively();
        QDir().rename(away, disk);
    }

    qint64 longestFile() const {
        qint64 longest = 1;
        for (const QFileInfo& file : QDir(order_.folder).entryInfoList(QDir::Files))
            longest = std::max(longest, file.size());
        return longest;
    }

    void complain(Trouble trouble, const QString& fault) {
        static const QMap<Trouble, QString> names{{Trouble::none, u"an undisturbed life"_s},
                                                  {Trouble::kill, u"a kill"_s},
                                                  {Trouble::fullDisk, u"a full disk"_s},
                                                  {Trouble::goneDisk, u"a disk taken away"_s}};
        ++faults_;
        QTextStream(stdout) << u"FAULT after %1, kill %2: "_s.arg(names[trouble]).arg(count_[Trouble::kill]) << fault
                            << u'\n';
    }

    void keepFolder() {
        const QString kept = u"%1-fault%2"_s.arg(order_.folder).arg(faults_);
        QDir(kept).removeRecursively();
        QDir().rename(order_.folder, kept);
        beginAnew();
    }

    const StageKind& kind_;
    const KillOrder& order_;
    QRandomGenerator random_;
    std::unique_ptr<Stage> stage_;
    qint64 length_ = 0;  ///< Of an undisturbed life, in milliseconds.
    qint64 lived_ = 0;   ///< The same of the last one.
    QMap<Trouble, int> count_;
    int faults_ = 0;
};

}  // namespace

int playStage(const QString& name, const QString& folder, const StageLife& life) {
    if (life.unsynced) loseUnsyncedWrites(life.seed);
    if (life.room >= 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{rlim_t(life.room), rlim_t(life.room)};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    return kindOf(name).play(folder) ? 0 : 1;
}

int killStage(const QString& name, const KillOrder& order) {
    const StageKind kind = kindOf(name);
    QDir().mkpath(order.folder);  // what it begins with is made beside it
    return Kills(kind, order).run();
}
