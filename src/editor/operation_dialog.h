#pragma once

#include "editor/floating_panel.h"
#include "editor/operations/operation.h"
#include "editor/rotation_dial.h"
#include "platform/desktop/text_box.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <array>

/// The floating dialog picCq, in which an operation asks: for a number, an angle, or whether the part that was drawn is
/// meant.
class OperationDialog : public QObject {
    Q_OBJECT

  public:
    OperationDialog(const QWidget* viewport, QWidget* form);

    /// Opens the dialog for an operation.
    void czdh(const Operation& operation);
    /// Shows it once more as it was, for another try.
    void showAgain();
    void hide() { picCq_->hide(); }
    /// The end of an operation.
    void close();

    bool isOpen() const { return !picCq_->isHidden(); }
    /// The operation that it asks for, or asked for last; null when there was none.
    const Operation* operation() const { return operation_; }
    /// It waits for a part to be drawn.
    bool waitsForPart() const { return isOpen() && operation_->asksForPart(); }
    /// A part was drawn on the picture.
    void partDrawn();

    /// What was typed; of a part "1".
    QString entry();
    /// Something is to be typed, and nothing is: the person can go on there.
    bool lacksEntry() const { return operation_->asksForEntry() && txtCq_->text().isEmpty(); }
    void focusEntry() { txtCq_->setFocus(); }
    /// The number that it means; 0 while the dialog is closed.
    double value() const { return isOpen() ? operation_->value(txtCq_->text()) : 0; }

    /// Presses one of the two buttons.
    void press(bool confirms) { cmdCq_[confirms ? 0 : 1]->click(); }
    /// Does a work whose progress shows in the dialog.
    void showProgress(const std::function<void(const Progress&)>& work);

  Q_SIGNALS:
    void confirmed();
    void cancelled();
    void toggled();  ///< It has opened or closed.

  private:
    void makeControls();
    void connectControls();
    void showParts();
    void turnDial();

    QWidget* form_;
    const Operation* operation_ = nullptr;
    FloatingPanel* picCq_;                 ///< The dialog.
    QLabel* lblCq_;                        ///< What is asked for.
    QLabel* lbl2_;                         ///< How to confirm.
    TextBox* txtCq_;                       ///< The number.
    std::array<QPushButton*, 2> cmdCq_{};  ///< Confirms, cancels.
    QProgressBar* prg1_;                   ///< How far a slow operation has come.
    std::unique_ptr<RotationDial> dial_;
};
