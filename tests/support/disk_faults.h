#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <QFile>
#include <csignal>

/// Lets no file grow beyond a size: what a full disk does to a write.
class FullDisk {
  public:
    explicit FullDisk(qint64 size) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = rlim_t(size);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
};

/// Without the rights of the superuser, whom no permission binds, as long as the object lives.
class PlainUser {
  public:
    PlainUser() { changed_ = geteuid() == 0 && seteuid(65534) == 0; }
    ~PlainUser() {
        if (changed_ && seteuid(0) != 0) qFatal("the rights of the superuser did not come back");
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

  private:
    bool changed_ = false;
};

/// A file that is out of reach, as when its disk or share is gone.
class GoneFile {
  public:
    explicit GoneFile(const QString& path) : path_(path) { move(path_, away()); }
    ~GoneFile() { move(away(), path_); }
    GoneFile(const GoneFile&) = delete;
    GoneFile& operator=(const GoneFile&) = delete;

    /// Where it is meanwhile.
    QString away() const { return path_ + QStringLiteral(".away"); }

  private:
    static void move(const QString& from, const QString& to) {
        if (!QFile::rename(from, to)) qFatal("cannot move %s", qPrintable(from));
    }

    QString path_;
};
