#pragma once

/// Lets the disk begin with what the engine writes while it goes on writing: without that all of a large change waits
/// in the system's memory until the engine asks for it to be on the disk, and is then waited for. The engine's own
/// descriptor is used. Does nothing where the system has no such call.
class DiskBehind {
  public:
    /// Called before the first file is opened.
    static void takePartInWrites();
};
