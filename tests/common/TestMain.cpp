// Runs every registered test class of this executable. Arguments are passed on to
// QTest; "-class Name" runs only the classes whose name is given.
#include "TestRegistry.h"

#include <QStringList>
#include <QTest>
#include <cstdio>

// The core's tests run without a GUI application: nothing in the core may need one.
#ifdef VANTREL_CORE_TESTS
#include <QCoreApplication>
using TestApplication = QCoreApplication;
#else
#include <QApplication>
using TestApplication = QApplication;
#endif

int main(int argc, char** argv) {
    TestApplication app(argc, argv);
    QStringList args = app.arguments();
    QStringList only;
    for (int i = 1; i + 1 < args.size();) {
        if (args[i] == QLatin1String("-class")) {
            only << args[i + 1];
            args.remove(i, 2);
        } else {
            ++i;
        }
    }
    int failedClasses = 0;
    int ran = 0;
    for (auto& [name, factory] : testing::registry()) {
        if (!only.isEmpty() && !only.contains(QLatin1String(name)))
            continue;
        auto test = factory();
        ++ran;
        if (QTest::qExec(test.get(), args) != 0)
            ++failedClasses;
    }
    std::printf("%d test classes run, %d failed\n", ran, failedClasses);
    return failedClasses == 0 ? 0 : 1;
}
