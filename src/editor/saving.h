#pragma once

#include "editor/album_chooser.h"

/// How a picture leaves the editor: over its source, or into another file.
class Saving : public QObject {
    Q_OBJECT

  public:
    Saving(EditorState& state, Commands& commands, EditorView& view, UndoHistory& history, AlbumChooser& chooser,
           QWidget* form);

    void mnuBcClick();
    void mnuLcClick();

  private:
    void saveIntoAlbum();
    void saveOverFile();
    /// The picture of the last paint: after an undo, the one that was taken back.
    QImage lastPaint() const;

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    UndoHistory& history_;
    AlbumChooser& chooser_;
    QWidget* form_;
};
