#pragma once

#include "settings/frame/preview.h"
#include "settings/frame/settings_frame.h"

#include <QSize>
#include <functional>
#include <map>
#include <optional>

class ImageBox;
class MovableGroup;
class QCheckBox;
class QLabel;
class QPushButton;
class QTimer;
class ShapeBox;

/// The preview as the frame of the window has it.
class PreviewPanel : public Preview {
    Q_OBJECT

  public:
    explicit PreviewPanel(const SettingsFrame& frame);

    QPushButton* makeOpener(PreviewOpener opener, QWidget* parent) override;
    QPushButton* makeOpener(PreviewOpener opener, QWidget* parent, PictureTaker taker) override;
    void allowOpening(PreviewOpener opener, bool on) override;
    bool isOpen() const override;
    QWidget* panel() const override;
    void close() override;
    void showRecord() override;
    void followRecord() override;
    QString loadedFile() const override { return file_; }
    void forgetFile() override { file_.clear(); }
    void allowStoring(bool on) override;
    void pageTurned() override;
    void albumLost() override { pageTurned(); }

    /// Moves the button to a place on a page, in twips of the tab control, in front of other controls.
    void putOpener(PreviewOpener opener, int page, int left, int top);
    void cmdCkClick(PreviewOpener opener);
    /// The file that `intakeFileOpener` shows.
    std::function<QString()> pickedFile;
    /// Shows it in the panel, if that is open.
    void showFile(const QString& path);

    /// The table in the grid and its columns, when it is none of the catalogue's albums. Not set: it always is one.
    struct OtherTable {
        QString name;
        QString key;
        QString picture;
    };
    std::function<std::optional<OtherTable>()> otherTable;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeControls();
    QPushButton* button() const { return openers_.at(opener_).button; }
    const PictureTaker* taker() const;
    bool takesInRecords() const { return opener_ == recordOpener; }
    void chkCkClick();
    void placeParts();
    void placeSideColumn(int left);
    void setFrameColour(const QColor& colour);
    void centreLabels();
    void enlargeOrReturn();

    void placeFrame();
    void placeShape(int left, int top, int width, int height);
    /// Shows the picture as large as there is room, sharply.
    void fitPicture(QSize room);
    QSize gained() const;  ///< What the panel has grown, in twips.
    QSize room() const;    ///< For the picture, in twips.
    QSize sharpSize();     ///< The size to decode for, in device pixels: no panel of the present window needs more.
    QString readShown();
    void sharpen();
    QString readRecord();
    QString readNewButton();
    QString readFile();
    void showPicture(const QString& line);

    void cmdAzClick();
    void loadFile(const QString& path);
    void cmdAqClick();
    void storeForButton();
    void storeInRecord();

    QSize pictureSize() const;  ///< HiMetric.

    SettingsFrame frame_;
    struct Opener {
        QPushButton* button;
        std::optional<PictureTaker> taker;
    };
    std::map<PreviewOpener, Opener> openers_;
    PreviewOpener opener_ = intakeRecordOpener;  ///< By which the panel was opened last.
    bool showsFile_ = false;                     ///< A file, not the current record.
    QString file_;
    QSize decodedFor_;     ///< Device pixels.
    QTimer* growthPause_;  ///< Until a picture is read anew for a panel that grows.

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
