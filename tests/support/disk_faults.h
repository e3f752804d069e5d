#pragma once

#include <sys/resource.h>

#include <QtGlobal>
#include <csignal>

/// Lets no file grow beyond a size: what a full disk does to a write.
class FullDisk {
  public:
    explicit FullDisk(qint64 size) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = static_cast<rlim_t>(size);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};
