#include "platform/Paths.h"

#include <QCoreApplication>
#include <QDir>

namespace {
QString s_program;
QString s_machine;
QString s_updater;
} // namespace

QString programFolder() {
    if (!s_program.isEmpty())
        return s_program;
    return QDir::cleanPath(QCoreApplication::applicationDirPath());
}

QString machineFolder() {
    if (!s_machine.isEmpty())
        return s_machine;
    const QString fromEnv = qEnvironmentVariable("ZARVEL_MACHINE_DIR");
    if (!fromEnv.isEmpty())
        return QDir::cleanPath(fromEnv);
    return platformPaths::defaultMachineFolder();
}

QString updaterFolder() {
    return s_updater.isEmpty() ? platformPaths::defaultUpdaterFolder() : s_updater;
}

QString updaterExecutableName() {
    return platformPaths::updaterExecutableName();
}
QString programExecutableName() {
    return platformPaths::programExecutableName();
}

void setProgramFolder(const QString& folder) {
    s_program = folder;
}
void setMachineFolder(const QString& folder) {
    s_machine = folder;
}
void setUpdaterFolder(const QString& folder) {
    s_updater = folder;
}
