#pragma once

#include "platform/database/foreign/foreign_copy.h"
#include "test_album.h"

/// A place for Jet databases of a test, and a folder of its own for temporary files, in which nothing may be left.
class JetFiles {
  public:
    JetFiles() : before_(qgetenv("TMPDIR")) { qputenv("TMPDIR", QFile::encodeName(scratch.path())); }
    ~JetFiles() {
        setJetReader();
        before_.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before_);
    }
    JetFiles(const JetFiles&) = delete;
    JetFiles& operator=(const JetFiles&) = delete;

    QString write(const QString& name, const QByteArray& bytes) const {
        return writeFile(folder.filePath(name), bytes);
    }

    /// The copies that exist at the moment.
    QStringList copies() const { return QDir(scratch.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    QTemporaryDir scratch;

  private:
    QByteArray before_;
};
