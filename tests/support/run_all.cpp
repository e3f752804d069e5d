#include "run_all.h"

#include <QApplication>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

struct TestClass {
    const QMetaObject* type;
    std::function<QObject*()> make;
};

std::vector<TestClass>& registeredTests() {
    static std::vector<TestClass> tests;
    return tests;
}

/// The class that the arguments name, which are taken out; empty for all.
QByteArray takeChosenClass(std::vector<char*>& arguments) {
    const auto option = std::ranges::find(arguments, QByteArray("--class"));
    if (option == arguments.end() || option + 1 == arguments.end()) return {};
    const QByteArray name = *(option + 1);
    arguments.erase(option, option + 2);
    return name;
}

int listClasses() {
    for (const TestClass& test : registeredTests()) std::puts(test.type->className());
    return 0;
}

bool run(const TestClass& test, std::vector<char*>& arguments) {
    const std::unique_ptr<QObject> object(test.make());
    // What a test function lets out has been reported as its failure; the other classes still have their turn.
    try {
        return QTest::qExec(object.get(), int(arguments.size()), arguments.data()) == 0;
    } catch (const std::exception& failure) {
        qWarning("%s", failure.what());
        return false;
    }
}

}  // namespace

void registerTest(const QMetaObject& type, std::function<QObject*()> make) {
    registeredTests().push_back({&type, std::move(make)});
}

int main(int argc, char** argv) {
    std::vector<char*> arguments(argv, argv + argc);
    if (argc == 2 && arguments[1] == QByteArray("--classes")) return listClasses();
    const QByteArray chosen = takeChosenClass(arguments);

    // After a crash a debugger would be started, which waits for ever where it may not look at the process.
    if (!qEnvironmentVariableIsSet("QTEST_DISABLE_STACK_DUMP")) qputenv("QTEST_DISABLE_STACK_DUMP", "1");
    const QApplication application(argc, argv);
    int ran = 0, failed = 0;
    for (const TestClass& test : registeredTests()) {
        if (!chosen.isEmpty() && chosen != test.type->className()) continue;
        ++ran;
        if (!run(test, arguments)) ++failed;
    }
    if (ran == 0) qWarning("no class %s", chosen.constData());
    return ran > 0 && failed == 0 ? 0 : 1;
}
