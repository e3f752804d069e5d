#pragma once

#include "intake/bmp_files.h"
#include "intake/form_state.h"

#include <QList>
#include <QStringList>
#include <functional>

class DataControl;

/// The intake of picture files into an album table.

/// What is to be entered, and how.
struct IntakeOrder {
    QString folder;
    QStringList names;    ///< All files of the list.
    QList<int> selected;  ///< Indices of those to enter, ascending.
    bool replace = false;
    bool fillFields = true;  ///< 自动补足
    BmpFiles bmp = BmpFiles::toJpeg;
    bool takesTruncated = false;  ///< Pictures that end early are entered like others, and not left out.
};

/// What became of it.
struct IntakeResult {
    int count = 0;               ///< Files entered, 0 unless the run came to its end.
    QStringList entered = {};    ///< Their pictures are in the album.
    QStringList notFound = {};   ///< No record has their number; nothing was done with them.
    QStringList empty = {};      ///< Files without a byte: no picture was stored.
    QStringList truncated = {};  ///< Pictures that end early; they were left out.
    QString failedFile = {};     ///< The file at which the run ended early.
    QString failure = {};        ///< Why; empty when the run was not ended by a failure.
    QStringList left = {};       ///< Files that it did not reach.
    bool cameToEnd = false;

    /// Adds what became of the files that were left out before. They are counted as far as the second run came.
    void add(const IntakeResult& second);
};

/// Enters the files of `order` one by one into the table of `datLr` (`state.targetTable` of
/// `state.targetDatabasePath`); each is durable when its step is done. The first failure ends the run. A picture that
/// ends early is no failure: it is left out, and no number is spent on it. `progress` hears the percentage of the list
/// after each file.
IntakeResult wjlr(DataControl& datLr, const IntakeOrder& order, FormState& state,
                  const std::function<void(int)>& progress);

/// Stores a file in the column 图片 of the current record, one that ends in "bmp" as JPEG. `replace`: the record is
/// edited and updated here; otherwise the caller does it. Returns the length of what is stored; 0 when there was
/// nothing, the record then stays in `Edit`.
qint64 bctp(const QString& path, Recordset& recordset, BmpFiles bmp, bool replace);

/// What to say before the closing message: what was not taken in and why; empty when all went well.
QString intakeReport(const IntakeResult& result);
