#pragma once

#include <QtGlobal>

/// The memory in which a picture is being decoded. All threads together take no more than one picture may: where there
/// is too little left, the constructor waits until others are done. A thread has one at a time.
class MemoryShare {
  public:
    explicit MemoryShare(qint64 bytes);
    ~MemoryShare();
    MemoryShare(const MemoryShare&) = delete;
    MemoryShare& operator=(const MemoryShare&) = delete;

  private:
    qint64 bytes_;
};
