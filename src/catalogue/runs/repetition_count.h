#pragma once

#include "catalogue/fingerprint.h"
#include "catalogue/runs/record_copy.h"
#include "platform/base/free_thread.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <variant>

class KnownPictures;

/// Files that are to be taken in.
struct ChosenFiles {
    QStringList paths;
    bool otherFormats = false;  ///< Those besides JPEG and BMP are taken in, too, as JPEG.
};

/// What a count has found.
struct Repetitions {
    int known = 0;  ///< Pictures that the album has.
    int open = 0;   ///< Nobody can say before they have become JPEGs.

    bool operator==(const Repetitions&) const = default;
};

/// How many of these files are pictures that an album has. Only files of a length that the album has are read
/// whole; where other formats are taken in, the beginning of each is. A BMP
/// that is to be stored as a JPEG is compared as that. One of another format is left open: decoding hundreds of them
/// would take minutes. An empty file, or one that cannot be read, is no repetition. When `goesOn`, which is asked
/// before each piece in any thread, says no, the count ends and is worth nothing.
Repetitions countRepetitions(KnownPictures& album, const ChosenFiles& files, const GoesOn& goesOn);

/// The same for records of another database. What their pictures are is read where nothing is kept of them.
Repetitions countRepetitions(KnownPictures& album, const CopyOrder& records, const GoesOn& goesOn);

/// The same in a thread of its own, over connections of its own.
class RepetitionCount {
  public:
    using Things = std::variant<ChosenFiles, CopyOrder>;  ///< Files, or records.

    /// `counted` is called in the thread when the count is done; never where the album cannot be read, nor after the
    /// object has gone.
    RepetitionCount(const QString& catalogue, const QString& album, const Things& things,
                    const std::function<void(const Repetitions&)>& counted);

  private:
    FreeThread thread_;
};
