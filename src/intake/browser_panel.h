#pragma once

#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/shared_controls.h"

#include <QObject>

#include <functional>

class CaptionBox;
class DirList;
class DriveList;
class FileList;
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
class BrowserPanel : public QObject {
    Q_OBJECT

  public:
    BrowserPanel(SharedControls& controls, FormState& state, HintLine& hints);

    /// Lays the panel out for the mode at hand and resets it.
    void mlcl();
    void cmdMxClick();
    /// Clears the target choice of the page 图片转存.
    void xzfy();

    Surface* picMl() const;
    DriveList* drv1() const;
    DirList* dir1() const;
    FileList* fil1() const;
    CaptionBox* txtMl() const;

    /// Asked for the mode and for whether files may be picked; the pages answer. Not set: `pictureFiles`, false.
    std::function<BrowseMode()> mode;

  Q_SIGNALS:
    void laidOut();        ///< mlcl has run; pages arrange their own controls.
    void folderChanged();  ///< The folder or the list of files changed: the page checks its choice anew.
    void fileClicked();    ///< The selection of fil1 changed.
    void closed();         ///< cmdMx
};
