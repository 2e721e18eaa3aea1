#include "platform/Process.h"

#include <cstdio>
#include <cstdlib>

namespace {
std::function<void(int)>& handler() {
    static std::function<void(int)> h;
    return h;
}
} // namespace

void setEndProcessHandler(std::function<void(int)> h) {
    handler() = std::move(h);
}

void endProcess(int code) {
    if (handler()) {
        handler()(code);
        throw ProcessEnded{code};
    }
    std::fflush(nullptr);
    std::_Exit(code);
}
