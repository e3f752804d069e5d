#pragma once

#include <QString>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

/// Lets the disk bring long-binary values that are about to be read. The values are looked up in a thread of its own,
/// over a connection that is open only meanwhile; nobody waits for it but the destructor, for the value in hand.
class ValuesAhead {
  public:
    ValuesAhead();

    /// The values of a file, by their ids, in the order in which they are wanted. What was asked for before is
    /// forgotten.
    void ask(const QString& file, std::vector<qint64> values);

  private:
    void work(const std::stop_token& stop);
    void bring(const QString& file, const std::vector<qint64>& values, const std::stop_token& stop);
    bool hasMore();

    std::mutex mutex_;
    std::condition_variable_any asked_;
    QString file_;
    std::vector<qint64> values_;
    std::jthread thread_;  ///< Last: it ends before the members that it uses.
};
