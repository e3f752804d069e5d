#pragma once

#include "intake/form_state.h"
#include "intake/shared_controls.h"

#include <QObject>
#include <QSize>
#include <functional>
#include <map>
#include <optional>

class ImageBox;
class MovableGroup;
class QCheckBox;
class ShapeBox;

/// The buttons cmdCk that open the panel, by their index.
enum PreviewOpener { intakeRecordOpener, intakeFileOpener, recordOpener, transferOpener, buttonOpener };

/// The panel fraCk by which every page looks at a picture: of the current record, of a file, or of a selection button;
/// on the pages 图册编辑 and 图册设置 it also takes a new picture in.
class PreviewPanel : public QObject {
    Q_OBJECT

  public:
    PreviewPanel(SharedControls& controls, FormState& state);

    /// Makes `cmdCk(index)` on a parent and lets it open the panel.
    QPushButton* makeOpener(int index, QWidget* parent);
    QPushButton* cmdCk(int index) const;

    /// Whether `cmdCk(index)` may open the panel; the one that has opened it stays disabled until it is closed.
    void allowOpening(int index, bool on);

    bool isOpen() const;
    QWidget* frame() const;

    void cmdCkClick(int index);
    /// Loads and fits the picture that `previewMark` names.
    void chkCkClick();
    void cmdCgClick();
    void hide();
    void setCaption(const QString& caption);
    void setStoreEnabled(bool on);  ///< cmdAq
    /// Another record is the current one of the page 图册编辑: the open panel shows its picture, not a loaded one.
    void followRecord();

    /// The table in the grid and its columns, when it is none of the catalogue's albums. Not set: it always is one.
    struct OtherTable {
        QString name;
        QString key;
        QString picture;
    };
    std::function<std::optional<OtherTable>()> otherTable;

    // What the pages that take a picture in are asked ----------------------------------------------------------------

    /// Whether a record (page 图册编辑) or a selection button (page 图册设置) is being edited, so that a loaded picture
    /// may be stored. Not set: never.
    std::function<bool()> recordBeingEdited;
    std::function<bool()> buttonBeingEdited;
    /// Whether that button is a new one: it has no picture yet, whichever is marked in the grid.
    std::function<bool()> buttonIsNew;
    /// Stores `newPictureFile` as the picture of the selection button.
    std::function<void()> storeButtonPicture;
    /// 序号 and 编号 of the record that the page 图册编辑 shows.
    std::function<QString()> recordNumber;
    std::function<QString()> recordCode;

  Q_SIGNALS:
    void closed();
    /// A picture has been stored in the current record; the records are about to be read anew, and have been: the same
    /// one is the current one again.
    void storing();
    void stored();

  private:
    void makeControls();
    void placeParts();
    void placeSideColumn(int left);
    void setFrameColour(const QColor& colour);
    void centreLabels();
    void enlargeOrReturn();

    void placeFrame();
    void placeShape(int left, int top, int width, int height);
    QString readRecord();
    QString readNewButton();
    QString readFile();
    void showPicture(const QString& line);
    QString recordCaption() const;

    void cmdAzClick();
    void loadFile(const QString& path);
    void cmdAqClick();
    void storeForButton();
    void storeInRecord();

    QSize pictureSize() const;  ///< HiMetric.
    bool onEditingPage() const;

    SharedControls& controls_;
    FormState& state_;
    std::map<int, QPushButton*> openers_;

    MovableGroup* fraCk_;
    ShapeBox* shpWj_ = nullptr;
    ImageBox* imgWj_ = nullptr;
    QLabel* lblC1_ = nullptr;
    QLabel* lblWj_ = nullptr;
    QCheckBox* chkCk_ = nullptr;
    QPushButton* cmdAz_ = nullptr;
    QPushButton* cmdAq_ = nullptr;
    QPushButton* cmdCg_ = nullptr;
    QLabel* label6_ = nullptr;
    QLabel* lblZp_ = nullptr;
    QLabel* lblKt_ = nullptr;  ///< In place of the picture, why there is none.
};
