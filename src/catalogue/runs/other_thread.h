#pragma once

#include <QObject>
#include <QThread>
#include <functional>

/// A thread that does steps for its owner, who waits for each. What a step opens stays open for the next one, so a
/// database can have a connection of its own there; it has to be closed by a step, too.
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

    /// The step does not throw.
    void run(const std::function<void()>& step) {
        QMetaObject::invokeMethod(&worker_, step, Qt::BlockingQueuedConnection);
    }

  private:
    QThread thread_;
    QObject worker_;
};
