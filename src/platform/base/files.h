#pragma once

#include <QDateTime>
#include <QString>

class QFileDevice;

/// Files and folders. All functions throw `Error` that names the path, unless they say otherwise.

/// The folder of the executable, which holds the program's own files.
QString programFolder();
/// Takes another folder instead: tests and tools work on copies. An empty path goes back to the executable's.
void setProgramFolder(const QString& folder);

/// `folder` and `name` with the platform's separator between them.
QString joinedPath(const QString& folder, const QString& name);

qint64 FileLen(const QString& path);
QDateTime FileDateTime(const QString& path);  ///< Time of the last change, local time, whole seconds.
/// Whether there is a file that can be read to its end. Folders, pipes, devices and links to them are none: the program
/// would wait for ever at a pipe. Does not throw.
bool fileExists(const QString& path);
bool folderExists(const QString& path);   ///< Does not throw.
bool isWritableNow(const QString& path);  ///< By the rights of this moment. Does not throw.
void Kill(const QString& path);
void MkDir(const QString& path);  ///< On the disk when it returns.
void RmDir(const QString& path);  ///< Only an empty folder.

/// Why a file could not be opened for writing or written, in words of the user, as part of a sentence. Does not throw.
QString writeFailure(const QFileDevice& file);
/// The same for a path; `otherwise` is the reason where nothing about the place explains it.
QString writeFailure(const QString& path, const QString& otherwise);

/// These wait until data is on the disk: the bytes of an open file, the names in a folder, and everything on the file
/// system of a folder. For many files the last one is quicker than each file by itself.
void syncToDisk(QFileDevice& file);
void syncFolderToDisk(const QString& path);
void syncFileSystemOf(const QString& folder);

/// Gives a file another name on the same disk, without copying it; false when the name is taken, by whatever it is.
bool renameNew(const QString& from, const QString& to);
