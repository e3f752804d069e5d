#pragma once

#include <QFile>

/// A number of kilobytes that the system tells about this process ("VmRSS:", "VmHWM:"), in megabytes.
inline double memory(const QByteArray& key) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(key)) return line.mid(key.size()).simplified().split(' ').first().toDouble() / 1024;
    return 0;
}

/// What "VmHWM:" tells begins anew.
inline void forgetPeak() {
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly)) peak.write("5");
}
