#pragma once

#include "platform/base/error.h"

/// An engine failure (result code and English text) in plain Chinese, with the file it happened in. `systemError` is
/// the system's own error number, 0 for none. `table` is the table of the statement, if known: the text names it when a
/// column is missing.
Error engineError(const QString& path, int code, const QString& message, int systemError = 0,
                  const QString& table = {});
