#pragma once

#include "intake/browsing/folder_walk.h"
#include "intake/browsing/guided_flow.h"
#include "settings/frame/frame_part.h"
#include "settings/frame/settings_frame.h"

#include <QItemSelection>
#include <QObject>
#include <functional>
#include <map>

class CaptionBox;
class DirList;
class DriveList;
class FileList;
class QCheckBox;
class QLabel;
class QPushButton;
class Surface;
class TextBox;

/// What the panel is browsed for; the page in front and its option buttons decide.
enum class BrowseMode {
    pictureFiles,    ///< page 图片录入 with 从文件
    sourceDatabase,  ///< page 图片录入 otherwise
    targetFolder,    ///< page 图片转存 with 存入文件夹
    targetDatabase   ///< page 图片转存 otherwise
};

/// The panel picMl: drives, folders and files, a line that echoes the choice, and the making and deleting of folders.
class BrowserPanel : public QObject, public FramePart {
    Q_OBJECT

  public:
    BrowserPanel(const SettingsFrame& frame, GuidedFlow& flow);

    void pageTurned() override;

    /// Lays the panel out for the mode at hand and resets it.
    void mlcl();
    void cmdMxClick();

    /// picMl, for others who put controls on the panel.
    QWidget* ground() const;

    /// Puts the panel on a page, in twips, and shows it.
    void showOn(int page, int left, int top);

    void hide();

    void readFolders();      ///< Lists the folders anew.
    QString folder() const;  ///< The present one.

    bool isPictureMode() const;  ///< The file list is of pictures, not of databases.
    void readFiles();            ///< Lists the files of the folder that the mode asks for, new ones too.
    /// The pictures below the folder are looked for: the list is empty, and `filesRead` comes when they are known.
    bool isSearching() const { return walk_.isAtWork(); }
    bool listsSubfolders() const;   ///< chkZw
    bool listsAllFormats() const;   ///< chkGs: in the list of pictures, files are judged by their content.
    void allowSubfolders(bool on);  ///< Where they are not, chkZw is off and locked.
    QStringList fileNames() const;
    QList<int> selectedFiles() const;  ///< Places in the list, in its order.
    QStringList selectedNames() const;
    /// Path of the one file that is selected, or of that in focus when there are several; empty for none.
    const QString& pickedFile() const { return pickedFile_; }
    void forgetPicked() { pickedFile_.clear(); }
    int selectedCount() const { return selectedCount_; }
    /// Name of the file in focus when it is selected, otherwise of the first one that is.
    QString nameInFocus() const;
    /// Changes the selection while `fileClicked` stays quiet. The echo line is left as it is.
    void selectQuietly(bool all);
    void deselectQuietly(const QList<int>& places);
    /// As a person does it; those that are not in the list are passed over.
    void selectNames(const QStringList& names);
    void goTo(const QString& folder);  ///< Throws `Error` when it cannot be read.
    void listAllFormats();             ///< Ticks chkGs.
    void listOneFolder();              ///< Unticks chkZw.

    void enableFiles();  ///< Files can be picked where the page in front lets them be.
    void enableFiles(bool on);
    bool areFilesEnabled() const;
    void hideFiles();  ///< With the echo line.

    // The echo line, txtMl.
    QString echo() const;
    void setEcho(const QString& text);
    void disableEcho();

    // The note below the panel, lbl12: on the page 图片录入 the source file, on 图片转存 a word about the target.
    /// In twips of the tab control, in front of other controls.
    void placeNote(int page, const QRect& place, const Growth& growth);
    void setNote(const QString& text, const QString& toolTip = {});
    void showNote();
    void hideNote();

    void showFileParts(bool on);   ///< lblB0, lblB1(0), chkGs and chkZw.
    void showFolderHint(bool on);  ///< lbl7
    void hideCountLine();
    void showCountLine();  ///< lblGy, for a list that is not empty.

    /// Gives up the naming of a new folder.
    void endNaming();

    /// What a page that uses the panel answers while it is in front.
    struct Host {
        std::function<BrowseMode()> mode;
        std::function<bool()> filesMayBePicked;
    };
    /// Other pages are taken for 图片录入 that browses pictures and may not pick any.
    void serve(int page, Host host) { hosts_[page] = std::move(host); }

  Q_SIGNALS:
    void laidOut();        ///< mlcl has run; pages arrange their own controls.
    void folderChanged();  ///< Another folder is the present one.
    void filesListed();    ///< The file list shows another folder: the page checks its choice anew.
    void filesRead();      ///< The file list shows its folder anew; nothing is selected.
    void fileClicked();    ///< The selection of fil1 changed, not by `selectQuietly`.
    void confirmed();      ///< cmdMq
    void targetCleared();  ///< The panel was closed: what it served is not chosen any more.

  private:
    const Host* host() const;
    BrowseMode modeNow() const;
    bool filesMayBePicked() const;
    QString wantedPattern() const;
    bool onIntakePage() const;
    bool walks() const;
    ListedFiles listedFiles() const;
    QItemSelection linesAt(const QList<int>& places) const;
    void beginWalk();
    void endWalk(const QStringList& files);
    void chkGsClick();
    void readAnew();
    void makeLists();
    void makeLabels();
    void makeOptions();
    void makeFolderButtons();
    void placeForMode();
    void connectLists();

    void drv1Change();
    void dir1Change();
    void dir1Click();
    void fil1PathChange();
    void fil1Click();
    QString dropOddDatabases();
    void txtMlChange();
    void cmdMjClick();
    void cmdMsClick();
    void makeFolder(const QString& path);
    void deleteFolder(const QString& path);

    SettingsFrame frame_;
    GuidedFlow& flow_;
    std::map<int, Host> hosts_;
    QString folder_;
    QString pickedFile_;
    int selectedCount_ = 0;
    FolderWalk walk_;

    Surface* picMl_;               ///< The panel.
    QLabel* lbl12_;                ///< The note.
    DriveList* drv1_ = nullptr;    ///< Drives.
    DirList* dir1_ = nullptr;      ///< Folders.
    FileList* fil1_ = nullptr;     ///< Files.
    QCheckBox* chkGs_ = nullptr;   ///< Whether pictures of all formats are listed.
    QCheckBox* chkZw_ = nullptr;   ///< Whether those below the folder are listed.
    CaptionBox* txtMl_ = nullptr;  ///< Echo of what is chosen.
    QLabel* lblB0_ = nullptr;
    QLabel* lblB1First_ = nullptr;   ///< lblB1(0): heading of the files.
    QLabel* lblB1Second_ = nullptr;  ///< lblB1(1): heading of the folders.
    QLabel* lblGy_ = nullptr;
    QLabel* lbl7_ = nullptr;
    QLabel* lblJm_ = nullptr;
    TextBox* txtJm_ = nullptr;
    QPushButton* cmdMj_ = nullptr;
    QPushButton* cmdMs_ = nullptr;
    QPushButton* cmdMq_ = nullptr;
    QPushButton* cmdMx_ = nullptr;
};
