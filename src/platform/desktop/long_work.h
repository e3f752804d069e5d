#pragma once

#include <QObject>
#include <QPointer>
#include <atomic>
#include <exception>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

class QAbstractButton;
class QPushButton;
class QWidget;

/// Work of a handler that takes longer than a moment. It is done in a thread of its own while its window goes on
/// painting; everything in the window is locked but the stop button, whose work Esc does too, and the buttons that ask
/// whether to leave. The handler returns when the work has begun: what comes after the work is another one, so that no
/// handler ever runs inside another.
class LongWork : public QObject {
    Q_OBJECT

  public:
    /// Both outlive this object.
    LongWork(QWidget* window, QPushButton* stopButton);
    /// Asks the work to end, and waits for it. `after` is not called then.
    ~LongWork() override;

    /// A button that a person may press during the work, too. It outlives this object.
    void leaveFree(QPushButton* button) { free_.push_back(button); }

    /// `work` runs in the thread. When it has ended the window is free again, and `after` is called in the window's
    /// thread as a handler. What `work` throws is shown as the failure of a handler, and `after` is not called.
    /// Throws `Error` when it is at work already, and `std::system_error` when there is no thread; all is free then.
    void start(std::function<void()> work, std::function<void()> after);
    bool isAtWork() const { return thread_.joinable(); }
    /// Whether any window of the program is at work. In any thread.
    static bool isAnyAtWork();

    /// The person, or the end of the window, wants the work to end. It sees that by `isToStop`, in any thread.
    void stop();
    bool isToStop() const { return stopping_; }

    /// Called by `work`: `step` is done in the window's thread before the call returns. False, and it is not done, when
    /// the destructor waits for the work.
    bool inWindow(const std::function<void()>& step);
    /// The same, but the work goes on at once. Of several that wait only the last one is done.
    void show(std::function<void()> step);

    /// Asks a question about the work. The work goes on, but it does not end before the answer, and its steps wait.
    void whileAsking(const std::function<void()>& question);

  Q_SIGNALS:
    void begun();
    void stopAsked();  ///< The person has stopped the work; it goes on to the next place where it can end.
    void ended();      ///< Before `after`.
    void over();       ///< When the handler `after` has returned, and what it had to say of a failure is read.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Steps;

    bool isLocked(const QObject* part) const;
    void silenceButtons();
    void unlock();
    void whenNothingAsks(std::function<void()> step);
    void end(const std::exception_ptr& failure, const std::function<void()>& after);

    QWidget* window_;
    struct Silenced {
        QPointer<QAbstractButton> button;
        bool wasChecked = false;
    };
    std::vector<QPushButton*> free_;  ///< The stop button first.
    std::vector<Silenced> silenced_;
    bool asks_ = false;
    std::vector<std::function<void()>> waiting_;  ///< Steps of the work that wait for an answer.
    std::shared_ptr<Steps> steps_;                ///< What the work wants of the window's thread.
    std::atomic<bool> stopping_ = false;
    std::thread thread_;
};
