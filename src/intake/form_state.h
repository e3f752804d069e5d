#pragma once

#include "platform/database/records/recordset.h"

#include <QString>

/// State of the settings window that several of its pages read and write.
struct FormState {
    bool pageFree = true;  ///< False while a multi-step action is pending: leaving the page would lose it.
    QString hintText;      ///< What the hint line shows while the mouse is not over a page caption.
    QString albumTable;    ///< Table of the album chosen in cboBm.
    int intakeStep = 0;    ///< Step of the guided flow of the pages 图片录入 and 图片转存.

    QString currentFolder;   ///< Folder shown in the folder and file lists.
    QString pickedFilePath;  ///< Path of the focused file of the file list.
    int selectedFileCount = 0;

    QString sourceDatabasePath;
    QString sourceTable;
    QString targetDatabasePath;
    QString targetTable;

    QString previewMark;     ///< "s": the preview shows the current record; "w": a file.
    int previewIndex = 0;    ///< Which cmdCk opened the preview.
    QString newPictureFile;  ///< File that the preview shows or will store; empty when none.
};
