#pragma once

#include "editor/commands.h"
#include "editor/editor_view.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <array>

/// The floating dialog picCq: asks for the factor of a scale or the angle of a rotation, or confirms a crop.
class OperationDialog : public QObject {
    Q_OBJECT

  public:
    OperationDialog(EditorState& state, Commands& commands, EditorView& view);

    /// Opens the dialog for "s" (scale), "c" (crop) or "x" (rotate).
    void czdh(const QString& mode);
    /// Shows the dialog of the last operation once more, for another try; nothing when there was none.
    void reopen();
    /// The end of an operation.
    void close();
    bool isOpen() const { return !view_.picCq->isHidden(); }
    const QString& mode() const { return mode_; }
    /// The number in txtCq: a factor or an angle.
    double value() const;

    TextBox* txtCq;
    std::array<QPushButton*, 2> cmdCq;
    QProgressBar* prg1;

  Q_SIGNALS:
    void confirmed();  ///< cmdCq(0), with what the mode needs.
    void cancelled();  ///< cmdCq(1)

  private:
    void makeControls();
    void txtCqChange();
    void turnHand();
    void showDial(bool on);
    void showParts();

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    QString mode_;
    QLabel *lblCq_, *lbl2_;
    std::array<LineBox*, 4> linJd_;
};
