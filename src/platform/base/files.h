#pragma once

#include <QDateTime>
#include <QString>

class QFileDevice;

/// Files and folders. All functions throw `Error` that names the path, unless they say otherwise.

/// The folder of the executable, where the program's own files stand.
QString programFolder();
/// Lets another folder stand for it: tests and tools work on copies. An empty path goes back to the executable's.
void setProgramFolder(const QString& folder);

/// `folder` and `name` with the platform's separator between them.
QString joinedPath(const QString& folder, const QString& name);

qint64 FileLen(const QString& path);
QDateTime FileDateTime(const QString& path);  ///< Time of the last change, local time, whole seconds.
/// Whether a file stands there that can be read to its end: not a folder, nor a pipe or a device, nor a link to one,
/// at which the program would wait for ever. Does not throw.
bool fileExists(const QString& path);
bool folderExists(const QString& path);   ///< Does not throw.
bool isWritableNow(const QString& path);  ///< With the rights that count at this moment. Does not throw.
void Kill(const QString& path);
void MkDir(const QString& path);  ///< On the disk when it returns.
void RmDir(const QString& path);  ///< Only an empty folder.

/// Why a file could not be opened for writing or written, in words of the user, as part of a sentence. Does not throw.
QString writeFailure(const QFileDevice& file);
/// The same for a path; `otherwise` is the reason where nothing about the place explains it.
QString writeFailure(const QString& path, const QString& otherwise);

/// Waits until what was written is on the disk: to an open file; the names in a folder; all that was written to the
/// file system on which a folder lies, which for many files is quicker than each by itself.
void syncToDisk(QFileDevice& file);
void syncFolderToDisk(const QString& path);
void syncFileSystemOf(const QString& folder);

/// Gives a file another name on the same disk, without copying it; false when the name is taken, by whatever it is.
bool renameNew(const QString& from, const QString& to);
