#pragma once

#include "intake/hint_line.h"
#include "settings/album_group.h"
#include "settings/backup_group.h"
#include "settings/button_group.h"
#include "settings/new_album_group.h"
#include "settings/settings_page.h"
#include "settings/title_group.h"

/// The page 图册设置: albums, main title, selection buttons and backup.
class SetupPage : public SettingsPage {
  public:
    SetupPage(SharedControls& controls, FormState& state, HintLine& hints, PreviewPanel& preview);

    /// The group that holds the grid while this page is in front.
    QGroupBox* gridFrame() const { return buttons_.frame(); }

    void enter() override;
    void rowSelected() override { buttons_.anjl(); }
    bool mayGoTo(int row) override { return buttons_.mayGoTo(row); }
    bool mayLeave() override;

  private:
    HintLine& hints_;
    ButtonGroup buttons_;
    NewAlbumGroup newAlbum_;
    AlbumGroup album_;
    TitleGroup title_;
    BackupGroup backup_;
};
