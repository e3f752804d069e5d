#pragma once

#include <QString>

/// Why the system refused something, in words of the user, as part of a sentence. Does not throw.

/// For an `errno`.
QString systemReason(int error);
/// For the words of a `QFileDevice`, which keeps nothing else of the failure. Others come back as they are.
QString systemReason(const QString& words);
