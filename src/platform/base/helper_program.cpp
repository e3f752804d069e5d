#include "platform/base/helper_program.h"

#include <fcntl.h>

#include <QFileInfo>
#include <QProcess>

using namespace Qt::Literals::StringLiterals;

namespace {

bool endsInTime(QProcess& helper, int patienceMs) {
    while (helper.state() != QProcess::NotRunning) {
        if (!helper.waitForReadyRead(patienceMs) && helper.state() != QProcess::NotRunning) return false;
        helper.readAllStandardOutput();
    }
    return true;
}

}  // namespace

HelperEnd runHelper(const HelperCall& call) {
    if (!QFileInfo(call.program).isExecutable())
        return {.obstacle = u"读取它要用的程序“%1”不见了，请重新安装本软件"_s.arg(call.program)};
    QProcess helper;
    helper.setStandardInputFile(QProcess::nullDevice());
    helper.setStandardErrorFile(QProcess::nullDevice());
    helper.setChildProcessModifier([&call] {
        for (const int file : call.files) fcntl(file, F_SETFD, 0);
    });
    helper.start(call.program, call.arguments);
    if (!helper.waitForStarted()) return {.obstacle = u"读取它要用的程序“%1”不能启动"_s.arg(call.program)};
    if (!endsInTime(helper, call.patienceMs)) {
        helper.kill();
        helper.waitForFinished();
        return {.isOutOfTime = true};
    }
    if (helper.exitStatus() == QProcess::CrashExit) return {.obstacle = u"读取它的程序意外终止，它可能已损坏"_s};
    return {.code = helper.exitCode()};
}
