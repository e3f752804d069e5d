#include "platform/base/processes.h"

#include "platform/base/error.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <signal.h>

#include <cerrno>
#endif
#ifdef Q_OS_LINUX
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

using namespace Qt::Literals::StringLiterals;

QString findProgram(const QStringList& names) {
    for (const QString& name : names) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty()) return path;
    }
    return {};
}

qint64 Shell(const QString& program, const QStringList& arguments) {
    qint64 process = 0;
    if (!QProcess::startDetached(program, arguments, {}, &process)) throw Error(u"程序“%1”不能启动。"_s.arg(program));
    return process;
}

bool isRunning(qint64 process) {
#ifdef Q_OS_UNIX
    // A process that has ended keeps its number until its parent has asked for the result: `1234 (name) Z …`.
    QFile state(u"/proc/%1/stat"_s.arg(process));
    if (state.open(QIODevice::ReadOnly)) {
        const QByteArray line = state.readAll();
        return line.mid(line.lastIndexOf(')') + 2, 1) != "Z";
    }
    return process > 0 && (kill(pid_t(process), 0) == 0 || errno != ESRCH);
#else
    Q_UNUSED(process);
    return true;
#endif
}

void workInTheBackground() {
#ifdef Q_OS_LINUX
    constexpr int nicest = 19;
    constexpr int oneThread = 1, lastOfTheUsualClass = (2 << 13) | 7;
    const auto thread = id_t(syscall(SYS_gettid));
    setpriority(PRIO_PROCESS, thread, nicest);
    syscall(SYS_ioprio_set, oneThread, thread, lastOfTheUsualClass);
#endif
}
