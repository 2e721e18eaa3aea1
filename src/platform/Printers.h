#pragma once

#include <QString>
#include <QStringList>

// The machine's printers, by the names the spooler knows them.
QStringList printerNames();

// The name of the default printer (the original's Printer.DeviceName); empty when there is none.
QString defaultPrinterName();
