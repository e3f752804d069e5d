#pragma once

#include <QList>
#include <QMap>
#include <QSet>
#include <QStringList>

/// The content of a table or a folder.
struct PlaceFound {
    QStringList pictures;  ///< Fingerprints, row by row.
    QString numbers;       ///< Fingerprint of the column 序号, row by row.
    bool operator==(const PlaceFound&) const = default;
};

/// The content of all places after a kill.
using Found = QMap<QString, PlaceFound>;

/// Keeps the reports of the worked program, and compares them with the files that a kill leaves. A report is a line of
/// words, with P and Q for places, h and k for fingerprints of pictures, a and b for fingerprints of numbers:
///
///     add P h        h is being stored in P          added P h       it is stored
///     drop P h       h is being deleted from P       dropped P h     it is deleted
///     turn P h Q k   h in P is becoming k in Q       turned P h Q k  it has become k
///     renumber P a … the numbers of P are one of these, until it is renumbered, or anything else comes of it
///     renumbered P b they are b                      forget P        they may be any
///     create P, created P, remove P, removed P       the same for the place itself, with its content
///
/// The fingerprint "?" is a picture that is not known before it is stored; "met P h" names it afterwards. Into the
/// place `bin` goes more than is told.
class Ledger {
  public:
    static inline const QString unknown = QStringLiteral("?");
    static inline const QString bin = QStringLiteral("lunq_bin");
    /// The steps of the editor: their number, with "+" behind it where their source is kept, otherwise "-".
    static inline const QString steps = QStringLiteral("tccx");

    /// Takes a report. Other lines are ignored.
    void hear(const QString& line);
    /// A sentence for each difference between reports and files.
    QStringList faults(const Found& found) const;
    /// Takes the found content as the new state.
    void adopt(const Found& found);

  private:
    enum class Certainty { sure, possible, gone };
    struct Place {
        Certainty certainty = Certainty::sure;
        QMap<QString, Certainty> pictures;
        int strangers = 0;       ///< So many unknown pictures may be found.
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
