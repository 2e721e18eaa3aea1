#pragma once

#include <QByteArray>
#include <QString>

// The 8-bit code page of the machine's text files (INI files, the log), by our own table: Qt's
// QStringConverter knows Windows-1252 only when Qt was built with ICU.

QString decodeWindows1252(const QByteArray& bytes);
// Characters outside the code page become "?".
QByteArray encodeWindows1252(const QString& text);
