#pragma once

#include "catalogue/fingerprint.h"
#include "platform/database/records/database.h"

#include <QDate>
#include <QList>
#include <QMap>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

/// The proof that the pictures of a catalogue are still what they were: each is read and compared with its fingerprint.

/// Why a stored picture can no longer be trusted.
enum class Fault {
    none,
    changed,     ///< Its bytes are not those of its fingerprint.
    unreadable,  ///< The file does not give its bytes any more.
    notWhole,    ///< It has never been a whole picture here: it cannot be decoded, or its end is missing.
};

struct ToProve {
    qint64 picture = 0;      ///< Id of the value.
    Fingerprint print = {};  ///< An empty one where none is kept yet.
    bool decodes = false;    ///< It has not been decoded yet.
};

struct Proven {
    qint64 picture = 0;
    Fault fault = Fault::none;
    Fingerprint print = {};  ///< What was read; an empty one for what is unreadable.
    bool isNew = false;      ///< No fingerprint was kept of it.
    bool isDecoded = false;
};

/// The values in albums and in the bin that have no fingerprint, without reading them.
std::vector<StoredValue> unprintedPictures(const Database& catalogue);

/// All pictures, by id.
std::vector<ToProve> allPictures(const Database& catalogue);
/// Those that a copy can be compared by, without decoding: the others may have been lost before, which is no fault of
/// the copy.
std::vector<ToProve> picturesWithPrints(const Database& catalogue);
/// Those that have a fingerprint and were not read since `before`, or are not decoded yet. Those that are known to be
/// damaged are left out.
std::vector<ToProve> picturesDue(const Database& catalogue, const QDate& before);

/// Nothing when `goesOn` said no, the picture is gone, or nobody can tell, because the file does not answer at all.
std::optional<Proven> prove(const Database& catalogue, const ToProve& picture, const GoesOn& goesOn);

/// Proves pictures with all processors, over connections that only read. `goesOn` is called in this thread, some times
/// a second; when it says no, the pictures in hand are the last. `done` counts pictures and `bytes` what was read.
using ProofGoesOn = std::function<bool(qsizetype done, qint64 bytes)>;
std::vector<Proven> proveAll(const QString& file, const std::vector<ToProve>& pictures, const ProofGoesOn& goesOn);

/// What is known of a catalogue's pictures.
struct ProofState {
    qint64 unchanged = 0;
    QDate since;                  ///< Each of them was found unchanged on this day, or later.
    QMap<qint64, Fault> damaged;  ///< By id of the value.
};
ProofState proofState(const Database& catalogue);
/// "10,482 张图片未变，2026-11-22", with how many are damaged; empty where nothing is known.
QString proofText(const ProofState& state);

/// Stores what was found, in one change, and returns what was not known to be damaged before. What is gone, or has
/// another fingerprint by now, is passed over.
QMap<qint64, Fault> storeProof(const Database& catalogue, const std::vector<Proven>& found);

/// Where a picture is.
struct PicturePlace {
    QString table;   ///< Empty: in no album.
    QString album;   ///< Its title.
    QString number;  ///< 序号
};
PicturePlace placeOf(const Database& catalogue, qint64 picture);
/// "《旅行》12", or that it was deleted.
QString textOf(const PicturePlace& place);
QString textOf(Fault fault);

/// A damaged picture as it is in a backup.
struct Remedy {
    QString backup;    ///< The file.
    qint64 value = 0;  ///< In it.
};
using Remedies = QList<Remedy>;
/// Looks for the fingerprints of pictures in backups, the first one first. It does not read the pictures there. For
/// those that were never whole there is none.
QMap<qint64, Remedies> remediesFor(const Database& catalogue, const QMap<qint64, Fault>& damaged,
                                   const QStringList& backups);
/// Brings a picture back, from the first backup that has it unchanged. What comes out of the backup, and what is in the
/// catalogue afterwards, is compared with the fingerprint; throws `Error` when no backup is good, and the catalogue is
/// as it was.
void heal(const Database& catalogue, qint64 picture, const Remedies& remedies);
/// Takes a damaged picture from now on as it is. Throws `Error` when it cannot be read.
void takeAsIs(const Database& catalogue, qint64 picture);
