#pragma once

#include "platform/database/records/database.h"

#include <map>
#include <vector>

/// A section of the manual, a row of `tcbz`: number, a blank and title are a heading of the text.
struct ManualSection {
    QString number;  ///< Its first three characters are those of its chapter.
    QString title;

    bool operator==(const ManualSection&) const = default;
};

/// The manual that the program carries within itself.
struct ShippedManual {
    QString text = {};     ///< Rich text, its pictures included.
    QString version = {};  ///< Of the program that it belongs to, such as "1.1.0".
    /// The main window in each colour scheme, by the scheme's number: the bytes of a JPEG. Empty where the program was
    /// linked without them.
    std::map<int, QByteArray> previews = {};
};

/// Throws `Error` when the program was linked without it.
ShippedManual shippedManual();

/// The sections of a manual, in the order of the text.
std::vector<ManualSection> sectionsOf(const QString& manual);

/// Puts a manual, its contents and the previews in the place of an older one, in one change. A manual that was changed
/// by hand stays, and so does one that a newer program has put there. Returns whether it was replaced. Throws `Error`
/// when the catalogue cannot be read or written; nothing has changed then.
bool renewManual(const Database& catalogue, const ShippedManual& shipped);
