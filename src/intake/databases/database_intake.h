#pragma once

#include "catalogue/runs/readable_rows.h"
#include "catalogue/runs/record_copy.h"
#include "intake/browsing/browser_panel.h"
#include "intake/browsing/chosen_lines.h"
#include "intake/browsing/code_buttons.h"
#include "intake/databases/intake_signs.h"
#include "intake/databases/mapping_panel.h"
#include "intake/databases/source_sample.h"
#include "intake/databases/whole_catalogue.h"
#include "intake/preview/preview_panel.h"
#include "settings/frame/settings_frame.h"

#include <QObject>

/// The page 图片录入 while 数据库 is its source: a database file, one of its tables, the mapping of the fields, the
/// records of the source in the grid, of which some are chosen, and their copying into the album.
class DatabaseIntake : public QObject {
    Q_OBJECT

  public:
    DatabaseIntake(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser, MappingPanel& mapping,
                   CodeButtons& codeButtons, PreviewPanel& preview, ChosenLines& chosen, IntakeSigns& signs);

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
    /// `fillFields`: columns that get no value are filled.
    CopyOrder order(bool replace, bool fillFields) const;
    /// The mapping is used: the table is offered with it the next time.
    void rememberMapping() const;

  Q_SIGNALS:
    void targetShown();            ///< The grid has the album's records again.
    void fillingOffered(bool on);  ///< Whether columns without a value can be filled by now.

  private:
    bool inFront() const;
    void openDatabase(const QString& path);
    void forgetTable(const QString& path);
    void readDatabase(const QString& path);
    void askAboutTexts(const QString& path);
    void readTextsAs(const QString& path, int codePage);
    void readTextsOtherwise();
    void hideSample();
    QString columnOfOrder() const;
    void sayOnlyOne();
    void tableChosen(const QString& table);
    void showSource();
    std::optional<PreviewPanel::OtherTable> sourceColumns() const;
    void placeGrid(bool source);
    void chosenClicked();
    void rowsChanged();
    int listAll();

    SettingsFrame frame_;
    GuidedFlow& flow_;
    BrowserPanel& browser_;
    MappingPanel& mapping_;
    CodeButtons& codeButtons_;
    PreviewPanel& preview_;
    ChosenLines& chosen_;
    IntakeSigns& signs_;
    SourceSample sample_;
    QAction* otherTexts_;    ///< mnuBm: reads the texts of a Jet 3 database by the other code page.
    ReadableRows readable_;  ///< Of the source table, while rows are chosen.
    WholeCatalogue whole_;
    bool choosesRows_ = false;  ///< The grid shows the source table.
};
