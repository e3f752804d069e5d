#pragma once

#include "platform/base/error.h"

/// An engine failure (result code and English text) in plain Chinese, with the file it happened in. `systemError` is
/// the error number of the system behind it, where there is one; `table` is the one that a missing column was looked
/// for in, where it is known.
Error engineError(const QString& path, int code, const QString& message, int systemError = 0,
                  const QString& table = {});
