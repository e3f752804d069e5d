#pragma once

#include "editor/chapter.h"
#include "editor/chooser_buttons.h"
#include "editor/chooser_preview.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"

#include <QComboBox>

/// The chooser picCs: an album, its selection buttons as filters, its records in a grid with a preview. With a picture
/// from an album the editor steps through the records that were listed last. Reads albums and buttons; writes nothing
/// but the end of the undo steps.
class AlbumChooser : public Chapter {
    Q_OBJECT

  public:
    /// The grid `msgBm` is the chooser's while that is open. `mayGo` is asked before the picture that is open
    /// makes way.
    AlbumChooser(const Workplace& at, Grid* msgBm, std::function<bool()> mayGo);

    /// Fills the album list and lists the main window's album.
    void load();
    bool isOpen() const { return !picCs_->isHidden(); }
    /// The picture has the keys again.
    void hide();
    void showAgain() { picCs_->show(); }
    /// Leaves the chooser; the editor is empty then.
    void cmdQxClick();
    /// The tool bar has come or gone: the chooser begins below it.
    void followToolBar();

    /// Goes to the record whose picture is in the editor, wherever stepping has led. Throws `Error` when it is not in
    /// the list any more.
    Recordset& recordOfPicture();
    /// Lists the album of a record whose picture is in the editor already, and goes to it, as far as they are there.
    void findRecord(const AlbumRecord& record);
    /// Lists the records anew after the picture in the editor was stored, and goes to its record again.
    void listAnew();

  Q_SIGNALS:
    void opens();

  private:
    enum class Step { first, previous, next, last };

    void makeChoice();
    void makeEnd();
    void connectControls();
    void connectCommands();

    void mnuCsClick();
    void takeGrid();
    void showPresent();
    void cboBmClick();
    void filter(const QString& code, const QString& name);
    void list(const QString& source);
    void explainEmptyList();
    void showRecord();
    void cmdQdClick();
    void tpqh(Step step);
    bool canStep(Step step);
    bool moveBy(Step step);

    std::function<bool()> mayGo_;

    Surface* picCs_;      ///< The chooser.
    DataControl* datBj_;  ///< The records that are listed.
    Grid* msgBm_;         ///< Their grid.
    QComboBox* cboBm_;    ///< The albums.
    ChooserButtons* buttons_;
    ChooserPreview* preview_;
    QLabel* lblJ1_ = nullptr;       ///< What a filter has found.
    QPushButton* cmdQd_ = nullptr;  ///< Takes the record's picture.
    QPushButton* cmdQx_ = nullptr;  ///< Leaves.
    QString albumTable_;            ///< Of the album that was chosen.
    int loadedRow_ = -1;            ///< Row of `datBj_` whose picture is in the editor.
};
