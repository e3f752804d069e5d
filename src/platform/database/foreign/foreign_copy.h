#pragma once

#include <QDateTime>
#include <QString>

/// What a Jet database holds, as a temporary SQLite file that goes with this object. The file has no name at any time:
/// what may be private cannot stay behind, even where this program is killed. A program of its own, `lunq-jet` beside
/// the executable, reads the database: a malformed file can end that program, never this one.
class ForeignCopy {
  public:
    /// Whether a file begins as Jet databases do. Throws `Error` when it cannot be read.
    static bool isJetFile(const QString& path);

    /// Reads the database. Throws `Error` that names the file, and leaves nothing behind, when that fails.
    explicit ForeignCopy(const QString& path);
    ~ForeignCopy();
    ForeignCopy(const ForeignCopy&) = delete;
    ForeignCopy& operator=(const ForeignCopy&) = delete;

    /// By which the engine opens the copy, with paths taken as they stand (see `literalPaths`).
    QString file() const;
    /// Whether the database is still as it was when it was read.
    bool isCurrent() const;

  private:
    void read();

    QString path_;
    qint64 size_ = 0;
    QDateTime changed_;
    int file_ = -1;
};

/// The program that reads Jet databases, and for how long it may stay without a sign of progress.
struct JetReader {
    QString program;
    int patienceMs = 60000;
};

/// Lets another program stand for the one beside the executable: tests let it die, be silent or be missing. Without an
/// argument it goes back.
void setJetReader(const JetReader& reader = {});
