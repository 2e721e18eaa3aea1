#pragma once

#include <functional>

// What a test's replaced process end throws, so that the code after the end never runs.
struct ProcessEnded {
    int code;
};

// Ends the process, as the original's End statement did: no screen is unloaded, no handler runs.
[[noreturn]] void endProcess(int code = 0);

// Tests replace the end: the handler records it, and endProcess then throws ProcessEnded.
// An empty handler restores the real end.
void setEndProcessHandler(std::function<void(int code)> handler);
