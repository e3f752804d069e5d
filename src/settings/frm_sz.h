#pragma once

#include "intake/browser_panel.h"
#include "intake/code_buttons.h"
#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/intake_page.h"
#include "intake/mapping_panel.h"
#include "intake/preview_panel.h"
#include "intake/shared_controls.h"
#include "intake/transfer_page.h"
#include "settings/album_entry.h"
#include "settings/page_layout.h"
#include "settings/settings_page.h"
#include "settings/setup_page.h"
#include "windows/windows.h"

#include <QWidget>
#include <array>
#include <memory>

class QPushButton;
class ShapeBox;

/// The window for pictures coming in and for all settings: four pages in a tab control, of which one is in front. The
/// frame moves the shared controls to it, keeps the hint line, and warns before unfinished work is left. What a page
/// does beyond that is told by its own class.
class frmSz : public QWidget {
    Q_OBJECT

  public:
    explicit frmSz(Windows& windows, QWidget* parent = nullptr);
    ~frmSz() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeSharedControls();
    void makeOuterButtons();
    void connectEvents();
    void load();

    void sstFzClick();
    void placeSharedControls();
    void takeAlbum();
    void loseAlbum();
    void pointerMoved(int x, int y);
    void showHint(const QString& text, const QColor& color);
    void warnBeforeLeaving();

    SettingsTab tab() const;
    SettingsPage& page() const;
    bool albumIsChosen() const;

    Windows& windows_;
    SharedControls shared_;
    FormState state_;
    ShapeBox* shpWk;
    ShapeBox* shpNk;
    AlbumEntry* albums_ = nullptr;
    std::unique_ptr<HintLine> hints_;
    std::unique_ptr<BrowserPanel> browser_;
    std::unique_ptr<MappingPanel> mapping_;
    std::unique_ptr<CodeButtons> codeButtons_;
    std::unique_ptr<PreviewPanel> preview_;
    std::unique_ptr<IntakePage> intake_;
    std::unique_ptr<TransferPage> transfer_;
    SetupPage* setup_ = nullptr;
    std::array<std::unique_ptr<SettingsPage>, 4> pages_;
    bool warning_ = false;  ///< The box that warns before unfinished work is lost stands open.
};
