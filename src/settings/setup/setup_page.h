#pragma once

#include "settings/backup/backup_group.h"
#include "settings/frame/settings_page.h"
#include "settings/setup/album_group.h"
#include "settings/setup/button_group.h"
#include "settings/setup/new_album_group.h"
#include "settings/setup/title_group.h"

/// The page 图册设置: albums, main title, selection buttons and backup.
class SetupPage : public SettingsPage {
  public:
    SetupPage(const SettingsFrame& frame, Preview& preview);

    PageLayout layout() const override;
    void enter() override;
    void rowSelected() override { buttons_.anjl(); }
    bool mayGoTo(int row) override { return buttons_.mayGoTo(row); }
    bool mayLeave() override;
    void catalogueRestored() override;

  private:
    HintLine& hints_;
    ButtonGroup buttons_;
    NewAlbumGroup newAlbum_;
    AlbumGroup album_;
    TitleGroup title_;
    BackupGroup backup_;
};
