#include "support/TestMain.h"

#include "platform/Application.h"

#include <QTest>
#include <memory>
#include <vector>

namespace {
std::vector<std::pair<QByteArray, std::function<QObject*()>>>& registry() {
    static std::vector<std::pair<QByteArray, std::function<QObject*()>>> classes;
    return classes;
}
} // namespace

void registerTestClass(const char* name, std::function<QObject*()> factory) {
    registry().emplace_back(name, std::move(factory));
}

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application app(argc, argv);
    const QByteArray only = qgetenv("ZARVEL_TEST_CLASS");
    int failures = 0;
    for (auto& [name, factory] : registry()) {
        if (!only.isEmpty() && name != only)
            continue;
        std::unique_ptr<QObject> test(factory());
        failures += QTest::qExec(test.get(), only.isEmpty() ? 1 : argc, argv);
    }
    return failures == 0 ? 0 : 1;
}
