#pragma once

#include "catalogue/runs/record_copy.h"
#include "intake/browser_panel.h"
#include "intake/code_buttons.h"
#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/mapping_panel.h"
#include "intake/preview_panel.h"
#include "intake/shared_controls.h"

#include <QObject>

class QCheckBox;

/// The page 图片录入 while 数据库 is its source: a database file, one of its tables, the mapping of the fields, the
/// records of the source in the grid, of which some are chosen into lstSu, and their copying into the album.
class DatabaseIntake : public QObject {
    Q_OBJECT

  public:
    /// Controls of the page that this part of it writes.
    struct Controls {
        QLabel* lbl12;  ///< The source file.
        QLabel* lbl13;  ///< The source table.
        QLabel* lbl14;  ///< The index field.
        QLabel* lblMk;  ///< Heading of the grid.
        QLabel* lblJl;  ///< What the lines below the grid are.
        QCheckBox* chkZd;
    };

    DatabaseIntake(SharedControls& shared, FormState& state, HintLine& hints, BrowserPanel& browser,
                   MappingPanel& mapping, CodeButtons& codeButtons, PreviewPanel& preview, const Controls& controls);

    void fileClicked();  ///< The selection of fil1 changed.
    void rowClicked();   ///< A line of the grid was clicked; its record is the current one.
    void chooseAll();    ///< 全部记录

    /// One step back from step 3, 4, 5 or 6.
    void stepBack();
    /// The choice of a database and all that came of it is given up; the grid shows the album again.
    void giveUp();
    /// The records are copied: nothing is left to choose from before a source is chosen anew.
    void endRun();
    /// The grid is the album's own again, in its usual place.
    void showTarget();

    bool choosesRows() const { return choosesRows_; }
    CopyOrder order(bool replace) const;

  Q_SIGNALS:
    void targetShown();  ///< The grid has the album's records again.

  private:
    bool inFront() const;
    void openDatabase(const QString& path);
    void sayOnlyOne();
    void tableChosen(const QString& table);
    void showSource();
    std::optional<PreviewPanel::OtherTable> sourceColumns() const;
    void placeGrid(bool source);
    void lstSuClick();
    bool isChosen(const QString& key) const;
    void rowsChanged();
    int listAll();

    SharedControls& shared_;
    FormState& state_;
    HintLine& hints_;
    BrowserPanel& browser_;
    MappingPanel& mapping_;
    CodeButtons& codeButtons_;
    PreviewPanel& preview_;
    Controls controls_;
    bool choosesRows_ = false;  ///< The grid shows the source table.
    QString albumHeadings_;     ///< Of the grid, while it does.
};
