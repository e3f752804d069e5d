#pragma once

#include <QFile>

/// A size of this process, such as "VmRSS:" or "VmHWM:", in megabytes. The system gives it in kilobytes.
inline double memory(const QByteArray& key) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(key)) return line.mid(key.size()).simplified().split(' ').first().toDouble() / 1024;
    return 0;
}

/// Resets the maximum "VmHWM:" to the present size.
inline void forgetPeak() {
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly)) peak.write("5");
}
