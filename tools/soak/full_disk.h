#pragma once

#include <QString>

/// Lets the disk of this process fill up upon SIGUSR2: from then on no file of it grows beyond the size that the
/// catalogue has at that moment, or, half of the time, beyond a part of it, so that writes in its midst fail as well.
void letDiskFillUp(const QString& catalogue, quint32 seed);
bool isDiskFull();
