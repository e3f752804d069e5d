#pragma once

#include "platform/database/recordset.h"

#include <QString>

/// What the chapters of the main window share. Lengths are twips.
struct ViewerState {
    QString mainTitle;  ///< Title of the whole collection.
    int windowedWidth = 0;
    int windowedHeight = 0;
    bool smallScreen = false;  ///< Less than 800 pixels wide.

    int pageAreaWidth = 0;
    int pageAreaHeight = 0;
    int buttonStripHeight = 0;

    /// The selection on the open album, always sorted by 序号; Nothing while no album is open.
    Recordset albumRecordset;
    QString albumTitle;

    QString selectionCode = QStringLiteral("v");  ///< Code of the active button; "v" means all pictures.
    QString dateCondition;                        ///< SQL condition, empty when none.
    int dateOperator = 0;                         ///< Of the condition: 0 earlier, 1 later, 2 on that day.
    QString conditionDate;                        ///< The day of the condition, as the page line tells it.
    bool isNarrowed = false;                      ///< The selection was chosen by a date or number condition.
    QString pageStatusText;                       ///< First half of the page line.

    int picturesPerPage = 1;
    int pictureCount = 0;
    int pageCount = 0;
    int firstPictureIndex = 0;  ///< Records before the first cell; may be negative after a step back.
    bool pageShown = false;     ///< A page of the open album has been drawn: a resize draws it again.
    int selectedCell = 0;       ///< The cell that was opened last.

    int buttonPage = 1;  ///< Number of the button in the top slot, from 1.
    bool slideLoop = false;

    /// Nothing of an album is selected, and nothing counted, any longer.
    void forgetSelection();
};

/// Visits all records, so that their count is known, and goes back to the first one. The count.
int visitAll(Recordset& records);
