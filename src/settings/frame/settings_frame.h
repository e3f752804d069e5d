#pragma once

#include "bin/bin_line.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/album_entry.h"
#include "settings/frame/choice_list.h"
#include "settings/frame/hint_line.h"
#include "settings/frame/record_grid.h"
#include "settings/frame/run_bar.h"
#include "settings/frame/settings_tab.h"
#include "settings/frame/unfinished_work.h"

/// What the frame lends to its pages and to the parts that serve them.
struct SettingsFrame {
    QWidget* form;      ///< Parent of message boxes.
    TabControl* sstFz;  ///< The ground of all controls.
    HintLine& hints;
    UnfinishedWork& work;
    AlbumEntry& albums;
    RecordGrid& grid;
    ChoiceList& choices;
    RunBar& runBar;
    BinLine& bin;

    bool isInFront(SettingsTab tab) const { return sstFz->currentIndex() == tab; }
};
