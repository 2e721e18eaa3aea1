#include "platform/Printers.h"

#include <QPrinterInfo>

QStringList printerNames() {
    return QPrinterInfo::availablePrinterNames();
}

QString defaultPrinterName() {
    return QPrinterInfo::defaultPrinterName();
}
