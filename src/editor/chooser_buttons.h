#pragma once

#include "catalogue/selection_buttons.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"

#include <QPushButton>
#include <vector>

/// The selection buttons of an album in the chooser: each filters the records by its code.
class ChooserButtons : public QObject {
    Q_OBJECT

  public:
    explicit ChooserButtons(Surface* picCs);

    /// Shows the buttons that an album has. Throws `Error` when they cannot be read.
    void bhan(const QString& album);

  Q_SIGNALS:
    void chosen(const QString& code, const QString& name);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showButtons();
    void choose(int index);
    void showCode(int index);
    void showName(const QString& text);
    QPushButton* button(int index);

    Surface* picCs_;
    QLabel* lbl1_;                     ///< What the buttons are for.
    std::vector<QPushButton*> cmdBh_;  ///< One a code; they are made when they are needed.
    std::vector<SelectionCode> codes_;
    TextBox* txtB0_;  ///< Code and name of the button under the mouse.
    ImageBox* img0_;  ///< In their place where the album has none.
};
