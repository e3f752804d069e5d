#pragma once

#include "editor/chapter.h"
#include "editor/operation_dialog.h"

/// The way of an operation: its command, the question that it asks, its work on the picture, the step that is recorded.
class OperationRunner : public Chapter {
    Q_OBJECT

  public:
    OperationRunner(const Workplace& at, OperationDialog& dialog);

    /// The command of an operation: carries it out, or opens its dialog.
    void start(const Operation& operation);
    /// Opens the dialog of the last operation once more, for another try; nothing when there was none.
    void reopen();

  private:
    void ask(const Operation& operation);
    void confirm();
    bool carryOut(const Operation& operation);
    void paint(const Operation& operation);
    void finish(const Operation& operation);

    OperationDialog& dialog_;
};
