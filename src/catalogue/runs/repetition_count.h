#pragma once

#include "catalogue/fingerprint.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <thread>

class KnownPictures;

/// How many of these files are pictures that an album has. Only files of a length that the album has are read. A file
/// that is to be stored as a JPEG is compared as that; an empty one, or one that cannot be read, is no repetition. When
/// `goesOn`, which is asked before each piece in any thread, says no, the count ends and is worth nothing.
int countRepetitions(KnownPictures& album, const QStringList& paths, const GoesOn& goesOn);

/// The same in a thread of its own, over a connection of its own. It ends at once with the object.
class RepetitionCount {
  public:
    /// `counted` is called in the thread when the count is done; never where the album cannot be read.
    RepetitionCount(const QString& catalogue, const QString& album, const QStringList& paths,
                    std::function<void(int)> counted);

  private:
    std::jthread thread_;
};
