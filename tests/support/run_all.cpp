#include "run_all.h"

#include <QApplication>
#include <QtTest/QtTest>
#include <memory>
#include <vector>

namespace {
std::vector<std::function<QObject*()>>& registeredTests() {
    static std::vector<std::function<QObject*()>> tests;
    return tests;
}
}  // namespace

void registerTest(std::function<QObject*()> make) {
    registeredTests().push_back(std::move(make));
}

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    int failures = 0;
    for (const auto& make : registeredTests()) {
        const std::unique_ptr<QObject> test(make());
        failures += QTest::qExec(test.get(), argc, argv);
    }
    return failures == 0 && !registeredTests().empty() ? 0 : 1;
}
