#pragma once

#include "editor/chooser_preview.h"
#include "editor/loading.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/text_box.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <vector>

/// The chooser picCs: an album, its selection buttons as filters, its records in a grid with a preview. With a picture
/// from an album the editor steps through the records that were listed last. Reads albums and buttons; writes nothing
/// but the end of the undo steps.
class AlbumChooser : public QObject {
    Q_OBJECT

  public:
    AlbumChooser(EditorState& state, Commands& commands, EditorView& view, UndoHistory& history, Loading& loading,
                 QWidget* form);

    Grid* msgBm;
    DataControl* datBj;
    QComboBox* cboBm;

    /// Fills the album list and lists the main window's album.
    void load();
    /// Opens the chooser.
    void mnuCsClick();
    /// Leaves it; the editor is empty then.
    void cmdQxClick();
    /// Steps through the album: to the first ("t"), previous ("s"), next ("x") or last ("h") picture.
    void tpqh(QChar direction);

    /// Puts the grid back into the chooser.
    void takeGrid();
    /// Goes to the record whose picture is in the editor, wherever stepping has led. Throws `Error` when it is not in
    /// the list any more.
    void returnToLoaded();
    /// Lists the records anew after the picture in the editor was stored, and stands on its record again.
    void listAnew();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Code {
        QString code;
        QString name;
    };

    void makeChoice();
    void makeEnd();
    void connectControls();

    void cboBmClick();
    void list(const QString& source);
    void explainEmptyList();
    void bhan();
    void cmdBhClick(int index);
    void showCode(int index);
    void showName(const QString& text);
    QPushButton* button(int index);
    void showRecord();
    void cmdQdClick();
    bool canStep(QChar direction);

    EditorState& state_;
    Commands& commands_;
    EditorView& view_;
    UndoHistory& history_;
    Loading& loading_;

    QLabel* lbl1_ = nullptr;
    std::vector<QPushButton*> cmdBh_;
    std::vector<Code> codes_;
    TextBox* txtB0_ = nullptr;
    ImageBox* img0_ = nullptr;
    ChooserPreview* preview_ = nullptr;
    QLabel* lblJ1_ = nullptr;
    QPushButton *cmdQd_ = nullptr, *cmdQx_ = nullptr;
    int loadedRow_ = -1;  ///< Row of datBj whose picture is in the editor.
};
