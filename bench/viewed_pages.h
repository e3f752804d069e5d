#pragma once

#include "../tests/viewer/viewer_window.h"
#include "timing.h"

using namespace Qt::Literals::StringLiterals;

/// Lets the window rest.
inline void rest(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A window on the album that has shown none of its pages yet.
class ViewedPages {
  public:
    static constexpr int columns = 6;
    static constexpr int cells = columns * columns;
    static constexpr int patience = 30000;  ///< Milliseconds.

    explicit ViewedPages(QSize size = {1280, 900}) {
        window_.resize(size);
        window_.show();
        window_.findChild<QAction*>(u"mnuCd(1)"_s)->trigger();
        box(u"txtLs"_s)->setText(QString::number(columns) + u'列');
        QApplication::processEvents();
    }

    void resize(QSize size) { window_.resize(size); }
    void key(const QString& key) { window_.findChild<QToolButton*>(u"tlb1:"_s + key)->click(); }
    void button() { Q_EMIT window_.findChild<ImageBox*>(u"imgAn(0)"_s)->clicked(); }
    void page(int number) {
        box(u"txtYh"_s)->setText(QString::number(number));
        Q_EMIT box(u"txtYh"_s)->textEdited(QString::number(number));
        key(u"xs"_s);
    }
    /// Until the window shows what the click has changed.
    static void paint() { QApplication::processEvents(); }

    bool showsSomething() const {
        return everyCell([](const ImageBox& cell) { return !cell.picture().isNull(); });
    }
    bool isSharp() const {
        return everyCell([](const ImageBox& cell) { return cell.picture().image().size() == cell.targetSize(); });
    }
    /// Until every cell has its own picture in full sharpness; false when that does not come. The window's clock wakes
    /// the loop.
    bool waitForSharpness() const {
        QElapsedTimer timer;
        timer.start();
        while (!isSharp() && !timer.hasExpired(patience)) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        paint();
        return isSharp();
    }

  private:
    template <class Rule>
    bool everyCell(const Rule& rule) const {
        for (int i = 0; i < cells; ++i)
            if (!rule(*window_.findChild<ImageBox*>(element(u"imgXs"_s, i)))) return false;
        return true;
    }
    TextBox* box(const QString& name) { return window_.findChild<TextBox*>(name); }
    RecordingWindows windows_;
    frmTp window_{windows_};
};
