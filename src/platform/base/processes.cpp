#include "platform/base/processes.h"

#include "platform/base/error.h"

#include <QProcess>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <signal.h>

#include <cerrno>
#endif

using namespace Qt::Literals::StringLiterals;

QString findProgram(const QStringList& names) {
    for (const QString& name : names) {
        const QString path = QStandardPaths::findExecutable(name);
        if (!path.isEmpty()) return path;
    }
    return {};
}

void Shell(const QString& program, const QStringList& arguments) {
    if (!QProcess::startDetached(program, arguments)) throw Error(u"程序“%1”不能启动。"_s.arg(program));
}

bool isRunning(qint64 process) {
#ifdef Q_OS_UNIX
    return process > 0 && (kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH);
#else
    Q_UNUSED(process);
    return true;
#endif
}
