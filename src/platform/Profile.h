#pragma once

#include <QString>

// Private-profile files (INI) with the semantics of GetPrivateProfileStringA and
// WritePrivateProfileStringA on every platform. Files are in the machine's 8-bit code page
// (Windows-1252) with CR LF line ends.

// Copies the value (or the default) into out, cut to size - 1 characters, and returns the count.
int GetPrivateProfileString(const QString& section, const QString& key, const QString& defaultValue,
                            QString& out, int size, const QString& file);

// Writes key=value into the section, creating the file, section or key as needed; the file is
// rewritten in place. False when nothing was written (the file or, for a new file, the folder
// refused).
bool WritePrivateProfileString(const QString& section, const QString& key, const QString& value,
                               const QString& file);
