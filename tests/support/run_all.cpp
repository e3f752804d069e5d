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
        // What a test function lets out has been reported as its failure; the other classes still have their turn.
        try {
            failures += QTest::qExec(test.get(), argc, argv);
        } catch (const std::exception& failure) {
            qWarning("%s", failure.what());
            ++failures;
        }
    }
    return failures == 0 && !registeredTests().empty() ? 0 : 1;
}
