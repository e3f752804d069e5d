#pragma once

#include <QObject>
#include <functional>

/// Registers a test class with the test program it is compiled into: `static Registered<TestAlbumRules> registered;`.
void registerTest(std::function<QObject*()> make);

template <typename Test>
struct Registered {
    Registered() {
        registerTest([] { return new Test; });
    }
};
