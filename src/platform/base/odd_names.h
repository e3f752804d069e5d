#pragma once

#include <QIODevice>
#include <QList>
#include <QString>
#include <QStringList>

class QDateTime;
class QFile;

/// Files and folders whose names are not valid text, as old disks and archives bring them. A QString cannot hold such a
/// name. The program shows a stand-in: the bytes read as GB 18030, or each byte in hexadecimal between "‹" and "›". Its
/// readers accept a path that ends in a stand-in. Systems that keep names as text have no such files.

struct FolderEntry {
    QString name;
    bool isStandIn = false;
};

/// The files in a folder whose names match one of the patterns ("*.jpg", case ignored), in no order; none when it
/// cannot be read. A link to a file is one, a device or a pipe is not.
QList<FolderEntry> filesIn(const QString& folder, const QStringList& patterns);

/// The stand-ins of folders. Nothing opens them.
QStringList oddFoldersIn(const QString& folder);

/// Whether a path ends in the stand-in of a file that is there.
bool isStandIn(const QString& path);

/// Opens a file for reading, by its name or by its stand-in; on failure it says why as `QFile::open` does.
bool openForReading(QFile& file, const QString& path, QIODevice::OpenMode further = {});
