#include "platform/Paths.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace platformPaths {
QString defaultMachineFolder() {
    return QStringLiteral("/etc/tarvex");
}
QString defaultUpdaterFolder() {
    return QStringLiteral("/opt/centralis");
}
QString updaterExecutableName() {
    return QStringLiteral("Atualizador");
}
QString programExecutableName() {
    const QString path = QCoreApplication::applicationFilePath();
    return path.isEmpty() ? QStringLiteral("zarvel") : QFileInfo(path).fileName();
}
} // namespace platformPaths
