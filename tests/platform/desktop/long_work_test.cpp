#include "platform/desktop/long_work.h"

#include "desktop.h"
#include "platform/base/error.h"

#include <pthread.h>

#include <QAccessible>
#include <QCheckBox>
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
    std::optional<LongWork> work;
};

class TestLongWork : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theWindowIsAliveAndLocked() {
        Form form;
        QVERIFY(isShown(form));
        std::binary_semaphore go(0);
        bool isOver = false;
        form.work->start([&] { go.acquire(); }, [&] { isOver = true; });
        QVERIFY(form.work->isAtWork() && !isOver);
        QTest::mouseClick(form.begin, Qt::LeftButton);
        QTest::keyClick(form.begin, Qt::Key_Space);
        QTest::keyClick(&form, Qt::Key_Return);
        QCOMPARE(form.clicks, 0);
        bool isAlive = false;
        QTimer::singleShot(0, [&] { isAlive = true; });
        QTRY_VERIFY(isAlive);
        QVERIFY(!form.work->isToStop());
        go.release();
        QTRY_VERIFY(isOver);
        QVERIFY(!form.work->isAtWork());
        QTest::mouseClick(form.begin, Qt::LeftButton);
        QCOMPARE(form.clicks, 1);
    }

    /// It sends no events.
    void assistiveSoftwarePressesNothing() {
        Form form;
        auto* option = new QCheckBox(&form);
        QVERIFY(isShown(form));
        std::binary_semaphore go(0);
        bool isOver = false;
        form.work->start([&] { go.acquire(); }, [&] { isOver = true; });
        for (QAbstractButton* button :
             {static_cast<QAbstractButton*>(form.begin), static_cast<QAbstractButton*>(option)}) {
            auto* actions = QAccessible::queryAccessibleInterface(button)->actionInterface();
            actions->doAction(actions->actionNames().first());
        }
        QTRY_VERIFY(!form.begin->isDown());
        go.release();
        QTRY_VERIFY(isOver);
        QVERIFY(form.clicks == 0 && !option->isChecked());
        QTest::mouseClick(form.begin, Qt::LeftButton);
        QCOMPARE(form.clicks, 1);
    }

    void buttonAndEscapeStopTheWork() {
        Form form;
        QVERIFY(isShown(form));
        const std::function<void()> hands[] = {[&] { QTest::mouseClick(form.stop, Qt::LeftButton); },
                                               [&] { QTest::keyClick(form.begin, Qt::Key_Escape); }};
        for (const auto& hand : hands) {
            bool isOver = false;
            form.work->start(
                [&] {
                    while (!form.work->isToStop()) std::this_thread::yield();
                },
                [&] { isOver = true; });
            QVERIFY(!form.work->isToStop());
            hand();
            QTRY_VERIFY(isOver);
        }
    }

    void aFailureIsShownAndEndsTheWork() {
        Form form;
        QVERIFY(isShown(form));
        QStringList boxes;
        answerBoxesWith([&](const BoxText& box) {
            boxes.append(box.title + u'|' + box.text);
            return true;
        });
        bool isOver = false;
        form.work->start([] { throw Error(u"磁盘已满"_s); }, [&] { isOver = true; });
        QTRY_VERIFY(!boxes.isEmpty());
        answerBoxesWith({});
        QCOMPARE(boxes, QStringList{u"错误提示|磁盘已满"_s});
        QVERIFY(!isOver && !form.work->isAtWork());
    }

    void aSecondWorkCannotBegin() {
        Form form;
        std::binary_semaphore go(0);
        bool isOver = false;
        form.work->start([&] { go.acquire(); }, [&] { isOver = true; });
        QVERIFY_THROWS_EXCEPTION(Error, form.work->start([] {}, [] {}));
        go.release();
        QTRY_VERIFY(isOver);
        QVERIFY(!LongWork::isAnyAtWork());
    }

    /// No stack of this size can be had.
    void aWorkWithoutAThreadLocksNothing() {
        Form form;
        QVERIFY(isShown(form));
        pthread_attr_t usual, huge;
        pthread_getattr_default_np(&usual);
        pthread_attr_init(&huge);
        pthread_attr_setstacksize(&huge, std::size_t(1) << 50);
        pthread_setattr_default_np(&huge);
        QSignalSpy ended(&*form.work, &LongWork::ended);
        QVERIFY_THROWS_EXCEPTION(std::system_error, form.work->start([] {}, [] {}));
        pthread_setattr_default_np(&usual);
        QVERIFY(!form.work->isAtWork() && !LongWork::isAnyAtWork());
        QCOMPARE(ended.size(), 1);
        QTest::mouseClick(form.begin, Qt::LeftButton);
        QCOMPARE(form.clicks, 1);
    }

    /// A question of the work is answered in the window's thread; the work waits for it.
    void theWorkAsks() {
        Form form;
        QVERIFY(isShown(form));
        bool isOver = false;
        const Qt::HANDLE window = QThread::currentThreadId();
        QList<bool> wasInWindow;
        int shown = 0;
        form.work->start(
            [&] {
                for (int i = 0; i < 3; ++i) {
                    form.work->show([&, i] { shown = i; });
                    form.work->inWindow([&] { wasInWindow.append(QThread::currentThreadId() == window); });
                }
            },
            [&] { isOver = true; });
        QTRY_VERIFY(isOver);
        QCOMPARE(wasInWindow, QList<bool>(3, true));
        QCOMPARE(shown, 2);
    }

    /// Neither a step of the work nor its end comes while a question waits for its answer, and one button is free.
    void theWorkWaitsForAnAnswer() {
        Form form;
        QVERIFY(isShown(form));
        form.work->leaveFree(form.begin);
        bool isOver = false, wasAsked = false;
        QStringList order;
        connect(form.begin, &QPushButton::clicked, &form, [&] {
            form.work->whileAsking([&] {
                wasAsked = true;
                for (int i = 0; i < 20; ++i) QTest::qWait(1);
                order << u"answer"_s;
            });
        });
        std::binary_semaphore go(0);
        form.work->start(
            [&] {
                go.acquire();
                form.work->inWindow([&] { order << u"step"_s; });
            },
            [&] { isOver = true; });
        go.release();
        QTest::mouseClick(form.begin, Qt::LeftButton);
        QVERIFY(wasAsked && !isOver);
        QTRY_VERIFY(isOver);
        QCOMPARE(order, (QStringList{u"answer"_s, u"step"_s}));
        QCOMPARE(form.clicks, 1);
    }

    /// A window that goes waits for its work, and the work does not wait for the window.
    void theEndOfTheWindowEndsTheWork() {
        bool wasAsked = false;
        bool isOver = false;
        {
            Form form;
            LongWork* work = &*form.work;
            work->start([&, work] { wasAsked = work->inWindow([] {}); }, [&] { isOver = true; });
        }
        QCoreApplication::sendPostedEvents();
        QVERIFY(!wasAsked && !isOver);
    }
};

const Registered<TestLongWork> registered;

}  // namespace

#include "long_work_test.moc"
