#pragma once

#include "catalogue/bin_contents.h"

/// What has come back out of the bin.
struct Restored {
    int pictures = 0;
    int albums = 0;
    int buttons = 0;
    std::vector<qint64> codeTaken = {};  ///< Buttons that stay in the bin: another one has their code.

    bool isAny() const { return pictures + albums + buttons > 0; }
};

/// Puts items back, in one change; those that are gone are passed over. An album comes with all records that went with
/// it. A record goes into its album: the one of its table and title, else the one of its title, else it is made again,
/// by another table name if its own is taken. A taken number is replaced by the next one. A picture that was replaced
/// changes places with the one that came for it, as long as that is there; otherwise it comes back as a record. Throws
/// `Error`; nothing is changed then.
Restored restoreFromBin(const Database& catalogue, const std::vector<qint64>& ids);

/// What keeps a button from coming back with that code, as a sentence for the user; empty when nothing does.
QString binCodeFault(const Database& catalogue, const QString& code);
/// Puts a button back with another code than its own.
void restoreButton(const Database& catalogue, qint64 id, const QString& code);
