#pragma once

#include "intake/mapping_rules.h"
#include "intake/transfer_rules.h"
#include "platform/database/records/database.h"

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

/// What became of a picture that was to go to a file.
struct SentPicture {
    enum Outcome {
        done,
        badName,     ///< Another name helps.
        impossible,  ///< No name helps: there is no record, or it has no picture.
        failed       ///< The same step may go through later.
    };
    Outcome outcome = done;
    QString reason = {};  ///< Why it is not done.
};

/// The record that a line of the list stands for.
struct ChosenRecord {
    QString table;
    QString number;
    int earlier = 0;  ///< How many records of this number, still in the album, the lines above stand for.
    bool move = false;
};

/// A copy takes the only record of a number as often as it is asked to. `Eof` when there is none.
Recordset openChosen(const ChosenRecord& chosen);

/// Writes the picture of a record to a file; with `move` the record is deleted then.
SentPicture transferToFile(const ChosenRecord& chosen, const FileTarget& target);

/// Writes the pictures of all lines to files of the folder, under their default names. A name that cannot be written
/// does not keep the others from it.
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

/// Why a table of an open target can take no pictures; empty when it can.
QString objectionToTable(const Database& target, const QString& table);

/// Appends the records of all lines to the target, with the numbers behind its highest one. Throws `Error` when the
/// target can take none; nothing has changed then.
NotDone transferToTable(const QString& table, const QStringList& lines, const TransferTarget& target, bool move,
                        const Progress& progress);
