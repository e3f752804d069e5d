// Linked to a program, prints on its standard output how many milliseconds after its start it has nothing to do for the
// first time after painting a window, and ends it.

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <cstdio>

namespace {

QElapsedTimer started() {
    QElapsedTimer timer;
    timer.start();
    return timer;
}

const QElapsedTimer sinceStart = started();

/// Idle is a round of the event loop that brought nothing but this timer.
class FirstIdle : public QObject {
  public:
    FirstIdle() : QObject(qApp) {
        timer_.setInterval(0);
        connect(&timer_, &QTimer::timeout, this, [this] { look(); });
        timer_.start();
        qApp->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &timer_) return false;
        ++events_;
        if (event->type() == QEvent::Paint && watched->isWidgetType()) painted_ = true;
        return false;
    }

  private:
    void look() {
        if (events_ != std::exchange(seen_, events_) || !painted_) return;
        timer_.stop();
        std::printf("%f\n", double(sinceStart.nsecsElapsed()) / 1e6);
        std::fflush(stdout);
        QApplication::quit();
    }

    QTimer timer_;
    qint64 events_ = 0, seen_ = 0;
    bool painted_ = false;
};

void watch() {
    new FirstIdle;
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
