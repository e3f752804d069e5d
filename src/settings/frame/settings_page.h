#pragma once

#include "settings/frame/page_layout.h"

#include <QStringList>

/// One page of the settings window, as its frame sees it. Pages live as long as the window.
class SettingsPage {
  public:
    virtual ~SettingsPage() = default;

    /// Where the shared controls stand while this page is in front.
    virtual PageLayout layout() const = 0;

    /// The page has come to the front; the shared controls stand on it already. A pending action of an earlier visit
    /// is given up.
    virtual void enter() = 0;
    /// An album was chosen in cboBm while this page is in front; datBj stands on its records.
    virtual void albumChosen() {}
    /// No album is chosen: cboBm is empty, or what was typed there is none.
    virtual void albumLost() {}
    /// The person has chosen a line of the grid, by mouse or keys; its record is the current one of datBj.
    virtual void rowSelected() {}
    /// A line was clicked, or Enter pressed on it: for pages on which that does more than choose.
    virtual void rowClicked() {}
    /// Before the page gives up what is being worked on, for another album or with the window. Asks the person where
    /// something would be lost; false when it is to stay.
    virtual bool mayLeave() { return true; }
    /// The same before the person goes to a record of datBj, perhaps to the current one again.
    virtual bool mayGoTo(int) { return true; }
    /// Files and folders were dropped on the window, which has brought this page to the front.
    virtual void filesDropped(const QStringList&) {}
    /// Records, albums or buttons have come back out of the bin; datBj has read its records anew.
    virtual void catalogueRestored() {}
    /// Another record is the current one of datBj.
    virtual void recordChanged() {}
};
