#pragma once

#include <QFile>

/// A file that is written without a name and gets it when it is whole: nothing of it is left where the program ends
/// before, however that comes. On a file system that knows no files without a name it has one of its own until then,
/// `lunq-XXXXXX.part`, which goes with the object. What stands at the place meanwhile is not touched.
class UnnamedFile {
  public:
    /// Begins the file that is to stand at `path`. All failures are thrown as an `Error` with the text `complaint`,
    /// in which %1 stands for the path and %2 for the reason.
    explicit UnnamedFile(const QString& path, QString complaint = QStringLiteral("文件“%1”不能写入：%2。"));
    ~UnnamedFile();
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;

    const QString& path() const { return path_; }
    void write(QByteArrayView bytes);
    void setRights(QFileDevice::Permissions rights);
    void sync();  ///< The bytes are on the disk then.

    /// Gives the file its name; false when that is taken, by whatever it is. Synchronises nothing: many files together
    /// are quicker on the disk (`syncFileSystemOf`, `syncFolderToDisk`) than each by itself.
    bool takeNewName();

    /// Puts the file in the place of one that bears its name, with the rights of that one. Behind a link it is the file
    /// itself that is replaced. The bytes are on the disk before, the name is afterwards.
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
    QString ownName_;  ///< Until it gets the one that it is to have; empty when it has none.
};
