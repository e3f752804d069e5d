#pragma once

#include <QDir>
#include <QFile>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

/// A size of a process, such as "VmRSS:" or "VmHWM:", in megabytes. The system gives it in kilobytes.
inline double memory(const QByteArray& key, const QString& process = QStringLiteral("self")) {
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
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

/// Of a file of the system, which says that it is empty.
inline QByteArray textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// What the helper programs of this process take, looked at all the time. One that has just been forked is a copy of
/// this process and of its size, and does not count yet; the system's own account of children counts it.
class HelperMemory {
  public:
    /// Megabytes, at most so far.
    double most() const { return most_; }
    /// The same together with this process, at one moment.
    double mostTogether() const { return mostTogether_; }

  private:
    static double now(const QByteArray& key) {
        const QString tasks = QStringLiteral("/proc/self/task/"), program = QStringLiteral("/proc/%1/exe");
        double all = 0;
        for (const QString& task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            for (const QByteArray& child : textOf(tasks + task + QStringLiteral("/children")).split(' ')) {
                const QString process = QString::fromLatin1(child);
                const QString own = QFile::symLinkTarget(program.arg(QStringLiteral("self")));
                if (QFile::symLinkTarget(program.arg(process)) != own) all += memory(key, process);
            }
        return all;
    }

    std::atomic<double> most_ = 0, mostTogether_ = 0;
    std::jthread thread_{[this](const std::stop_token& stop) {
        for (; !stop.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(5))) {
            most_ = std::max(most_.load(), now("VmHWM:"));
            mostTogether_ = std::max(mostTogether_.load(), memory("VmRSS:") + now("VmRSS:"));
        }
    }};
};
