#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

#include <QHash>
#include <QString>
#include <vector>

/// The joining of all albums of an old catalogue to one of ours: each becomes a new album under a free name, and the
/// selection buttons come along by their codes.

/// A code that is that of another button in our catalogue.
struct TakenCode {
    QString code;
    QString ours;    ///< Name of the button there.
    QString theirs;  ///< The same in the old catalogue.
};
std::vector<TakenCode> takenCodes(const Database& old, const Database& ours);

/// An album that has come from the old catalogue before, as its title and its records tell, but for their pictures and
/// codes: all of it, or, where that joining was stopped, its beginning.
struct JoinedAlbum {
    QString table;  ///< In the old catalogue.
    QString album;  ///< Table of ours.
    QString title;
    int records = 0;
    int recordsThere = 0;  ///< In the old one.
    bool isWhole = false;
};
std::vector<JoinedAlbum> joinedAlbums(const Database& old, const Database& ours);

struct JoinOrder {
    QString old;           ///< A Jet database.
    QString ours;          ///< The catalogue that the albums join.
    bool newCodes = true;  ///< Buttons whose codes are taken get others, and their pictures too; otherwise ours serve.
    /// What has joined before is left out, and what has done so in part goes into the bin and joins anew.
    std::vector<JoinedAlbum> joined = {};
};

/// The demonstration album stays where it is. What is done stays done, whole record by whole record, when the watch or
/// a failure ends the run. The pictures are read back and compared with a second reading of the old file. Throws
/// `Error` when it cannot begin; nothing has changed then.
RunReport joinCatalogue(const JoinOrder& order, RunWatch& watch);
