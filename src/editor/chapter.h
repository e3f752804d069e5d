#pragma once

#include "editor/commands.h"
#include "editor/editor_view.h"

/// What the chapters of the editor work with.
struct Workplace {
    Document& document;
    Commands& commands;
    EditorView& view;
    QWidget* form;
};

/// A chapter of what the editor does: it connects the commands that are its own, and goes with the form.
class Chapter : public QObject {
    Q_OBJECT

  protected:
    explicit Chapter(const Workplace& at)
        : QObject(at.form), document_(at.document), commands_(at.commands), view_(at.view), form_(at.form) {}

    Document& document_;
    Commands& commands_;
    EditorView& view_;
    QWidget* form_;
};
