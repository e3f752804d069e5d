#pragma once

/// While it lives, this thread opens files for reading alone, and also one that is shorter than its header says or
/// whose list of tables is damaged in part: what is there can be read.
class LenientOpening {
  public:
    LenientOpening();
    ~LenientOpening();
    LenientOpening(const LenientOpening&) = delete;
    LenientOpening& operator=(const LenientOpening&) = delete;

    /// In this thread.
    static bool isOn();
};
