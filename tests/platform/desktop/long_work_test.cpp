#include "platform/desktop/long_work.h"

#include "desktop.h"

#include <pthread.h>

#include <semaphore>
#include <system_error>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A window with a button that takes a long time, and one that stops it.
struct Form : QWidget {
    Form() : begin(new QPushButton(u"开 始"_s, this)), stop(new QPushButton(u"停 止"_s, this)) {
        stop->move(0, 60);
        resize(200, 200);
        work.emplace(this, stop);
        connect(begin, &QPushButton::clicked, this, [this] { ++clicks; });
    }
    QPushButton* begin;
    QPushButton* stop;
    int clicks = 0;
    std::binary_semaphore go{0};
    bool isOver = false;
    std::optional<LongWork> work;

    /// A work that waits for `go`.
    void startHeld() {
        work->start([this] { go.acquire(); }, [this] { isOver = true; });
    }
    void letGo() {
        go.release();
        QTRY_VERIFY(isOver);
    }
};

class TestLongWork : public QObject {
    Q_OBJECT

    std::optional<Form> form_;

  private Q_SLOTS:
    void init() { form_.emplace(); }

    void theWindowIsAliveAndLocked() {
        QVERIFY(isShown(*form_));
        form_->startHeld();
        QVERIFY(form_->work->isAtWork() && !form_->isOver);
        QTest::mouseClick(form_->begin, Qt::LeftButton);
        QTest::keyClick(form_->begin, Qt::Key_Space);
        QTest::keyClick(&*form_, Qt::Key_Return);
        QCOMPARE(form_->clicks, 0);
        bool isAlive = false;
        QTimer::singleShot(0, [&] { isAlive = true; });
        QTRY_VERIFY(isAlive);
        QVERIFY(!form_->work->isToStop());
        form_->letGo();
        QVERIFY(!form_->work->isAtWork());
        QTest::mouseClick(form_->begin, Qt::LeftButton);
        QCOMPARE(form_->clicks, 1);
    }

    /// It sends no events.
    void assistiveSoftwarePressesNothing() {
        auto* option = new QCheckBox(&*form_);
        QVERIFY(isShown(*form_));
        form_->startHeld();
        for (QAbstractButton* button :
             {static_cast<QAbstractButton*>(form_->begin), static_cast<QAbstractButton*>(option)}) {
            auto* actions = QAccessible::queryAccessibleInterface(button)->actionInterface();
            actions->doAction(actions->actionNames().first());
        }
        QTRY_VERIFY(!form_->begin->isDown());
        form_->letGo();
        QVERIFY(form_->clicks == 0 && !option->isChecked());
        QTest::mouseClick(form_->begin, Qt::LeftButton);
        QCOMPARE(form_->clicks, 1);
    }

    void buttonAndEscapeStopTheWork() {
        QVERIFY(isShown(*form_));
        const std::function<void()> hands[] = {[&] { QTest::mouseClick(form_->stop, Qt::LeftButton); },
                                               [&] { QTest::keyClick(form_->begin, Qt::Key_Escape); }};
        for (const auto& hand : hands) {
            bool isOver = false;
            form_->work->start(
                [&] {
                    while (!form_->work->isToStop()) std::this_thread::yield();
                },
                [&] { isOver = true; });
            QVERIFY(!form_->work->isToStop());
            hand();
            QTRY_VERIFY(isOver);
        }
    }

    void aFailureIsShownAndEndsTheWork() {
        QVERIFY(isShown(*form_));
        QStringList boxes;
        answerBoxesWith([&](const BoxText& box) {
            boxes.append(box.title + u'|' + box.text);
            return true;
        });
        bool isOver = false;
        form_->work->start([] { throw Error(u"磁盘已满"_s); }, [&] { isOver = true; });
        QTRY_VERIFY(!boxes.isEmpty());
        answerBoxesWith({});
        QCOMPARE(boxes, QStringList{u"错误提示|磁盘已满"_s});
        QVERIFY(!isOver && !form_->work->isAtWork());
    }

    void aSecondWorkCannotBegin() {
        form_->startHeld();
        QVERIFY_THROWS_EXCEPTION(Error, form_->work->start([] {}, [] {}));
        form_->letGo();
        QVERIFY(!LongWork::isAnyAtWork());
    }

    /// No stack of this size can be had.
    void aWorkWithoutAThreadLocksNothing() {
        QVERIFY(isShown(*form_));
        pthread_attr_t usual, huge;
        pthread_getattr_default_np(&usual);
        pthread_attr_init(&huge);
        pthread_attr_setstacksize(&huge, std::size_t(1) << 50);
        pthread_setattr_default_np(&huge);
        QSignalSpy ended(&*form_->work, &LongWork::ended);
        QVERIFY_THROWS_EXCEPTION(std::system_error, form_->work->start([] {}, [] {}));
        pthread_setattr_default_np(&usual);
        QVERIFY(!form_->work->isAtWork() && !LongWork::isAnyAtWork());
        QCOMPARE(ended.size(), 1);
        QTest::mouseClick(form_->begin, Qt::LeftButton);
        QCOMPARE(form_->clicks, 1);
    }

    /// A question of the work is answered in the window's thread; the work waits for it.
    void theWorkAsks() {
        QVERIFY(isShown(*form_));
        bool isOver = false;
        const Qt::HANDLE window = QThread::currentThreadId();
        QList<bool> wasInWindow;
        int shown = 0;
        form_->work->start(
            [&] {
                for (int i = 0; i < 3; ++i) {
                    form_->work->show([&, i] { shown = i; });
                    form_->work->inWindow([&] { wasInWindow.append(QThread::currentThreadId() == window); });
                }
            },
            [&] { isOver = true; });
        QTRY_VERIFY(isOver);
        QCOMPARE(wasInWindow, QList<bool>(3, true));
        QCOMPARE(shown, 2);
    }

    /// Neither a step of the work nor its end comes while a question waits for its answer, and one button is free.
    void theWorkWaitsForAnAnswer() {
        QVERIFY(isShown(*form_));
        form_->work->leaveFree(form_->begin);
        bool isOver = false, wasAsked = false;
        QStringList order;
        connect(form_->begin, &QPushButton::clicked, &*form_, [&] {
            form_->work->whileAsking([&] {
                wasAsked = true;
                for (int i = 0; i < 20; ++i) QTest::qWait(1);
                order << u"answer"_s;
            });
        });
        form_->work->start(
            [&] {
                form_->go.acquire();
                form_->work->inWindow([&] { order << u"step"_s; });
            },
            [&] { isOver = true; });
        form_->go.release();
        QTest::mouseClick(form_->begin, Qt::LeftButton);
        QVERIFY(wasAsked && !isOver);
        QTRY_VERIFY(isOver);
        QCOMPARE(order, (QStringList{u"answer"_s, u"step"_s}));
        QCOMPARE(form_->clicks, 1);
    }

    /// A window that goes waits for its work, and the work does not wait for the window.
    void theEndOfTheWindowEndsTheWork() {
        bool wasAsked = false;
        bool isOver = false;
        LongWork* work = &*form_->work;
        work->start([&, work] { wasAsked = work->inWindow([] {}); }, [&] { isOver = true; });
        form_.reset();
        QCoreApplication::sendPostedEvents();
        QVERIFY(!wasAsked && !isOver);
    }
};

const Registered<TestLongWork> registered;

}  // namespace

#include "long_work_test.moc"
