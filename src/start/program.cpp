#include "start/program.h"

#include "catalogue/mektp.h"
#include "colours/frm_ps.h"
#include "editor/document/undo_steps.h"
#include "editor/frm_cl.h"
#include "help/frm_bz.h"
#include "help/frm_gy.h"
#include "help/shipped_manual.h"
#include "platform/base/error.h"
#include "start/settings_window.h"
#include "viewer/frm_tp.h"
#include "windows/window_place.h"

#include <QCoreApplication>
#include <algorithm>

Program::~Program() {
    for (const auto& [kind, window] : windows_) delete window;
}

void Program::start() {
    show(WindowKind::viewer);
    attempt([] { emptyUndoSteps(); });
    attempt([] { renewManual(mekTp::catalogue, shippedManual()); });
}

QWidget* Program::makeWindow(WindowKind window) {
    switch (window) {
        case WindowKind::viewer:
            return new frmTp(*this);
        case WindowKind::settings:
            return makeSettingsWindow(*this).release();
        case WindowKind::editor:
            return new frmCl(*this);
        case WindowKind::colours:
            return new frmPs(*this);
        case WindowKind::help:
            return new frmBz(*this);
        case WindowKind::about:
            return new frmGy;
    }
    return nullptr;
}

void Program::handOver(WindowKind from, WindowKind to) {
    bring(to, windows_[from]);
    unload(from);
}

void Program::takeIn(const QString& table, const PictureOffer& offer) {
    handOver(WindowKind::viewer, WindowKind::settings);
    auto* settings = qobject_cast<frmSz*>(windows_[WindowKind::settings].data());
    if (settings != nullptr) settings->takeIn(table, offer);
}

void Program::show(WindowKind window) {
    // The large windows take turns: while another one is at work, that is the one to come back to.
    if (window == WindowKind::viewer)
        for (const WindowKind large : {WindowKind::settings, WindowKind::editor})
            if (isShown(large)) window = large;
    bring(window, nullptr);
}

bool Program::isShown(WindowKind window) const {
    const auto found = windows_.find(window);
    return found != windows_.end() && found->second && found->second->isVisible();
}

void Program::bring(WindowKind window, const QWidget* replaced) {
    QPointer<QWidget>& shown = windows_[window];
    // Closed by its frame, a window is gone: it comes back as new.
    if (shown && !shown->isVisible()) forget(window);
    if (!shown) {
        shown = makeWindow(window);
        standInPlaceOf(*shown, replaced);
    }
    shown->show();
    shown->setWindowState(shown->windowState() & ~Qt::WindowMinimized);
    shown->raise();
    shown->activateWindow();
    tellMainWindow();
}

void Program::tellMainWindow() {
    auto* viewer = qobject_cast<frmTp*>(windows_[WindowKind::viewer].data());
    if (viewer != nullptr) viewer->windowsBeside(isShown(WindowKind::help), isShown(WindowKind::colours));
}

void Program::unload(WindowKind window) {
    forget(window);
    // Windows that were left without the main window: nobody would see the program, which keeps others from starting.
    const bool anyShown =
        std::any_of(windows_.begin(), windows_.end(), [this](const auto& entry) { return isShown(entry.first); });
    if (!anyShown) endProgram();
}

void Program::forget(WindowKind window) {
    QPointer<QWidget>& shown = windows_[window];
    if (!shown) return;
    // The call comes from a handler of this very window: it goes when that handler has returned.
    shown->hide();
    shown->deleteLater();
    shown.clear();
    tellMainWindow();
}

void Program::coloursChanged() {
    auto* viewer = qobject_cast<frmTp*>(windows_[WindowKind::viewer].data());
    if (viewer != nullptr) viewer->applyColours();
}

void Program::tryColours(const ColourScheme& scheme) {
    auto* viewer = qobject_cast<frmTp*>(windows_[WindowKind::viewer].data());
    if (viewer != nullptr) viewer->wear(scheme);
}

void Program::showHelp(const QString& topic) {
    show(WindowKind::help);
    auto* help = qobject_cast<frmBz*>(windows_[WindowKind::help].data());
    if (help != nullptr && !topic.isEmpty()) help->showTopic(topic);
}

void Program::endProgram() {
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
}
