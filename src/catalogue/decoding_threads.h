#pragma once

#include "platform/picture/picture.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QSize>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/// Threads that decode pictures, as many as the computer can run at a time. Jobs begin in the order in which they were
/// given. The destructor waits for the pictures that are being decoded, and drops all others.
class DecodingThreads {
  public:
    /// The bytes of a picture, and the size in device pixels at which it will be shown.
    struct Job {
        quint64 ticket;
        QByteArray bytes;
        QSize target;
        Picture decoded = {};  ///< In the colours of the file; where there is one, the bytes are not read.
    };
    /// Null pictures where the bytes are none.
    struct Result {
        quint64 ticket;
        Picture picture;
        Picture decoded;  ///< From which it was made.
    };

    /// `notify` is called in one of the threads when there is something to take.
    explicit DecodingThreads(std::function<void()> notify);
    ~DecodingThreads();
    DecodingThreads(const DecodingThreads&) = delete;
    DecodingThreads& operator=(const DecodingThreads&) = delete;

    static int count();

    void give(Job job);
    /// Takes back what no thread has begun; returns its tickets.
    std::vector<quint64> dropWaiting();
    /// What has been decoded since the last call; waits for the first of it when there is nothing yet.
    std::vector<Result> take(QDeadlineTimer deadline);

  private:
    void work(const std::stop_token& stop);

    std::function<void()> notify_;
    std::mutex mutex_;
    std::condition_variable_any jobGiven_;
    std::condition_variable resultReady_;
    std::deque<Job> jobs_;
    std::vector<Result> results_;
    std::vector<std::jthread> threads_;  ///< Last: they end before the members that they use.
};
