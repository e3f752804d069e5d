#pragma once

#include "catalogue/runs/chosen_record.h"
#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

/// The taking of chosen records out of an album into files of a folder. A record is named by its 序号. None is deleted
/// before its picture is safe in its file, on the disk.

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
        doubtful,    ///< Its file is there, but its record did not go, or the disk may not have it.
        failed       ///< The same step may go through later.
    };
    Outcome outcome = done;
    QString reason = {};  ///< Why it is not done.
};

/// Writes the picture of a record to a file; with `move` the record is deleted then.
SentPicture transferToFile(const Database& album, const ChosenRecord& chosen, const FileTarget& target);

/// Writes the pictures of the records of these numbers to files of the folder, under their default names. A record that
/// fails does not keep the others from it.
RunReport transferToFiles(const Database& album, const QString& table, const QStringList& numbers,
                          const QString& folder, RunWatch& watch);
