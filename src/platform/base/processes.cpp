#include "platform/base/processes.h"

#include "platform/base/error.h"

#include <QProcess>
#include <QStandardPaths>

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
