#pragma once

#include "platform/base/error.h"

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <functional>

// What the fuzz targets share. A target feeds whatever bytes it is given to one entry of the program. The sanitizers
// find what is wrong with memory and numbers; `expect` finds what is wrong otherwise.

/// Ends the run, and keeps the input, when something does not hold that always has to.
void expect(bool holds, const char* what);

/// Runs a step that may throw the one exception of the platform rooms. Returns whether it succeeded.
bool goesThrough(const std::function<void()>& step);

/// A file in a folder of this process, in memory where the system has such a place. It holds `bytes` and has no
/// journals of an earlier run beside it.
QString scratchFile(const QString& name, const QByteArray& bytes);

/// Ends statements of the database engine that run for too long: a person can write an endless query, and that is no
/// fault of the program.
void boundStatements();

/// Mutations for files made of pages: within some bytes of one page (most often near its beginning, where pages say
/// what they are), one page in the place of another, pages cut off or repeated. For LLVMFuzzerCustomMutator.
size_t mutatePages(uint8_t* data, size_t size, size_t largest, unsigned seed, size_t pageSize);

inline QByteArray bytesOf(const uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), qsizetype(size)};
}
