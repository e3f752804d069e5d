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

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    UndoHistory& history_;
    AlbumChooser& chooser_;
    QWidget* form_;
};

/// Writes a picture file: a JPEG of quality 80 when the name ends in "jpg", exactly so, otherwise a bitmap.
void writePictureFile(const QImage& image, const QString& path);

/// The name under which a picture is kept: one that ends in "jpg" as it is, any other with the ending "bmp".
QString savingName(const QString& chosen);
