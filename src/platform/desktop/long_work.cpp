#include "platform/desktop/long_work.h"

#include "platform/base/error.h"
#include "platform/desktop/input_events.h"
#include "platform/desktop/message_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopeGuard>
#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <utility>

/// Shared with the calls that wait in the window's queue of events: they may outlive the object.
struct LongWork::Steps {
    std::mutex mutex;
    std::condition_variable changed;
    bool abandoned = false;  ///< The window's thread waits for the work, and does nothing for it any more.
    std::function<void()> toShow;

    bool isAbandoned() {
        const std::lock_guard lock(mutex);
        return abandoned;
    }
};

using namespace Qt::Literals::StringLiterals;

namespace {

/// The widget that an object belongs to, itself perhaps: actions and shortcuts are children of widgets.
const QWidget* widgetOf(const QObject* part) {
    while (part != nullptr && !part->isWidgetType()) part = part->parent();
    return static_cast<const QWidget*>(part);
}

bool isEscape(const QEvent* event) {
    return event->type() == QEvent::KeyPress && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape;
}

std::atomic<int>& worksUnderWay() {
    static std::atomic<int> count = 0;
    return count;
}

/// Takes a work from the count when it is over.
struct CountDown {
    ~CountDown() { --worksUnderWay(); }
};

}  // namespace

bool LongWork::isAnyAtWork() {
    return worksUnderWay() > 0;
}

LongWork::LongWork(QWidget* window, QPushButton* stopButton)
    : window_(window), free_{stopButton}, steps_(std::make_shared<Steps>()) {
    connect(stopButton, &QPushButton::clicked, this, &LongWork::stop);
}

LongWork::~LongWork() {
    stop();
    {
        const std::lock_guard lock(steps_->mutex);
        steps_->abandoned = true;
    }
    steps_->changed.notify_all();
    if (thread_.joinable()) thread_.join();
}

void LongWork::start(std::function<void()> work, std::function<void()> after) {
    if (isAtWork()) throw Error(u"前一项工作还没有完成。"_s);
    stopping_ = false;
    ++worksUnderWay();
    qApp->installEventFilter(this);
    silenceButtons();
    auto notBegun = qScopeGuard([this] {
        --worksUnderWay();
        unlock();
    });
    Q_EMIT begun();
    thread_ = std::thread([this, work = std::move(work), after = std::move(after)] {
        const CountDown whenOver;
        std::exception_ptr failure;
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(
            this, [this, failure, after] { whenNothingAsks([this, failure, after] { end(failure, after); }); },
            Qt::QueuedConnection);
    });
    notBegun.dismiss();
}

void LongWork::unlock() {
    qApp->removeEventFilter(this);
    for (const auto& [button, wasChecked] : std::exchange(silenced_, {})) {
        if (button == nullptr) continue;
        if (wasChecked != button->isChecked()) button->setChecked(wasChecked);
        button->blockSignals(false);
    }
    Q_EMIT ended();
}

/// Assistive software presses a button without an event. It is as it was when the work is over.
void LongWork::silenceButtons() {
    for (auto* button : window_->window()->findChildren<QAbstractButton*>())
        if (isLocked(button) && !button->blockSignals(true)) silenced_.push_back({button, button->isChecked()});
}

void LongWork::stop() {
    if (!stopping_.exchange(true) && isAtWork()) Q_EMIT stopAsked();
}

void LongWork::end(const std::exception_ptr& failure, const std::function<void()>& after) {
    thread_.join();
    unlock();
    const QPointer<LongWork> self = this;
    runHandler(window_, [&] {
        if (failure) std::rethrow_exception(failure);
        after();
    });
    if (self != nullptr) Q_EMIT over();
}

bool LongWork::inWindow(const std::function<void()>& step) {
    const std::shared_ptr<Steps> steps = steps_;
    bool isDone = false;
    QMetaObject::invokeMethod(
        this,
        [this, &isDone, &step, steps] {
            whenNothingAsks([&isDone, &step, steps] {
                if (steps->isAbandoned()) return;
                step();
                {
                    const std::lock_guard lock(steps->mutex);
                    isDone = true;
                }
                steps->changed.notify_all();
            });
        },
        Qt::QueuedConnection);
    std::unique_lock lock(steps->mutex);
    steps->changed.wait(lock, [&] { return isDone || steps->abandoned; });
    return isDone;
}

void LongWork::show(std::function<void()> step) {
    const std::shared_ptr<Steps> steps = steps_;
    {
        const std::lock_guard lock(steps->mutex);
        const bool waits = std::exchange(steps->toShow, std::move(step)) != nullptr;
        if (waits) return;
    }
    QMetaObject::invokeMethod(
        this,
        [steps] {
            std::function<void()> last;
            {
                const std::lock_guard lock(steps->mutex);
                last = std::exchange(steps->toShow, nullptr);
            }
            if (last) last();
        },
        Qt::QueuedConnection);
}

void LongWork::whileAsking(const std::function<void()>& question) {
    asks_ = true;
    question();
    asks_ = false;
    // In their own turn, when the handler that has asked is over.
    for (std::function<void()>& step : std::exchange(waiting_, {}))
        QMetaObject::invokeMethod(this, std::move(step), Qt::QueuedConnection);
}

void LongWork::whenNothingAsks(std::function<void()> step) {
    if (asks_)
        waiting_.push_back(std::move(step));
    else
        step();
}

bool LongWork::isLocked(const QObject* part) const {
    const QWidget* widget = widgetOf(part);
    return widget != nullptr && widget->window() == window_->window() &&
           std::ranges::find(free_, widget) == free_.end();
}

bool LongWork::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(event->type()) || !isLocked(watched)) return QObject::eventFilter(watched, event);
    if (isEscape(event)) stop();
    event->accept();
    return true;
}
