#include "platform/Printers.h"

#include "platform/RuntimeError.h"

#include <string>
#include <windows.h>
#include <winspool.h>

// The spooler's own default printer, the one the scripting host's SetDefaultPrinter changed.
namespace platformPrinters {
QString defaultPrinter() {
    DWORD size = 0;
    GetDefaultPrinterW(nullptr, &size);
    if (size == 0)
        return QString();
    std::wstring name(size, L'\0');
    if (!GetDefaultPrinterW(name.data(), &size))
        return QString();
    return QString::fromWCharArray(name.c_str());
}

void setDefaultPrinter(const QString& name) {
    const std::wstring wide = name.toStdWString();
    if (!SetDefaultPrinterW(wide.c_str()))
        raiseError(
            vbErr::AutomationException,
            QStringLiteral("The printer '%1' can't be made the default (%2).").arg(name).arg(GetLastError()));
}
} // namespace platformPrinters
