#pragma once

#include <QDateTime>
#include <QString>

/// The content of a Jet database in a temporary SQLite file, which goes with this object. The file never has a name:
/// its content may be private, and nothing of it is left even when this program is killed. A helper program, `lunq-jet`
/// beside the executable, reads the database: a malformed file can end the helper, never this program.
class ForeignCopy {
  public:
    /// Whether a file begins as Jet databases do. Throws `Error` when it cannot be read.
    static bool isJetFile(const QString& path);

    enum class LongValues {
        whole,
        hashes  ///< In place of each its length without the zeros at its end (8 bytes, the lowest first) and SHA-256.
    };

    /// Reads the database. Throws `Error` that names the file, and leaves nothing behind, when that fails.
    explicit ForeignCopy(const QString& path, LongValues longValues = LongValues::whole);
    ~ForeignCopy();
    ForeignCopy(const ForeignCopy&) = delete;
    ForeignCopy& operator=(const ForeignCopy&) = delete;

    /// Path by which the engine opens the copy, in the file system `literalPaths`.
    QString file() const;
    /// Whether the database is still as it was when it was read, and its texts are still to be read in that way.
    bool isCurrent() const;

  private:
    void read(LongValues longValues);

    QString path_;
    qint64 size_ = 0;
    QDateTime changed_;
    int codePage_ = 0;
    int file_ = -1;
};

/// The code page by which the texts of a Jet 3 database are read from its next opening on: 936 or 1252; 0, as at first:
/// that which the texts seem to have. Who has the database open keeps what was read. From any thread.
void chooseCodePage(const QString& path, int codePage);

/// The program that reads Jet databases, and for how long it may stay without a sign of progress.
struct JetReader {
    QString program;
    int patienceMs = 60000;
};

/// Takes another helper than the one beside the executable: tests let it die, be silent or be missing. Without an
/// argument it goes back.
void setJetReader(const JetReader& reader = {});
