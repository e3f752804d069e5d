#pragma once

#include "editor/pixels/painting.h"
#include "editor/undo_history.h"

/// Scale, crop, rotation and the two flips: each draws a new picture from the working one and puts it in its place.
class Transforms : public QObject {
    Q_OBJECT

  public:
    Transforms(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog, UndoHistory& history);

    /// Open the dialogs of scale and rotation.
    void mnuSfClick();
    void mnuXzClick();
    /// Flip from left to right, from top to bottom.
    void mnuFsClick();
    void mnuFcClick();

  private:
    struct Flip {
        Mirror mirror;
        QString tag, state, hint;
    };

    void cmdCqClick();
    void carryOut(const QString& mode);
    void scale();
    void crop();
    void tpxz();
    void paint(const QRect& part, double factor);
    void flip(const Flip& flip);
    void finish(const QString& mode);

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    OperationDialog& dialog_;
    UndoHistory& history_;
};
