#pragma once

#include "editor/step_trail.h"

/// What the editor's chapters share. Lengths are twips.
struct EditorState {
    /// "00" nothing open; "w", "k" just chosen from file, album; "w1", "k1" loaded, unchanged; "s" scale; "c" crop; "x"
    /// rotate dialog; "v" rotated; "p", "z" flipped horizontally, vertically; "a1" to "a4" button picture; "b" saved
    /// under another name.
    QString editState = QStringLiteral("00");
    QString sourceFile;  ///< Full path; empty when the picture came from an album.
    QString albumTable;  ///< Table of the album picked in cboBm.
    QString sourceLine;  ///< What was told about the picture when it was loaded; the window caption begins with it.
    QString opTag;       ///< Words of the operations since loading, one after the other.

    int picLeft = 0,
        picTop = 0;  ///< Where the next flip reads its source: 0 after load and scale, else the last crop's.
    int picWidth = 0, picHeight = 0;    ///< Size of the working picture.
    int viewWidth = 0, viewHeight = 0;  ///< Size of the visible picture area.
    int selLeft = 0, selTop = 0, selWidth = 0, selHeight = 0;
    int toolbarHeight = 0;  ///< 330, or 0 while the tool bar is hidden.
    bool mouseDown = false;

    qint64 savedSize = 0;      ///< Bytes of the picture that `bcsk` stored last.
    int stepNumber = 0;        ///< Number of the newest step.
    int keptStep = 0;          ///< The step that is kept elsewhere too: loaded, saved or given up. -1 when it is gone.
    bool isTakenBack = false;  ///< The picture is an earlier step than the last paint.
    bool undoing = false;      ///< No step may be recorded.
    StepTrail stepTrail;

    /// A picture stands in the window.
    bool isOpen = false;

    /// Leaving the picture now would lose work.
    bool hasChanges() const { return isOpen && stepNumber != keptStep; }
    /// The picture as it stands is kept elsewhere, or nobody wants it.
    void forgetChanges() { keptStep = stepNumber; }
};
