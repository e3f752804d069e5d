#include "helper/limits.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

namespace {

int exitCodeAtLimit = 1;

void limit(__rlimit_resource resource, rlim_t most, rlim_t margin = 0) {
    const rlimit limits{most, most + margin};
    setrlimit(resource, &limits);
}

void endAtLimit(int) {
    _exit(exitCodeAtLimit);
}

}  // namespace

void limitThisProcess(const ProcessLimits& limits) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_NOFILE, 16);
    exitCodeAtLimit = limits.exitCode;
    std::signal(SIGXCPU, endAtLimit);
    limit(RLIMIT_CPU, limits.seconds, 1);
    std::signal(SIGXFSZ, SIG_IGN);  // writing fails then, with a reason
    limit(RLIMIT_FSIZE, limits.outputBytes);
#ifndef __SANITIZE_ADDRESS__  // which takes an address space without bounds for itself
    limit(RLIMIT_AS, limits.memoryBytes);
#endif
}

void tellProgress(int exitCode) {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point last = Clock::now();
    const auto now = Clock::now();
    if (now - last < std::chrono::seconds(1)) return;
    last = now;
    if (write(STDOUT_FILENO, ".", 1) != 1) _exit(exitCode);
}
