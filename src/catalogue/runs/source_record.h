#pragma once

#include "catalogue/fingerprint.h"
#include "catalogue/runs/readable_rows.h"
#include "catalogue/runs/record_copy.h"
#include "platform/database/records/rows_by_number.h"
#include "platform/picture/picture_bytes.h"

#include <optional>

/// The records of another database on their way into an album: found, read and looked at.

/// What a record of the source brings.
struct SourceValues {
    std::vector<FieldValue> values = {};  ///< By pair of the mapping; Null where the source has none.
    QByteArray picture = {};              ///< The one of them that goes to 图片; empty when there is none.
    PictureBytes kind = PictureBytes::whole;
    Fingerprint print = {};  ///< Of the picture, where the album keeps fingerprints.
    QString sizeText = {};   ///< 规格 for a picture that comes without it; empty when the picture cannot be read.
    qint64 bytes = 0;        ///< Of all long values.
    bool isSpoilt = false;   ///< The picture is not the one that was stored: the source has kept its fingerprint.
};

/// Finds and reads the records of an order. Made once; any thread may read by it, with a connection of its own.
class SourceReader {
  public:
    /// Looks through the source once. Throws `Error` when it has no such table or index field. With `printed` it makes
    /// fingerprints.
    SourceReader(const Database& source, const CopyOrder& order, bool printed);

    /// What `read` takes the records from: one for each connection.
    RecordsInTurn recordsIn(const Database& source) const;
    /// Throws `Error` when there is no such record, or none can be found by this kind of key.
    SourceValues read(const Database& source, RecordsInTurn& records, qsizetype place) const;

    /// What goes to 图片, unread. Null when there is no such record, or no picture.
    StoredValue picture(const Database& source, qsizetype place) const;

    /// What of the source is lost, a sentence for each part.
    const QStringList& missing() const { return readable_.missing(); }

    /// The criteria that finds a record by its key. Throws `Error` for this kind of key.
    QString criteria(qsizetype place) const { return keyCriteria(index_, order_.records[place].key); }
    /// The key of a record, where it is a whole number.
    std::optional<qint32> number(qsizetype place) const;
    /// All such keys.
    std::vector<qint32> numbers() const;

  private:
    qint64 rowOf(qint32 number, qsizetype place) const;
    SourceValues valuesOf(const Database& source, const Recordset& record) const;
    Recordset find(const Database& source, qsizetype place) const;
    bool wantsSizeText(const SourceValues& record) const;

    const CopyOrder& order_;
    bool printed_;
    bool isForeign_;
    FieldShape index_;
    ReadableRows readable_;
    RowsByNumber rows_;
};

/// Whether a column holds whole numbers that `RowsByNumber` can look for.
bool holdsWholeNumbers(const FieldShape& column);
