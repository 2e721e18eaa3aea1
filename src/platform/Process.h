#pragma once

#include <QString>
#include <functional>

// What a test's replaced process end throws, so that the code after the end never runs.
struct ProcessEnded {
    int code;
};

// Ends the process, as the original's End statement did: no screen is unloaded, no handler runs.
[[noreturn]] void endProcess(int code = 0);

// Starts a command line as CreateProcess does with no application name (the program is the first
// blank-separated prefix that names a file; the rest are its arguments), with this process's
// handles inherited, and waits for it to end without limit. A command that can't start returns at
// once. One file per platform.
void startAndWait(const QString& commandLine);

// Tests replace the end: the handler records it, and endProcess then throws ProcessEnded.
// An empty handler restores the real end.
void setEndProcessHandler(std::function<void(int code)> handler);
