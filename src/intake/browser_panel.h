#pragma once

#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/shared_controls.h"

#include <QObject>
#include <functional>
#include <map>

class CaptionBox;
class DirList;
class DriveList;
class FileList;
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
class BrowserPanel : public QObject {
    Q_OBJECT

  public:
    BrowserPanel(SharedControls& controls, FormState& state, HintLine& hints);

    /// Lays the panel out for the mode at hand and resets it.
    void mlcl();
    void cmdMxClick();
    /// Clears the target choice of the page 图片转存.
    void xzfy();

    Surface* picMl() const { return picMl_; }
    DriveList* drv1() const { return drv1_; }
    DirList* dir1() const { return dir1_; }
    FileList* fil1() const { return fil1_; }
    CaptionBox* txtMl() const { return txtMl_; }

    /// Puts the panel on a page, in twips, and shows it.
    void showOn(int page, int left, int top);

    bool isPictureMode() const;  ///< The file list is of pictures, not of databases.
    void readFiles();            ///< Lists the files of the folder that the mode asks for, new ones too.
    QStringList fileNames() const;
    QList<int> selectedFiles() const;
    /// Changes the selection while `fileClicked` stays quiet. The echo line is left as it is.
    void selectQuietly(bool all);
    void deselectQuietly(int index);
    void enableFiles();                 ///< fil1, where the page in front lets files be picked.
    void setEcho(const QString& text);  ///< txtMl

    void showFileParts(bool on);   ///< lblB0 and lblB1(0).
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
    void closed();         ///< cmdMx
    void targetCleared();  ///< xzfy

  private:
    const Host* host() const;
    BrowseMode modeNow() const;
    bool filesMayBePicked() const;
    QString wantedPattern() const;
    bool onIntakePage() const;
    void makeLists();
    void makeLabels();
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

    SharedControls& controls_;
    FormState& state_;
    HintLine& hints_;
    std::map<int, Host> hosts_;

    Surface* picMl_;
    DriveList* drv1_ = nullptr;
    DirList* dir1_ = nullptr;
    FileList* fil1_ = nullptr;
    CaptionBox* txtMl_ = nullptr;
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
