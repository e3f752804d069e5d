#pragma once

#include <functional>
#include <memory>

/// Work in a thread of its own that nobody waits for: one that reads from where nothing comes is left behind when its
/// owner goes. The end of the program waits for such threads, but not for long.
class FreeThread {
  public:
    /// What the work sees of its owner, who may go at any time.
    class Owner {
      public:
        virtual ~Owner() = default;
        virtual bool isThere() const = 0;
        /// Calls `news` in the thread, unless the owner has gone; meanwhile it cannot go.
        virtual void tell(const std::function<void()>& news) = 0;
    };

    /// What the work throws ends it.
    explicit FreeThread(std::function<void(Owner&)> work);
    ~FreeThread();
    FreeThread(const FreeThread&) = delete;
    FreeThread& operator=(const FreeThread&) = delete;

  private:
    class Presence;
    std::shared_ptr<Presence> presence_;
};
