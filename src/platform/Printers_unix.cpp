#include "platform/Printers.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QPrinterInfo>
#include <QSaveFile>

// CUPS through Qt's print support. A user's default printer is the "Default" line of their
// ~/.cups/lpoptions, which is what lpoptions -d writes and what every CUPS program reads.
namespace platformPrinters {
QString defaultPrinter() {
    return QPrinterInfo::defaultPrinterName();
}

void setDefaultPrinter(const QString& name) {
    if (!QPrinterInfo::availablePrinterNames().contains(name))
        raiseError(vbErr::AutomationException, QStringLiteral("There is no printer named '%1'.").arg(name));
    const QString folder = QDir::home().filePath(QStringLiteral(".cups"));
    const QString path = QDir(folder).filePath(QStringLiteral("lpoptions"));
    QString options;
    QFile current(path);
    if (current.open(QIODevice::ReadOnly))
        options = QString::fromUtf8(current.readAll());
    QSaveFile file(path);
    if (!QDir().mkpath(folder) || !file.open(QIODevice::WriteOnly) ||
        file.write(lpoptionsWithDefault(options, name).toUtf8()) < 0 || !file.commit())
        raiseError(vbErr::PathFileAccess);
}
} // namespace platformPrinters
