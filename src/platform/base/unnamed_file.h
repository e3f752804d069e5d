#pragma once

#include <QFile>

/// A file that is written without a name and gets one when it is whole. If the program ends before that, for whatever
/// reason, nothing of it is left. On a file system without unnamed files it has the name `lunq-XXXXXX.part` until then,
/// and the object removes it. A file that has the final name meanwhile is not touched.
class UnnamedFile {
  public:
    /// Begins the file for `path`. All failures are thrown as an `Error` with the text `complaint`, in which %1 is the
    /// path and %2 the reason.
    explicit UnnamedFile(const QString& path, QString complaint = QStringLiteral("文件“%1”不能写入：%2。"));
    ~UnnamedFile();
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;

    const QString& path() const { return path_; }
    void write(QByteArrayView bytes);
    void setRights(QFileDevice::Permissions rights);
    void beginSync();  ///< The bytes begin to go to the disk. Waits for nothing, and fails never.
    void sync();       ///< The bytes are on the disk then.
    /// Reads the file back and compares it with these bytes; throws when it holds anything else. The first `ofDisk`
    /// bytes are asked of the disk, the others may come from the system's memory: from the disk it takes four times as
    /// long.
    void compare(QByteArrayView bytes, qint64 ofDisk);

    /// Gives the file its name; false when anything has that name already. Waits for no disk: many files together are
    /// quicker (`syncFileSystemOf`, `syncFolderToDisk`) than each by itself.
    bool takeNewName();

    /// Replaces the file that has the name, and takes over its rights. If the name is a link, the file behind it is
    /// replaced. The bytes reach the disk first, the name afterwards.
    void replace();

  private:
    [[noreturn]] void fail(const QString& reason) const;
    [[noreturn]] void fail(int error) const;
    void open();
    void openNamed();
    QString freeNameBeside() const;
    void giveName(const QString& name);

    QString path_;
    QString complaint_;
    QFile file_;
    QString ownName_;  ///< Name until it gets the final one; empty for an unnamed file.
};
