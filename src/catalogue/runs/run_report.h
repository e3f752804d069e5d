#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <exception>
#include <initializer_list>
#include <vector>

/// What became of a file or a record that a run was given.
enum class Fate {
    taken,           ///< It is at its new place, on the disk.
    withoutPicture,  ///< The same but for its picture: it had none to give.
    alreadyThere,    ///< Left out, since the album has this very picture.
    notFound,        ///< No record has its number or key; nothing was done with it.
    truncated,       ///< Left out, since its picture ends early.
    notAPicture,     ///< Left out, since what it has is neither BMP nor JPEG.
    failed,          ///< Nothing of it was kept, and `reason` says why.
    doubtful,  ///< It is at its new place, but its record did not go, or it could not be verified; `reason` says which.
    left,      ///< The run did not reach it.
    noted      ///< No picture: something else that is worth knowing, which `reason` says.
};

struct RunItem {
    qsizetype place = 0;  ///< In the order that the run was given.
    QString name = {};    ///< The file's name, or the number or key of the record.
    Fate fate = Fate::taken;
    QString reason = {};  ///< Why it failed; of what is taken, a note.
    QString file = {};    ///< Of a record that goes to a file: the file's name, where it has one or should have had.
};

/// What a run has done.
struct RunReport {
    int count = 0;                    ///< Files or records taken; 0 when a failure ended the run.
    std::vector<RunItem> items = {};  ///< In the order in which their fates were decided.
    QString failure = {};             ///< Why the run ended early; empty when no failure ended it.
    bool cameToEnd = false;
    bool stopped = false;  ///< The watch has ended it.
    int verified = 0;      ///< Pictures that were read back at their new places and are the same as at the old ones.
    QStringList missing = {};  ///< What a damaged source has lost besides its things: a sentence for each part.

    bool has(Fate fate) const;
    QStringList namesOf(std::initializer_list<Fate> fates) const;
    QList<qsizetype> placesOf(std::initializer_list<Fate> fates) const;
    QStringList filesOf(Fate fate) const;
    /// Those that were left out because of their pictures.
    QList<qsizetype> leftOut() const { return placesOf({Fate::truncated, Fate::notAPicture}); }

    /// Ends the report of a run that has come to this place of its order: counts what was taken, and notes what the run
    /// did not reach.
    void close(const QStringList& names, qsizetype next);
    /// Adds what became of those that were left out and then given to a second run, in the order of `leftOut`. They
    /// count as far as the second run came.
    void add(const RunReport& second);
};

/// What a failure says, as a whole sentence, and as part of one.
QString reasonOf(const std::exception& failure);
QString causeOf(const std::exception& failure);
/// A sentence as part of another one: without the full stop at its end.
QString withoutStop(const QString& sentence);
