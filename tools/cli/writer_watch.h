#pragma once

#include <QString>
#include <functional>
#include <thread>

/// Watches a database file for a writer in another process that waits until all readers have gone, and calls `waits` as
/// long as one does, every few milliseconds, in a thread of its own. It holds the file open: all locks that the engine
/// has on it in this process end with the object, so none may be in use then.
class WriterWatch {
  public:
    WriterWatch(const QString& file, std::function<void()> waits);
    ~WriterWatch();
    WriterWatch(const WriterWatch&) = delete;
    WriterWatch& operator=(const WriterWatch&) = delete;

  private:
    int descriptor_ = -1;
    std::jthread thread_;
};
