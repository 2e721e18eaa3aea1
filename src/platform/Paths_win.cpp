#include "platform/Paths.h"

namespace platformPaths {
QString defaultMachineFolder() {
    return QStringLiteral("C:/Windows/Tarvex");
}
QString defaultUpdaterFolder() {
    return QStringLiteral("C:/Centralis");
}
QString updaterExecutableName() {
    return QStringLiteral("Atualizador.exe");
}
QString programExecutableName() {
    return QStringLiteral("Zarvel.exe");
}
} // namespace platformPaths
