#pragma once

#include "platform/base/error.h"

/// An engine failure (result code and English text) in plain Chinese, with the file it happened in.
Error engineError(const QString& path, int code, const QString& message);
