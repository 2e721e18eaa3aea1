#pragma once

#include <QString>

// Folders of the machine, each one place. On Windows they are the original's fixed folders.
//
//  programFolder   the executable's folder (config.ini, the log, the updater next to the program)
//  machineFolder   C:\Windows\Tarvex on Windows, /etc/tarvex elsewhere (SERVER.ini);
//                  the environment variable ZARVEL_MACHINE_DIR overrides it (demo and tests)
//  updaterFolder   C:\Centralis on Windows, /opt/centralis elsewhere
QString programFolder();
QString machineFolder();
QString updaterFolder();

// The file name of the updater tool and of this program on this platform.
QString updaterExecutableName(); // Atualizador.exe / Atualizador
QString programExecutableName(); // Zarvel.exe / the running executable's own name

// Tests point the folders at temporary ones; an empty value restores the default.
void setProgramFolder(const QString& folder);
void setMachineFolder(const QString& folder);
void setUpdaterFolder(const QString& folder);

// Platform defaults, one file per platform.
namespace platformPaths {
QString defaultMachineFolder();
QString defaultUpdaterFolder();
QString updaterExecutableName();
QString programExecutableName();
} // namespace platformPaths
