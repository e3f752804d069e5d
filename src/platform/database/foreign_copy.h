#pragma once

#include <QDateTime>
#include <QString>

/// What a Jet database holds, as a temporary SQLite file that goes with this object. A program of its own, `lunq-jet`
/// beside the executable, reads the database: a malformed file can end that program, never this one.
class ForeignCopy {
  public:
    /// Whether a file begins as Jet databases do. Throws `Error` when it cannot be read.
    static bool isJetFile(const QString& path);

    /// Reads the database. Throws `Error` that names the file, and leaves nothing behind, when that fails.
    explicit ForeignCopy(const QString& path);
    ~ForeignCopy();
    ForeignCopy(const ForeignCopy&) = delete;
    ForeignCopy& operator=(const ForeignCopy&) = delete;

    /// Path of the copy.
    const QString& file() const { return file_; }
    /// Whether the database is still as it was when it was read.
    bool isCurrent() const;

  private:
    void read();

    QString path_;
    qint64 size_ = 0;
    QDateTime changed_;
    QString file_;
};

/// The program that reads Jet databases, and for how long it may stay without a sign of progress.
struct JetReader {
    QString program;
    int patienceMs = 60000;
};

/// Lets another program stand for the one beside the executable: tests let it die, be silent or be missing. Without an
/// argument it goes back.
void setJetReader(const JetReader& reader = {});
