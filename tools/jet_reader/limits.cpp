#include "limits.h"

#include "platform/database/foreign/jet_outcome.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

namespace {

void limit(__rlimit_resource resource, rlim_t most, rlim_t margin = 0) {
    const rlimit limits{most, most + margin};
    setrlimit(resource, &limits);
}

void endAtLimit(int) {
    _exit(int(JetOutcome::limitExceeded));
}

}  // namespace

void limitThisProcess(uint64_t largestOutput) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_NOFILE, 16);
    std::signal(SIGXCPU, endAtLimit);
    limit(RLIMIT_CPU, 30, 1);
    std::signal(SIGXFSZ, SIG_IGN);  // writing fails then, with a reason
    limit(RLIMIT_FSIZE, largestOutput);
#ifndef __SANITIZE_ADDRESS__  // which takes an address space without bounds for itself
    limit(RLIMIT_AS, rlim_t{512} << 20);
#endif
}

void tellProgress() {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point last = Clock::now();
    const auto now = Clock::now();
    if (now - last < std::chrono::seconds(1)) return;
    last = now;
    if (write(STDOUT_FILENO, ".", 1) != 1) _exit(int(JetOutcome::wrongCall));
}
