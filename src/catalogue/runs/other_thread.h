#pragma once

#include <QObject>
#include <QThread>
#include <functional>

/// A thread that does steps for its owner, one after the other. What a step opens stays open for the next one, so a
/// database can have a connection of its own there; it has to be closed by a step, too. No step throws.
class OtherThread {
  public:
    OtherThread() {
        worker_.moveToThread(&thread_);
        thread_.start();
    }
    ~OtherThread() {
        thread_.quit();
        thread_.wait();
    }
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;

    void begin(const std::function<void()>& step) { QMetaObject::invokeMethod(&worker_, step, Qt::QueuedConnection); }
    /// Returns when it is done, and all that was begun before.
    void run(const std::function<void()>& step) {
        QMetaObject::invokeMethod(&worker_, step, Qt::BlockingQueuedConnection);
    }

  private:
    QThread thread_;
    QObject worker_;
};
