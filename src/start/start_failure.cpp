#include "start/start_failure.h"

#include <QString>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace {

QString failureText(const QString& reason) {
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    const QString cause = hasDisplay ? u"显示器连不上，或者系统缺少显示窗口的部件。\n"
                                       "缺少部件时，在 Debian、Ubuntu 上可以这样安装：\n"
                                       "    sudo apt install libqt6widgets6 libqt6svg6 qt6-qpa-plugins qt6-wayland\n"_s
                                     : u"没有显示器。请在桌面上启动；没有显示器的机器上可以用：xvfb-run -a lunq\n"_s;
    return u"览忆集苑不能打开窗口："_s + cause + u"像册没有改动。系统的原话：\n"_s + reason.trimmed() + u'\n';
}

void speak(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        std::fputs(qUtf8Printable(failureText(message)), stderr);
        std::_Exit(noWindowsStatus);
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
}

}  // namespace

StartFailureWords::StartFailureWords() {
    qInstallMessageHandler(speak);
}

StartFailureWords::~StartFailureWords() {
    qInstallMessageHandler(nullptr);
}
