#pragma once

#include "bin/bin_room.h"
#include "editor/chapter.h"
#include "editor/document/selection.h"
#include "editor/floating_panel.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <optional>

/// The dialog picAn: makes a picture of 100 by 75 pixels for a selection button from the working picture, and stores it
/// in a row of `tcan` or in a file.
class ButtonPicture : public Chapter {
    Q_OBJECT

  public:
    /// The grid `msgBm` is the dialog's while that lists the selection buttons.
    ButtonPicture(const Workplace& at, Grid* msgBm);

    bool isOpen() const { return !picAn_->isHidden(); }
    void hide() { picAn_->hide(); }
    /// How the part is to be drawn; nothing when the dialog does not wait for one.
    std::optional<SelectionShape> wantedShape() const;

  Q_SIGNALS:
    void left();     ///< By its own button, which takes a step back too.
    void changed();  ///< It has opened or closed, or waits for another shape.

  private:
    void makeControls();
    void makeOptions();
    void connectControls();
    void arrange();
    void prompt(const QString& text);
    bool askFor(int option);
    bool isActive() const;
    bool listsRows() const;

    void mnuAtClick();
    void clear();
    void optAnClick(int index);
    void chooseShape(int index);
    bool takesWhole();
    void tellSize(QSize size);
    void partDrawn(QSize size);
    void cmdCkClick();
    void makeThumbnail();
    void chooseRow();
    void rowSelected();
    QImage thumbnail() const;  ///< In the colours of the screen.
    void storeInRow();
    void saveToFile();
    void cmdAgClick();

    BinRoom room_{form_};
    FloatingPanel* picAn_;                  ///< The dialog.
    Grid* msgBm_;                           ///< Lists the selection buttons.
    DataControl* rows_;                     ///< Their rows in `tcan`.
    QLabel* lblAn_ = nullptr;               ///< Title.
    QGroupBox* fraCj_ = nullptr;            ///< How the part is drawn.
    QGroupBox* fraWz_ = nullptr;            ///< Where the thumbnail goes.
    std::array<QRadioButton*, 4> optAn_{};  ///< Two in each frame.
    std::array<QLabel*, 3> lblAs_{};        ///< Size of the part, its ratio to the thumbnail, what to do next.
    QPushButton* cmdCk_ = nullptr;          ///< Makes the thumbnail, later stores it.
    QPushButton* cmdAg_ = nullptr;          ///< Leaves.
    bool ratioChosen_ = false;  ///< 固定比例 is the choice to come back to when another one is cancelled.
};
