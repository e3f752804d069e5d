#pragma once

#include "editor/operation_dialog.h"
#include "platform/database/recordset.h"

#include <functional>
#include <future>

/// The steps of the session in the table `tccx`: every one a whole picture as JPEG, so taking back computes nothing.
class UndoHistory : public QObject {
    Q_OBJECT

  public:
    UndoHistory(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog);

    /// Starts a trail with the picture just loaded (unless `undoing`). Its JPEG is made while the person looks at the
    /// picture, and stored before anything else happens to the steps.
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
    QString nextStep();
    void writeRow(const QString& number);
    void finishFirst();
    bool record(const QString& number, const std::function<void()>& storing);
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
    std::future<QByteArray> first_;  ///< The JPEG of the first step, until it is stored.
};

/// Stores a surface's picture as a JPEG of quality 80 in 图片 of the recordset's current row and updates the row. Tells
/// the JPEG's bytes through `EditorState::savedSize`.
void bcsk(const QImage& image, Recordset& recordset, EditorState& state);
