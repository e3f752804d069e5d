#pragma once

#include "editor/undo_history.h"
#include "editor/view_settings.h"

#include <functional>

/// Brings a picture into the editor, and empties the editor.
class Loading : public QObject {
    Q_OBJECT

  public:
    Loading(EditorState& state, Commands& commands, EditorView& view, ViewSettings& settings, UndoHistory& history,
            QWidget* window);

    /// Asked before another picture takes the place of the open one; it stays when the answer is false.
    std::function<bool()> mayReplace = [] { return true; };

    /// Asks for a file and opens it.
    void mnuCwClick();
    /// Makes a picture that an album gave the working picture.
    void openFromAlbum(const Picture& picture, const QString& sourceLine);
    /// The empty editor: settings read anew, welcome picture.
    void pmfy();

  private:
    void openFile(const QString& path);
    void xstp();
    void takeLoaded(const Picture& picture);
    void empty();

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    ViewSettings& settings_;
    UndoHistory& history_;
    QWidget* window_;
};
