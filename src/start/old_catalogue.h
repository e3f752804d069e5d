#pragma once

/// What the program does before its windows come where its catalogue is one of another format.

enum class OldCatalogue {
    none,       ///< The open catalogue is none.
    converted,  ///< A new one has its name now; it is not open yet, and not locked.
    left        ///< The person wants to leave.
};

/// Asks whether the open catalogue is to be converted, does that, and tells what became of its records.
OldCatalogue askAboutOldCatalogue();

/// Ends a conversion, or the rescue of a damaged catalogue, that was killed where the catalogue had no file for a
/// moment. Throws `Error`.
void resumeConversion();
