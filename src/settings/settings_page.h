#pragma once

/// One page of the settings window, as its frame sees it. Pages live as long as the window.
class SettingsPage {
  public:
    virtual ~SettingsPage() = default;

    /// The page has come to the front; the shared controls stand on it already. A pending action of an earlier visit
    /// is given up.
    virtual void enter() = 0;
    /// An album was chosen in cboBm while this page is in front; datBj stands on its records.
    virtual void albumChosen() {}
    /// No album is chosen: cboBm is empty, or what was typed there is none.
    virtual void albumLost() {}
    /// A line of the grid was clicked; its record is the current one of datBj.
    virtual void rowClicked() {}
    /// Another record is the current one of datBj.
    virtual void recordChanged() {}
};
