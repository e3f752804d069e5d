#pragma once

#include "catalogue/runs/picture_storing.h"
#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "intake/browser_panel.h"
#include "intake/code_buttons.h"
#include "intake/database_intake.h"
#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/mapping_panel.h"
#include "intake/preview_panel.h"
#include "intake/shared_controls.h"

#include <QObject>
#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QGroupBox;
class QRadioButton;

/// The page 图片录入: album, source, way of adding, files, and the intake run. What is particular to 数据库 as the
/// source is told by `DatabaseIntake`.
class IntakePage : public QObject {
    Q_OBJECT

  public:
    /// Puts the page's controls on tab 1 of the frame.
    IntakePage(SharedControls& controls, FormState& state, HintLine& hints, BrowserPanel& browser,
               MappingPanel& mapping, CodeButtons& codeButtons, PreviewPanel& preview);

    /// What the page switch does for this page beyond the shared controls.
    void enter();
    /// What choosing an album does on this page. The demonstration album takes no pictures.
    void albumChosen();
    /// No album is chosen: nothing can be entered until one is.
    void albumLost();
    /// The preview, when it is open on this page, shows the record that is now the current one.
    void recordChanged();
    /// A line of the grid was clicked; its record is the current one.
    void rowClicked();

  private:
    void makeLabels();
    void makeGroups();
    void makeButtons();
    void connectControls();
    void raiseControls();

    bool inFront() const;
    bool fromFiles() const;
    bool replaces() const;
    bool filesMayBePicked() const;
    BrowseMode mode() const;

    void arrange();
    void placeSourceLines(bool files);
    void listFiles();
    void filesRead();
    void showFileCount();
    bool targetIsChosen() const;
    /// Says why not.
    bool targetIsFit() const;
    void takesNoPictures();
    void optYlClick();
    void chooseFilesAnew();
    void fileClicked();
    bool deselectUnnumbered();
    void sayUnnumbered();
    void showSelection();
    void showNoSelection();
    void cmdQxClick();
    void cmdQ1Click();
    void undoSource();
    void undoWay();
    void undoFiles();
    void clearFiles();
    QString nameToTell() const;
    void cmdLrClick();
    QStringList selectedPaths() const;
    void lrtc();
    /// What a run has to tell: how many pictures it entered, and what is said before that.
    struct Outcome {
        int count;
        QStringList messages;  ///< Empty ones are not said.
    };
    RunReport shown(const std::function<RunReport(RunWatch&)>& run);
    Outcome enterFiles();
    Outcome copyRecords();
    RunReport enterSelected();
    RunReport copyChosen();
    void refreshTarget();
    void readFilesAnew();
    void showAlbumCount();

    SharedControls& controls_;
    FormState& state_;
    HintLine& hints_;
    BrowserPanel& browser_;
    MappingPanel& mapping_;
    CodeButtons& codeButtons_;
    PreviewPanel& preview_;
    std::unique_ptr<DatabaseIntake> database_;

    QGroupBox* fraLy_ = nullptr;
    QGroupBox* fraFs_ = nullptr;
    std::array<QRadioButton*, 2> optYl_{};
    std::array<QRadioButton*, 2> optCz_{};
    QCheckBox* chkZd_ = nullptr;
    QPushButton* cmdLr_ = nullptr;
    QPushButton* cmdQx_ = nullptr;
    QPushButton* cmdQ1_ = nullptr;
    QLabel* lblMk_ = nullptr;
    QLabel* lblJl_ = nullptr;
    std::array<QLabel*, 4> infoLines_{};  ///< lbl11 to lbl14.
    DataControl* datLr_ = nullptr;
    bool unnumberedTold_ = false;
    BmpFiles bmpFiles_ = BmpFiles::keep;  ///< The answer for the run that begins.
    bool filesWait_ = false;              ///< Files were ready for cmdLr when the album was lost.
};
