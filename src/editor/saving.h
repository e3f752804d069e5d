#pragma once

#include "editor/album_chooser.h"

#include <optional>

/// How a picture leaves the editor: over its source, or into another file.
class Saving : public QObject {
    Q_OBJECT

  public:
    Saving(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog, UndoHistory& history,
           AlbumChooser& chooser, QWidget* form);

    void mnuBcClick();
    void mnuLcClick();

    /// Whether the open picture may go: asks about changes that are not saved, and saves them if that is the answer.
    bool mayGo();

  private:
    std::optional<QImage> askWhatToSave();
    /// Writes a picture over the source; the result tells where it is now.
    QString store(const QImage& picture);
    QString storeInAlbum(const QImage& picture);
    void finish();
    bool isFromAlbum() const { return state_.sourceLine.mid(2, 2) == u"图册"; }

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    OperationDialog& dialog_;
    UndoHistory& history_;
    AlbumChooser& chooser_;
    QWidget* form_;
};
