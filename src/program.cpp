#include "program.h"

#include "help/frm_gy.h"
#include "settings/frm_sz.h"
#include "viewer/frm_tp.h"

#include <QCoreApplication>

Program::~Program() {
    for (const auto& [kind, window] : windows_) delete window;
}

void Program::start() {
    show(WindowKind::viewer);
}

bool Program::has(WindowKind window) const {
    return window == WindowKind::viewer || window == WindowKind::settings || window == WindowKind::about;
}

QWidget* Program::makeWindow(WindowKind window) {
    switch (window) {
        case WindowKind::viewer:
            return new frmTp(*this);
        case WindowKind::settings:
            return new frmSz(*this);
        case WindowKind::about:
            return new frmGy;
        default:
            return nullptr;
    }
}

void Program::handOver(WindowKind from, WindowKind to) {
    if (!has(to)) return;
    show(to);
    unload(from);
}

void Program::show(WindowKind window) {
    QPointer<QWidget>& shown = windows_[window];
    if (!shown) shown = makeWindow(window);
    if (!shown) return;
    shown->show();
    shown->raise();
    shown->activateWindow();
}

void Program::unload(WindowKind window) {
    QPointer<QWidget>& shown = windows_[window];
    if (!shown) return;
    // The call comes from a handler of this very window: it goes when that handler has returned.
    shown->hide();
    shown->deleteLater();
    shown.clear();
}

void Program::showHelp(const QString& topic) {
    Q_UNUSED(topic)
    show(WindowKind::help);
}

void Program::endProgram() {
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
}
