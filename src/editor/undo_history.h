#pragma once

#include "editor/operation_dialog.h"
#include "platform/database/records/recordset.h"

#include <future>
#include <optional>

/// The steps of the session in the table `tccx`: every one a whole picture as JPEG, so taking back computes nothing.
/// The step of the load is written with the first operation: who only looks at pictures leaves nothing behind.
class UndoHistory : public QObject {
    Q_OBJECT

  public:
    UndoHistory(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog);

    /// Starts a trail with the picture just loaded.
    void start();
    /// Records a step; a no-op while `undoing`.
    void cxcz();
    /// Removes all steps from the catalogue.
    void clear();
    /// Cancels a dialog that is open, else takes the newest step back.
    void mnuCxClick();

  Q_SIGNALS:
    void emptied();  ///< The load itself was taken back: the window is to become empty.

  private:
    struct Step {
        QString number, label, tag;
        QSize size;  ///< Twips.
        double parameter = 0;
        QImage picture;
    };

    Step nextStep();
    void write(const Step& step, const QByteArray& jpeg);
    void record(const Step& step, std::future<QByteArray> jpeg);
    void tellLoss();
    void removeStep(const QString& number);
    void pop();
    void restore(const QString& number);

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    OperationDialog& dialog_;
    QString loss_;  ///< Why a step of this picture could not be stored; empty when all were.
    bool isLossTold_ = false;
    std::optional<Step> loaded_;  ///< The step of the load, until it is written.
};

/// Removes what a session that was ended by force has left in `tccx`.
void emptyUndoSteps();

/// Stores a surface's picture as a JPEG of quality 80 in 图片 of the recordset's current row and updates the row. Tells
/// the JPEG's bytes through `EditorState::savedSize`.
void bcsk(const QImage& image, Recordset& recordset, EditorState& state);
