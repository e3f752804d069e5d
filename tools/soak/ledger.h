#pragma once

#include <QList>
#include <QMap>
#include <QSet>
#include <QStringList>

/// A table, or a folder, with what lies in it.
struct PlaceFound {
    QStringList pictures;  ///< Fingerprints, row by row.
    QString numbers;       ///< Fingerprint of the column 序号, row by row.
};

/// What was found after a kill, by place.
using Found = QMap<QString, PlaceFound>;

/// What the worked program has told about its doings, and what therefore has to be found. Told are lines of words:
///
///     add P h        a picture is going to P        added P h       it was reported stored
///     drop P h       it is going to be deleted      dropped P h     that was reported done
///     turn P h Q k   h in P is becoming k in Q      turned P h Q k  that was reported done
///     renumber P a b numbers a are becoming b       renumbered P b  that was reported done
///     create P, created P, remove P, removed P      the place itself, with all that is in it
///
/// A fingerprint "?" stands for a picture that is not known before it is there; "met P h" tells what came of it.
class Ledger {
  public:
    static inline const QString unknown = QStringLiteral("?");

    /// A line of another kind is none of the ledger's business.
    void hear(const QString& line);
    /// A sentence for everything that is not as it has to be.
    QStringList faults(const Found& found) const;
    /// From now on what was found is what there is.
    void adopt(const Found& found);

  private:
    enum class Certainty { sure, possible, gone };
    struct Place {
        Certainty certainty = Certainty::sure;
        QMap<QString, Certainty> pictures;
        int strangers = 0;       ///< Pictures not known before that may be found.
        QStringList numberings;  ///< One of these is found, unless there is none.
    };
    struct Turn {
        QString fromPlace, fromPicture, toPlace, toPicture;
        bool operator==(const Turn&) const = default;
    };

    void pictureIs(const QString& place, const QString& picture, Certainty certainty);
    void turnIs(const QStringList& words, bool done);
    void comparePictures(const QString& name, const Place& place, const PlaceFound& found, QStringList& faults) const;
    QString faultOf(const Turn& turn, const Found& found) const;
    QStringList strangersIn(const QString& place, const Found& found) const;

    QMap<QString, Place> places_;
    QList<Turn> turns_;
};
