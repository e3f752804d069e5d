#pragma once

#include <cstdint>

/// What a helper process may use.
struct ProcessLimits {
    uint64_t outputBytes;  ///< The largest file that it writes.
    uint64_t memoryBytes;  ///< Of its address space.
    unsigned seconds;      ///< Of processor time, all threads together.
    int exitCode;          ///< With which it ends when the time is over.
};

/// Bounds what this process can do to the machine, whatever a file makes it do: memory, processor time, open files,
/// size of what it writes. It ends with the process that has started it.
void limitThisProcess(const ProcessLimits& limits);

/// Sends the waiting program a byte, about once a second, as a sign that the work goes on. Ends the process with
/// `exitCode` when nobody listens.
void tellProgress(int exitCode);
