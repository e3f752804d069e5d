#include "soak/full_disk.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <QFile>
#include <QRandomGenerator>
#include <csignal>

namespace {

constexpr int whole = 100;

// For the handler of a signal, which may call next to nothing.
QByteArray file;
int percent = whole;
volatile std::sig_atomic_t full = 0;

void fillUp(int) {
    struct stat now {};
    if (full != 0 || stat(file.constData(), &now) != 0) return;
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = rlim_t(now.st_size) * rlim_t(percent) / whole;
    setrlimit(RLIMIT_FSIZE, &limit);
    full = 1;
}

}  // namespace

void letDiskFillUp(const QString& catalogue, quint32 seed) {
    QRandomGenerator random(seed);
    file = QFile::encodeName(catalogue);
    if (random.bounded(2) == 0) percent = random.bounded(whole);
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGUSR2, fillUp);
}

bool isDiskFull() {
    return full != 0;
}
