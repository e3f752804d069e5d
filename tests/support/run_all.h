#pragma once

#include <QtTest/QtTest>
#include <functional>

/// What is waited for ends the wait at once; a machine with much other work may take longer than the five seconds that
/// the toolkit gives it.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(...) QTRY_VERIFY_WITH_TIMEOUT((__VA_ARGS__), 60000)
#define QTRY_COMPARE(value, expected) QTRY_COMPARE_WITH_TIMEOUT((value), (expected), 60000)

/// Registers a test class with the test program it is compiled into: `static Registered<TestAlbumRules> registered;`.
/// The program runs all of its classes; `--class NAME` runs one alone, `--classes` lists their names.
void registerTest(const QMetaObject& type, std::function<QObject*()> make);

template <typename Test>
struct Registered {
    Registered() {
        registerTest(Test::staticMetaObject, [] { return new Test; });
    }
};
