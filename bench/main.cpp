#include <benchmark/benchmark.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <iostream>

#include "works/WindowWorld.h"
#include "works/Works.h"

/// ventlock_bench [<option of the benchmark library>...]
/// VENTLOCK_BENCH_ROUNDS sets how often each candidate runs; when VENTLOCK_BENCH_LONG is 0, what takes
/// seconds runs once and what takes minutes is left out. Ends with 1 when a candidate's result is wrong,
/// whatever time it took.
int main(int count, char** arguments) {
    using namespace ventlock::bench;
    try {
        const Starter programs;
        benchmark::Initialize(&count, arguments);
        if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
        const char* const rounds = std::getenv("VENTLOCK_BENCH_ROUNDS");
        const Workplace place;
        Bench bench(place, programs, rounds == nullptr ? 21 : std::atoi(rounds));
        AddUpsertPyx(bench);
        AddRegisterIni(bench);
        AddRegisterDDInstall(bench);
        AddVersion(bench);

        // What the tests' own parts find wrong is to be an error.
        GTEST_FLAG_SET(throw_on_failure, true);
        Databases databases(place);
        AddReadRows(bench, databases);
        AddRegisterDb(bench, databases);

        WindowWorld world(place, programs);
        AddWindowStart(bench, world);
        WineWorld wine(place, world);
        AddWineStart(bench, wine);
        AddKeyPress(bench, world);
        AddWindowWrite(bench, world, databases);

        benchmark::RunSpecifiedBenchmarks();
        return bench.IsWrong() ? 1 : 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
