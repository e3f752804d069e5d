#pragma once

#include "../../support/found.h"
#include "../../support/run_all.h"
#include "../../support/test_files.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"

#include <QtWidgets/QtWidgets>

/// Shows a window and waits for it.
inline bool isShown(QWidget& window) {
    window.show();
    return QTest::qWaitForWindowActive(&window);
}

/// Does something with the dialog of a kind that is open, as soon as there is one.
template <typename Dialog>
void onOpen(const std::function<void(Dialog&)>& act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        const QPointer<Dialog> dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog.isNull()) return;
        timer->deleteLater();
        act(*dialog);
        if (QTest::currentTestFailed() && dialog) dialog->reject();
    });
    timer->start(5);
}

inline QColor colourAt(QWidget& widget, int x, int y) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(qRound(x * image.devicePixelRatio()), qRound(y * image.devicePixelRatio()));
}
