#pragma once

#include "platform/database/records/value_hashes.h"

#include <QString>
#include <future>
#include <memory>

class ForeignCopy;

/// Reads a Jet database once more, beside other work: with the hashes of its long-binary values in their places. The
/// destructor waits for the reading.
class SecondReading {
  public:
    /// Begins, in a thread.
    explicit SecondReading(const QString& path);

    /// Waits for it. Throws `Error` when the database could not be read. Called once.
    Database take();
    /// What stands for a value there. Throws `Error` when the value could not be read.
    static ValueHashes::Kept hashOf(const StoredValue& value);

  private:
    QString path_;
    std::future<std::unique_ptr<ForeignCopy>> reading_;
};
