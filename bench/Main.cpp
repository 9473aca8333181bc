// Runs the benchmarks over this run's databases, then removes them.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>

#include "Seasons.h"

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    int status = 0;
    try {
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
        status = 1;
    }
    benchmark::Shutdown();
    tb::bench::RemoveRunFolder();
    return status;
}
