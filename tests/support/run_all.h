#pragma once

#include <QObject>
#include <functional>

/// Registers a test class with the test program it is compiled into: `static Registered<TestAlbumRules> registered;`.
/// The program runs all of its classes; `--class NAME` runs one alone, `--classes` lists their names.
void registerTest(const QMetaObject& type, std::function<QObject*()> make);

template <typename Test>
struct Registered {
    Registered() {
        registerTest(Test::staticMetaObject, [] { return new Test; });
    }
};
