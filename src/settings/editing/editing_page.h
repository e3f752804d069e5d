#pragma once

#include "settings/editing/code_list.h"
#include "settings/editing/record_frame.h"
#include "settings/editing/renumbering_row.h"
#include "settings/frame/preview.h"
#include "settings/frame/settings_frame.h"
#include "settings/frame/settings_page.h"

#include <QObject>
#include <functional>

/// The page 图册编辑: the records of an album in the grid, all of them or those of a filter; the current one can be
/// changed and deleted, and the album numbered anew.
class EditingPage : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    EditingPage(const SettingsFrame& frame, Preview& preview);

    PageLayout layout() const override;
    void enter() override;
    void albumChosen() override;
    void albumLost() override;
    void rowSelected() override { record_.rowSelected(); }
    void recordChanged() override { record_.fill(); }
    bool mayLeave() override { return record_.mayLeave(); }
    bool mayGoTo(int row) override;
    void catalogueRestored() override;

  private:
    using ListingText = std::function<QString(const QString& albumLine, int count)>;

    void listFiltered(int option);
    void listWithCode(const QString& code);
    void tellListing(ListingText text);
    void tellAll();
    void tellAgain();
    void list(const QString& source);

    SettingsFrame frame_;
    CodeList codes_;
    RecordFrame record_;
    RenumberingRow renumbering_;
    ListingText listing_;  ///< Tells the records in the grid; nothing while no album is chosen.
};
