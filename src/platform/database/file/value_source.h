#pragma once

#include <QtGlobal>

/// Bytes on their way into a long-binary value. They are asked for from first to last while the value is being stored,
/// so a value of any size costs no more memory than a piece of it.
class ValueSource {
  public:
    virtual ~ValueSource() = default;

    /// Length of the value in bytes. It does not change.
    virtual qint64 size() const = 0;
    /// Fills `to` with the next `count` bytes; in all no more than `size` are asked for. Throws `Error` when they
    /// cannot be had: then nothing is stored.
    virtual void read(char* to, qint64 count) = 0;
};
