#include "soak/killer.h"

#include "platform/base/error.h"
#include "soak/inspection.h"
#include "soak/ledger.h"
#include "soak/samples.h"
#include "soak/scenes.h"
#include "soak/worked_program.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTextStream>
#include <algorithm>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int killsOfACatalogue = 25;
constexpr int patienceMs = 60'000;
const QString startScene = u"start"_s;

QTextStream& out() {
    static QTextStream stream(stdout);
    return stream;
}

struct Tally {
    int kills = 0, within = 0, rolledBack = 0;
};

/// One life of the worked program.
class Life {
  public:
    Life(const KillOrder& order, quint64 seed, const QStringList& scenes, Ledger& ledger, QSet<QString>& places)
        : ledger_(ledger), places_(places) {
        QStringList arguments{u"--work"_s,           order.folder,  u"--seed"_s,
                              QString::number(seed), u"--scenes"_s, scenes.join(u',')};
        if (order.unsynced) arguments << u"--unsynced"_s;
        if (order.fillsDisk) arguments << u"--full"_s;
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        clock_.start();
        process_.start(order.program, arguments, QIODevice::ReadOnly);
        if (!process_.waitForStarted()) throw Error(process_.errorString());
    }

    /// Listens until a line comes, `until` is reached on the clock or the program ends. False when it has ended.
    bool listen(const QString& line, qint64 until) {
        while (!heard_.contains(line) && clock_.elapsed() < until) {
            const bool more = process_.waitForReadyRead(int(qMax<qint64>(1, until - clock_.elapsed())));
            take();
            if (!more && process_.state() == QProcess::NotRunning) return false;
        }
        return true;
    }
    /// With `soon` it is left to the process to find the worst moment, if there is one.
    void kill(bool soon) {
        constexpr int soonMs = 300;
        if (soon) ::kill(pid_t(process_.processId()), SIGUSR1);
        if (!soon || !process_.waitForFinished(soonMs)) process_.kill();
        process_.waitForFinished();
        take();
    }
    /// The program is to notice, and to end well.
    void fillDisk() {
        ::kill(pid_t(process_.processId()), SIGUSR2);
        if (!process_.waitForFinished(patienceMs)) {
            faults_ << u"it hangs on a full disk"_s;
            process_.kill();
            process_.waitForFinished();
        } else if (process_.exitStatus() != QProcess::NormalExit) {
            faults_ << u"it crashed on a full disk"_s;
        }
        take();
    }
    bool heardOf(const QString& line) const { return heard_.contains(line); }
    qint64 now() const { return clock_.elapsed(); }
    bool endedWell() const { return process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0; }
    const QString& atWork() const { return atWork_; }
    const QStringList& faults() const { return faults_; }
    const QStringList& heard() const { return lines_; }
    /// From the first time that a scene began to its last end.
    qint64 lengthOf(const QString& scene) const { return ends_.value(scene) - begins_.value(scene); }
    qint64 beginOf(const QString& scene) const { return begins_.value(scene); }

  private:
    void take() {
        while (process_.canReadLine()) {
            const QString line = QString::fromUtf8(process_.readLine()).trimmed();
            const QString rest = line.section(u' ', 1);
            if (line.startsWith(u"scene ")) {
                atWork_ = rest;
                if (!begins_.contains(rest)) begins_[rest] = clock_.elapsed();
            }
            if (line.startsWith(u"end ")) {
                atWork_.clear();
                ends_[rest] = clock_.elapsed();
            }
            if (line.startsWith(u"fault ")) faults_ << rest;
            if (line.startsWith(u"create ")) places_ << rest;
            ledger_.hear(line);
            heard_ << line;
            lines_ << line;
        }
    }

    Ledger& ledger_;
    QSet<QString>& places_;
    QProcess process_;
    QElapsedTimer clock_;
    QString atWork_;  ///< The scene whose handler runs.
    QSet<QString> heard_;
    QStringList lines_, faults_;
    QMap<QString, qint64> begins_, ends_;
};

class Killer {
  public:
    explicit Killer(const KillOrder& order)
        : order_(order), random_(order.seed), scenes_(order.scenes.isEmpty() ? Scenes::names() : order.scenes) {
        if (order.scenes.isEmpty()) scenes_ << startScene;
        template_ = QDir(order.folder).filePath(u"../begin.mdb"_s);
    }

    int run() {
        QDir(order_.folder).removeRecursively();
        QDir().mkpath(order_.folder);
        makeCatalogue(order_.freshCatalogue, template_);
        if (!measure()) return 1;
        QElapsedTimer clock;
        clock.start();
        for (int kill = 0; kill < order_.kills && clock.elapsed() < order_.minutes * 60'000LL; ++kill) {
            if (kill % killsOfACatalogue == 0) beginAnew();
            killOnce(kill);
        }
        tell(clock.elapsed());
        removeCatalogue(template_);
        return faults_ == 0 ? 0 : 1;
    }

  private:
    QString file(const QString& name) const { return QDir(order_.folder).filePath(name); }

    void beginAnew() {
        QDir(order_.folder).removeRecursively();
        QDir().mkpath(order_.folder);
        if (!QFile::copy(template_, file(u"lunq.mdb"_s))) throw Error(u"no catalogue to begin with"_s);
        ledger_ = {};
        places_.clear();
        ledger_.adopt(look());
    }

    /// A life without a kill shows how long each scene takes.
    bool measure() {
        beginAnew();
        QStringList scenes = scenes_;
        scenes.removeAll(startScene);
        Life life(order_, order_.seed, scenes << u"-"_s, ledger_, places_);
        life.listen(u"ready"_s, patienceMs);
        lengths_[startScene] = life.now();
        life.listen({}, patienceMs * 2);
        QStringList faults = life.faults() + inspect();
        if (!life.endedWell()) faults << u"it did not end well"_s;
        for (const QString& scene : scenes) lengths_[scene] = life.lengthOf(scene);
        complain(faults, u"the undisturbed run"_s, life.heard());
        return faults.isEmpty();
    }

    void killOnce(int kill) {
        const QString scene = scenes_[random_.bounded(int(scenes_.size()))];
        const quint64 seed = order_.seed * 100'000ULL + quint64(kill) + 1;
        QStringList scenes = Scenes::names();
        std::shuffle(scenes.begin(), scenes.end(), random_);
        if (scene != startScene) scenes.prepend(scene);
        Tally& tally = tallies_[scene];
        Life life(order_, seed, scenes, ledger_, places_);
        qint64 from = 0;
        if (scene != startScene) {
            life.listen(u"scene "_s + scene, patienceMs);
            from = life.beginOf(scene);
        }
        const auto span = int(lengths_[scene] + lengths_[scene] / 10 + 2);
        life.listen(u"-"_s, from + random_.bounded(span));
        if (order_.fillsDisk && life.heardOf(u"ready"_s))
            life.fillDisk();
        else
            life.kill(order_.unsynced && life.heardOf(u"ready"_s));
        ++tally.kills;
        if (!life.atWork().isEmpty()) ++tally.within;
        if (QFileInfo(file(u"lunq.mdb-journal"_s)).size() > 0) ++tally.rolledBack;
        QStringList faults = life.faults();
        // Now and then the program itself has to take back an unfinished change, and may be killed while it does.
        constexpr int oneIn = 4;
        if (random_.bounded(oneIn) == 0) faults << killInTheRepair();
        faults << inspect();
        complain(faults, u"kill %1, %2, seed %3"_s.arg(kill).arg(scene).arg(seed), life.heard());
        if (!faults.isEmpty()) beginAnew();
    }

    QStringList killInTheRepair() {
        Life life(order_, order_.seed, {restScene}, ledger_, places_);
        life.listen(u"-"_s, random_.bounded(int(2 * lengths_[startScene])));
        life.kill(false);
        ++repairs_;
        return life.faults();
    }

    Found look() {
        QStringList ignored;
        return lookIntoCatalogue(file(u"lunq.mdb"_s), {}, ignored);
    }

    /// Looks at all that is there; the ledger then goes on from it.
    QStringList inspect() {
        QStringList faults, ofSamples;
        const Found own = lookIntoCatalogue(file(u"lunq.mdb"_s), {}, faults);
        Found found = own;
        const QDir run(file(u"run"_s));
        for (const QString& name : run.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            // The files that a scene begins with may not have got whole onto a full disk.
            const bool isOfSamples = order_.fillsDisk && !places_.contains(name);
            const Found folder = lookIntoFolder(run.filePath(name), name, isOfSamples ? ofSamples : faults);
            if (places_.contains(name)) found.insert(folder);
            const QString other = run.filePath(name + u"/目标.mdb"_s);
            if (places_.contains(name + u":tc02"_s)) found.insert(lookIntoCatalogue(other, name + u':', faults));
        }
        static const QStringList known{u"lunq.mdb"_s, u"lunq.mdb-journal"_s, u"lunq.lock"_s, u"run"_s};
        for (const QString& name : QDir(order_.folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
            if (!known.contains(name)) strangers_ << name;
        faults << ledger_.faults(found);
        QDir(run).removeRecursively();
        places_.clear();
        ledger_.adopt(own);
        return faults;
    }

    void complain(const QStringList& faults, const QString& when, const QStringList& heard) {
        if (faults.isEmpty()) return;
        ++faults_;
        out() << "FAULT after " << when << ":\n";
        for (const QString& fault : faults.mid(0, 12)) out() << "    " << fault << '\n';
        if (faults.size() > 12) out() << "    and " << faults.size() - 12 << " more\n";
        out() << "  heard last:\n";
        for (const QString& line : heard.mid(qMax<qsizetype>(0, heard.size() - 12))) out() << "    " << line << '\n';
        out().flush();
        const QString kept = u"%1-fault%2"_s.arg(order_.folder).arg(faults_);
        QDir(kept).removeRecursively();
        QDir().rename(order_.folder, kept);
        QDir().mkpath(order_.folder);
    }

    void tell(qint64 elapsed) {
        Tally all;
        out() << "scene              length  kills  in the handler  with a change under way\n";
        const auto row = [](const QString& name, const QString& length, const Tally& tally) {
            out() << name.leftJustified(18) << length.rightJustified(7)
                  << QString::number(tally.kills).rightJustified(7) << QString::number(tally.within).rightJustified(16)
                  << QString::number(tally.rolledBack).rightJustified(25) << '\n';
        };
        for (auto scene = tallies_.begin(); scene != tallies_.end(); ++scene) {
            row(scene.key(), u"%1 ms"_s.arg(lengths_[scene.key()]), *scene);
            all.kills += scene->kills;
            all.within += scene->within;
            all.rolledBack += scene->rolledBack;
        }
        row(u"all"_s, {}, all);
        out() << "seed " << order_.seed << ", " << elapsed / 1000 << " s, " << repairs_
              << " more kills in the start after one, " << faults_ << " faults\n";
        if (!strangers_.isEmpty())
            out() << "left in the program's folder: " << QStringList(strangers_.values()).join(u", "_s) << '\n';
        out().flush();
    }

    KillOrder order_;
    QRandomGenerator random_;
    QStringList scenes_;
    QString template_;
    Ledger ledger_;
    QSet<QString> places_;  ///< Folders and tables of other catalogues that a report has named.
    QMap<QString, qint64> lengths_;
    QMap<QString, Tally> tallies_;
    QSet<QString> strangers_;
    int faults_ = 0;
    int repairs_ = 0;  ///< Kills of a program that was just started again after one.
};

}  // namespace

int killAgainAndAgain(const KillOrder& order) {
    return Killer(order).run();
}
