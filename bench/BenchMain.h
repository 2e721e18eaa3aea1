#pragma once

#include "platform/Application.h"
#include "platform/Form.h"

#include <benchmark/benchmark.h>

// The main of a benchmark that drives screens: the application on the offscreen platform unless
// told otherwise, the benchmarks, then every screen dropped.
inline int rodarBenchmarks(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    Form::unloadAll();
    return 0;
}
