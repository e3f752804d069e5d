#pragma once

#include "settings/frame/frame_part.h"
#include "settings/frame/pasted_picture.h"
#include "settings/frame/settings_frame.h"
#include "settings/frame/settings_page.h"
#include "windows/windows.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class ShapeBox;

/// What works in the frame: its pages in the order of their tabs, and the parts that serve several of them.
struct FrameContents {
    std::vector<std::unique_ptr<FramePart>> parts;
    std::vector<std::unique_ptr<SettingsPage>> pages;  ///< Last: they go before the parts that they use.
};

/// The window for pictures coming in and for all settings: four pages in a tab control, of which one is in front. The
/// frame moves the shared controls to it, keeps the hint line, and warns before unfinished work is left. What a page
/// does beyond that is told by its own class.
class frmSz : public QWidget {
    Q_OBJECT

  public:
    using Furnishing = std::function<FrameContents(SettingsFrame)>;

    frmSz(Windows& windows, const Furnishing& furnish, QWidget* parent = nullptr);
    ~frmSz() override;

    /// Pictures for an album, which is chosen on the page 图片录入 if it has a table; they become the selection there.
    void takeIn(const QString& table, const PictureOffer& offer);

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    static TabControl* makeTabs(QWidget* form);
    void makeOuterButtons();
    void connectEvents();
    void load();

    void sstFzClick();
    void placeSharedControls(const PageLayout& layout);
    void leave(const std::function<void()>& way);
    void takeOffer(const PictureOffer& offer);
    void takeAlbum();
    void loseAlbum();
    void pointerMoved(int x, int y);
    void warnBeforeLeaving();

    SettingsPage& page() const;

    Windows& windows_;
    TabControl* sstFz;  ///< The pages.
    ShapeBox* shpWk;    ///< Outer line round the page.
    ShapeBox* shpNk;    ///< Inner line round the page.
    HintLine hints_;
    UnfinishedWork work_;
    AlbumEntry albums_;
    RecordGrid grid_;
    ChoiceList choices_;
    RunBar runBar_;
    PastedPictures pasted_;
    FrameContents contents_;
    bool warning_ = false;  ///< The box that warns before unfinished work is lost stands open.
};
