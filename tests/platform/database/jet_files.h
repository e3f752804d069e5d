#pragma once

#include "platform/database/foreign_copy.h"
#include "test_album.h"

/// Jet databases for tests: real ones where they lie beside the project, and a folder of our own for temporary files,
/// in which nothing may be left.
class JetFiles {
  public:
    JetFiles() : before_(qgetenv("TMPDIR")) { qputenv("TMPDIR", QFile::encodeName(scratch.path())); }
    ~JetFiles() {
        setJetReader();
        before_.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before_);
    }
    JetFiles(const JetFiles&) = delete;
    JetFiles& operator=(const JetFiles&) = delete;

    static QString sample(const QString& name) { return QStringLiteral(LUNQ_JET_SAMPLES "/") + name; }

    /// Tells when the real databases are missing: what needs them is passed over then.
    static bool hasSamples() {
        if (QFile::exists(sample(QStringLiteral("jet4-alltypes.mdb")))) return true;
        qWarning("No Jet databases in %s: what needs them is passed over.", LUNQ_JET_SAMPLES);
        return false;
    }

    static QByteArray content(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString write(const QString& name, const QByteArray& bytes) const {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) return {};
        return file.fileName();
    }

    /// The copies that stand at the moment.
    QStringList copies() const { return QDir(scratch.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    QTemporaryDir scratch;

  private:
    QByteArray before_;
};
