#include "soak/session.h"

#include "platform/base/error.h"
#include "soak/samples.h"
#include "soak/scenes.h"
#include "soak/worked_program.h"

#include <malloc.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmapCache>
#include <QTextStream>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double boundMegabytes = 12;
constexpr int oneLineMs = 60'000;

struct Sample {
    double megabytes;  ///< Of memory that is held in the machine.
    double allocated;  ///< Megabytes of that which are in use.
    qsizetype files;
    qsizetype temporary;
    qsizetype widgets;
};

Sample sample() {
    QPixmapCache::clear();  // has a bound of its own
    malloc_trim(0);
    QFile memory(u"/proc/self/statm"_s);
    const QByteArray figures = memory.open(QIODevice::ReadOnly) ? memory.readAll() : QByteArray();
    const double pages = figures.split(' ').value(1).toDouble();
    const struct mallinfo2 heap = mallinfo2();
    return {pages * double(sysconf(_SC_PAGESIZE)) / (1 << 20), double(heap.uordblks + heap.hblkhd) / (1 << 20),
            QDir(u"/proc/self/fd"_s).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size(),
            QDir::temp().entryList({u"lunq*.*"_s, u"qt_temp*"_s}, QDir::Files).size(),
            QApplication::allWidgets().size()};
}

class Session {
  public:
    explicit Session(const SessionOrder& order)
        : order_(order), scenes_(order.scenes.isEmpty() ? Scenes::names() : order.scenes) {
        clock_.start();
    }

    /// The next scene; none when the rounds or the minutes are over.
    QString next() {
        if (played_ == scenes_.size()) endRound();
        const bool over = round_ >= order_.rounds || clock_.elapsed() > order_.minutes * 60'000LL;
        return over ? QString() : scenes_[played_++];
    }

    int verdict() const {
        const qsizetype warm = samples_.size() / 3;
        if (samples_.size() < 6) return 0;
        const Sample &first = samples_[warm], &last = samples_.back();
        const double grown = last.allocated - first.allocated;
        std::printf(
            "after round %d: %+.1f MB in use, %+.1f MB held, %+d files, %+d temporary files, %+d widgets (allowed: "
            "%.0f MB)\n",
            int(warm) + 1, grown, last.megabytes - first.megabytes, int(last.files - first.files),
            int(last.temporary - first.temporary), int(last.widgets - first.widgets), boundMegabytes);
        const bool steady = grown <= boundMegabytes && last.files <= first.files && last.temporary <= first.temporary &&
                            last.widgets <= first.widgets;
        return steady ? 0 : 1;
    }

  private:
    void endRound() {
        played_ = 0;
        ++round_;
        QDir(QDir(order_.folder).filePath(u"run"_s)).removeRecursively();
        samples_ << sample();
        const Sample& now = samples_.back();
        if (round_ > 1 && round_ < order_.rounds && sinceLine_.isValid() && !sinceLine_.hasExpired(oneLineMs)) return;
        sinceLine_.start();
        if (round_ == 1) std::puts("minute  round      MB  in use  files  temporary  widgets");
        std::printf("%6.1f %6d %7.1f %7.1f %6d %10d %8d\n", double(clock_.elapsed()) / 60'000, round_, now.megabytes,
                    now.allocated, int(now.files), int(now.temporary), int(now.widgets));
        std::fflush(stdout);
    }

    const SessionOrder& order_;
    QStringList scenes_;
    QElapsedTimer clock_, sinceLine_;
    QList<Sample> samples_;
    qsizetype played_ = 0;
    int round_ = 0;
};

}  // namespace

int playSession(const SessionOrder& order) {
    QDir(order.folder).removeRecursively();
    QDir().mkpath(order.folder);
    makeCatalogue(order.freshCatalogue, QDir(order.folder).filePath(u"lunq.mdb"_s));
    Session session(order);
    const int status =
        workProgram(order.folder, order.seed, Report(STDERR_FILENO, u"fault"_s), [&] { return session.next(); });
    return status != 0 ? status : session.verdict();
}
