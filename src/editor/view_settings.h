#pragma once

#include "editor/commands.h"
#include "editor/editor_view.h"

/// The two settings of how the editor looks: tool bar and hint box. They stand in `tcsz` and outlive the session.
class ViewSettings : public QObject {
    Q_OBJECT

  public:
    ViewSettings(EditorState& state, Commands& commands, EditorView& view);

    /// Brings menu items, buttons and the state in line with `tcsz`.
    void read();
    /// Shows or hides the tool bar.
    void mnuGxClick();
    /// Lets the hint box show, or not.
    void mnuTgClick();

  private:
    void applyToolBar(bool shown);
    void applyHints(bool shown);

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    bool hintsOn_ = true;
};
