#pragma once

#include "editor/operations/operation.h"

/// What the editor is about. `asking` and `done` belong to an operation.
enum class EditState {
    nothing,      ///< No picture is open.
    fromFile,     ///< Loaded from a file, unchanged.
    fromAlbum,    ///< Loaded from an album, unchanged.
    asking,       ///< An operation's dialog was opened.
    done,         ///< An operation was carried out.
    buttonShape,  ///< Button picture: its shape is to be chosen.
    buttonPart,   ///< Button picture: its part of the picture is to be drawn, or is drawn.
    buttonKeep,   ///< Button picture: made, its place is to be chosen.
    buttonRow,    ///< Button picture: its selection button is to be chosen.
    copied        ///< Saved under another name.
};

/// The code of a state, by which hints are found. Of `asking` and `done` it is the operation's.
QString codeOf(EditState state, const Operation* operation = nullptr);
