#pragma once

/// A part of the window that serves several pages: browsing, the buttons of codes, the preview.
class FramePart {
  public:
    virtual ~FramePart() = default;
    /// Another page comes to the front: what the part shows is put away.
    virtual void pageTurned() {}
    /// No album is chosen any more.
    virtual void albumLost() {}
};
