#pragma once

#include "editor/album_chooser.h"
#include "editor/selection.h"

#include <QGroupBox>
#include <QRadioButton>
#include <array>

/// The dialog picAn: makes a picture of 100 by 75 pixels for a selection button from the working picture, and stores it
/// in a row of `tcan` or in a file.
class ButtonPicture : public QObject {
    Q_OBJECT

  public:
    ButtonPicture(EditorState& state, Commands& commands, EditorView& view, UndoHistory& history, AlbumChooser& chooser,
                  QWidget* form);

    void mnuAtClick();

    /// How a selection is constrained; free unless the dialog says otherwise.
    SelectionShape shape() const;
    bool shapeIsChosen() const { return shape() != SelectionShape::free; }
    bool isActive() const { return state_.editState.startsWith(u'a') && !view_.picAn->isHidden(); }

    /// Tells size and ratio of a selection while it is drawn, and when the mouse has let go.
    void tellSize(QSize size);
    void selectionMade(QSize size);

  private:
    void makeControls();
    void arrange();

    void optAnClick(int index);
    void chooseShape(int index);
    void chooseRow();
    void saveToFile();
    void rowSelected();
    void cmdCkClick();
    void showThumbnail();
    void storeInRow();
    void cmdAgClick();
    void prompt(const QString& text);
    bool askFor(int option);

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    UndoHistory& history_;
    AlbumChooser& chooser_;
    QWidget* form_;

    QLabel* lblAn_ = nullptr;
    QGroupBox* fraCj_ = nullptr;
    QGroupBox* fraWz_ = nullptr;
    std::array<QRadioButton*, 4> optAn_{};
    std::array<QLabel*, 3> lblAs_{};
    QPushButton* cmdCk_ = nullptr;
    QPushButton* cmdAg_ = nullptr;
    bool ratioChosen_ = false;     ///< 固定比例 is the choice to come back to when another one is cancelled.
    DataControl* rows_ = nullptr;  ///< The rows of `tcan`; the album's own list keeps its place meanwhile.
};
