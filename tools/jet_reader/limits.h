#pragma once

#include <cstdint>

/// Bounds what this process can do to the machine, whatever the file makes it do: memory, processor time, open files,
/// size of what it writes. It ends with the process that has started it.
void limitThisProcess(uint64_t largestOutput);

/// Sends the waiting program a byte, about once a second, as a sign that the work goes on.
void tellProgress();
