#pragma once

#include "catalogue/fingerprint.h"
#include "platform/database/records/value_hashes.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <vector>

/// The fingerprints of the pictures that a catalogue keeps. Only the program's own file keeps any: for another one
/// nothing is noted.
class PictureHashes {
  public:
    explicit PictureHashes(const Database& database) : hashes_(database) {}

    /// Notes the fingerprint of a stored picture, in the change under way if there is one. The value of a record that
    /// `Update` has just stored is that of `Recordset::storedAt`.
    void note(const StoredValue& picture, const Fingerprint& print) { note(picture.id(), print); }
    void note(qint64 picture, const Fingerprint& print) { hashes_.note(picture, print.length, print.sha256); }
    /// The fingerprint of a picture, where one is kept; an empty one otherwise.
    Fingerprint of(const StoredValue& picture) const;
    bool areKept() const { return hashes_.areKept(); }

  private:
    ValueHashes hashes_;
};

/// Which pictures an album has. It holds the fingerprints that are kept of them. Where some have none, their lengths
/// are looked up at the first question; of these pictures only the ones of a length that is asked for are read.
class KnownPictures {
  public:
    /// The pictures that the album has now. `goesOn` is asked between the pieces that are read: when it says no, the
    /// answers are worth nothing any more. Throws `Error` when the album cannot be read.
    KnownPictures(
        const Database& catalogue, const QString& album, GoesOn goesOn = [] { return true; });

    bool hasLength(qint64 length);
    const QSet<qint64>& lengths();
    bool has(const Fingerprint& print);

  private:
    void measure();
    void read(qint64 length);

    GoesOn goesOn_;
    QSet<Fingerprint> prints_;
    QSet<qint64> lengths_;
    std::vector<StoredValue> unmeasured_;
    QMultiHash<qint64, StoredValue> unread_;  ///< Pictures without a fingerprint, by length.
};
