#pragma once

#include "catalogue/runs/picture_storing.h"
#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/database/records/database.h"

/// The intake of picture files into an album table.

/// What is to be entered, and how.
struct IntakeOrder {
    QString folder;
    QStringList names;         ///< All files of the list.
    QList<int> selected = {};  ///< Indices of those to enter, ascending.
    bool replace = false;
    bool fillFields = true;  ///< 自动补足
    BmpFiles bmp = BmpFiles::toJpeg;
    bool takesTruncated = false;  ///< Pictures that end early are entered like others, and not left out.
    bool otherFormats = false;    ///< Those besides JPEG and BMP are entered, too, as JPEG.
    bool exposureDates = false;   ///< 日期 is the moment of exposure where the picture tells it.
    bool titles = false;          ///< 备注 is the title of the picture where it has one.
    bool skipKnown = false;       ///< Leaves out what the album had before the run; without effect on `replace`.
};

/// Enters the files of `order` in turn into an album table (see `RunInTurn`), while the next ones are read in other
/// threads, those of other formats by all processors. A picture that ends early, or that the album has, is left out,
/// and no number is spent on it. An empty file brings a record without a picture, or changes nothing in the one that it
/// was to replace. The percentage is the part of the whole list that the last file closes. The report's places are
/// those in `selected`.
///
/// The headers of a picture are read, and its end is looked for; it is not decoded. A catalogue that keeps fingerprints
/// gets those of the new pictures.
RunReport wjlr(const Database& album, const QString& table, const IntakeOrder& order, RunWatch& watch);
