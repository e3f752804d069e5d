#pragma once

#include "intake/mapping_rules.h"
#include "intake/transfer_rules.h"
#include "platform/database/database.h"

#include <QStringList>
#include <functional>

/// The taking of chosen records out of an album of the catalogue: into a folder, or into a table of a catalogue.
/// A record is told by its 序号. Nothing is deleted before its picture is safe at its new place, on the disk.

using Progress = std::function<void(int percent)>;

/// Where a single picture is to go.
struct FileTarget {
    QString folder;
    QString name;
};

/// Writes the picture of one 序号 to a file; with `move` its record is deleted then. `earlier`: how often the same
/// number was copied before; where several records share it, each gets its turn. What fails is told to `notDone`.
void transferToFile(const QString& table, const QString& number, int earlier, const FileTarget& target, bool move,
                    NotDone& notDone);

/// Writes the pictures of all lines to files of the folder, under their default names. The first name that cannot be
/// written does not keep the others from it.
NotDone transferToFiles(const QString& table, const QStringList& lines, const QString& folder,
                        const Progress& progress);

/// Where records are to go. The pairs serve the other way round than at the intake: `target` names the column that is
/// read and `source` the one that is written. The first pair, that of 序号, is left out.
struct TransferTarget {
    Database database;
    QString table;
    FieldMapping mapping;
};

/// Opens a file as a target. Throws `Error` that says why when nothing can be written to it.
Database openTarget(const QString& path);

/// Appends the records of all lines to the target, numbered from its last record on. Throws `Error` when the target
/// cannot be opened; nothing has changed then.
NotDone transferToTable(const QString& table, const QStringList& lines, const TransferTarget& target, bool move,
                        const Progress& progress);
