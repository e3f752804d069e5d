#pragma once

#include "intake/browsing/browser_panel.h"
#include "intake/browsing/code_buttons.h"
#include "intake/databases/database_intake.h"
#include "intake/databases/mapping_panel.h"
#include "intake/files/intake_job.h"
#include "intake/preview/preview_panel.h"
#include "settings/frame/settings_frame.h"
#include "settings/frame/settings_page.h"

#include <QObject>
#include <array>
#include <functional>
#include <optional>

class DataControl;
class QCheckBox;
class QGroupBox;
class QPushButton;
class QRadioButton;

/// The page 图片录入: album, source, way of adding, files, and the intake run. What is particular to 数据库 as the
/// source is told by `DatabaseIntake`.
class IntakePage : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    /// Puts the page's controls on tab 1 of the frame.
    IntakePage(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser, MappingPanel& mapping,
               CodeButtons& codeButtons, PreviewPanel& preview, ChosenLines& chosen);

    PageLayout layout() const override;
    void enter() override;
    /// The demonstration album takes no pictures.
    void albumChosen() override;
    /// Nothing can be entered until one is chosen.
    void albumLost() override;
    void recordChanged() override;
    void rowClicked() override;
    void filesDropped(const QStringList& paths) override;

  private:
    void makeGroups();
    void makeButtons();
    void makePhotoOptions();
    void connectControls();
    void raiseControls();

    bool inFront() const;
    bool fromFiles() const;
    bool replaces() const;
    bool filesMayBePicked() const;
    bool isWayChosen() const;
    BrowseMode mode() const;

    void arrange();
    void showFileOptions(bool on);
    void listFiles();
    void filesRead();
    void showFileCount();
    bool targetIsChosen() const;
    /// Says why not.
    bool targetIsFit() const;
    void takesNoPictures();
    void optYlClick();
    void optCzClick();
    void chooseFilesAnew();
    void folderChanged();
    void fileClicked();
    bool deselectUnnumbered();
    void sayUnnumbered();
    void showSelection();
    void showNoSelection();
    void chooseFolder(const QString& folder);
    void chooseAllIfWanted();
    void chooseFiles(const QString& folder, const QStringList& paths);
    void cmdQxClick();
    void cmdQ1Click();
    void undoSource();
    void undoWay();
    void undoFiles();
    void clearFiles();
    void cmdLrClick();
    QStringList selectedPaths() const;
    void begin(const IntakeJob& job);
    void run(const IntakeJob& job, RunBar::After after);
    void askAboutLeftOut(const IntakeJob& job, const RunReport& report);
    void lrtc(const IntakeJob& job, const RunReport& report);
    void refreshTarget();
    void readFilesAnew();
    void showAlbumCount();

    SettingsFrame frame_;
    GuidedFlow& flow_;
    BrowserPanel& browser_;
    MappingPanel& mapping_;
    CodeButtons& codeButtons_;
    PreviewPanel& preview_;
    ChosenLines& chosen_;
    IntakeSigns signs_;
    DatabaseIntake database_;

    QGroupBox* fraLy_ = nullptr;            ///< Where pictures come from: optYl_.
    QGroupBox* fraFs_ = nullptr;            ///< How they are added: optCz_.
    std::array<QRadioButton*, 2> optYl_{};  ///< Files, a database.
    std::array<QRadioButton*, 2> optCz_{};  ///< Replacing records, appending them.
    QCheckBox* chkZd_ = nullptr;            ///< Whether columns without a value are filled.
    QCheckBox* chkPz_ = nullptr;            ///< Whether 日期 is the moment of exposure.
    QCheckBox* chkSm_ = nullptr;            ///< Whether 备注 is the title of the picture.
    QPushButton* cmdQ1_ = nullptr;          ///< One step back.
    QPushButton* openRecord_ = nullptr;     ///< cmdCk(0)
    QPushButton* openFile_ = nullptr;       ///< cmdCk(1)
    DataControl* datLr_ = nullptr;          ///< The target table.
    bool unnumberedTold_ = false;
    /// A folder that was dropped: all of its files become the choice when they are listed, unless the person goes to
    /// another one, steps back or chooses source and way anew before.
    std::optional<QString> choosesAllOf_;
    bool filesWait_ = false;  ///< Files were ready for cmdLr when the album was lost.
};
