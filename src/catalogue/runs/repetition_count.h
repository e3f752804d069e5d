#pragma once

#include "catalogue/fingerprint.h"
#include "catalogue/runs/record_copy.h"
#include "platform/base/free_thread.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <variant>

class KnownPictures;

/// How many of these files are pictures that an album has. Only files of a length that the album has are read. A file
/// that is to be stored as a JPEG is compared as that; an empty one, or one that cannot be read, is no repetition. When
/// `goesOn`, which is asked before each piece in any thread, says no, the count ends and is worth nothing.
int countRepetitions(KnownPictures& album, const QStringList& paths, const GoesOn& goesOn);

/// The same for records of another database. What their pictures are is read where nothing is kept of them.
int countRepetitions(KnownPictures& album, const CopyOrder& records, const GoesOn& goesOn);

/// The same in a thread of its own, over connections of its own.
class RepetitionCount {
  public:
    using Things = std::variant<QStringList, CopyOrder>;  ///< Paths of files, or records.

    /// `counted` is called in the thread when the count is done; never where the album cannot be read, nor after the
    /// object has gone.
    RepetitionCount(const QString& catalogue, const QString& album, const Things& things,
                    const std::function<void(int)>& counted);

  private:
    FreeThread thread_;
};
