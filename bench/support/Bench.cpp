#include "support/Bench.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace ventlock::bench {
namespace {

constexpr int kSlowRounds = 5;

bool IsOurs(const Candidate& candidate) {
    return candidate.name == "ventlock" || candidate.name == "limit";
}

}  // namespace

void Bench::Add(const std::string& work, const std::string& size, const Candidate& candidate) {
    const auto round = [this, work, size, candidate](benchmark::State& state) {
        for ([[maybe_unused]] auto pass : state) {
            try {
                place_.EmptyTargets();
                if (candidate.prepare) candidate.prepare();
                const Usage usage = candidate.run();
                state.SetIterationTime(usage.seconds);
                state.counters["user"] = usage.userSeconds;
                state.counters["system"] = usage.systemSeconds;
                state.counters["peak_kib"] = static_cast<double>(usage.peakKiB);
                if (usage.idleKiB > 0) state.counters["idle_kib"] = static_cast<double>(usage.idleKiB);
                if (!candidate.check) continue;
                const Outcome outcome = candidate.check();
                state.counters["has_entry"] = outcome.hasEntry ? 1 : 0;
                state.counters["changed_bytes"] = static_cast<double>(outcome.changedBytes);
                if (!outcome.hasEntry && !candidate.mayFail)
                    throw std::runtime_error("the entry is not there");
                if (outcome.changedBytes > 0 && IsOurs(candidate)) {
                    throw std::runtime_error(std::to_string(outcome.changedBytes) +
                                             " untouched bytes changed");
                }
            } catch (const std::exception& error) {
                if (!candidate.mayFail) {
                    isWrong_ = true;
                    std::cerr << work << '/' << size << '/' << candidate.name << ": " << error.what() << '\n';
                }
                state.SkipWithError(error.what());
                break;
            }
        }
    };
    int rounds = candidate.isSlow ? std::min(rounds_, kSlowRounds) : rounds_;
    if (candidate.mostRounds > 0) rounds = std::min(rounds, candidate.mostRounds);
    benchmark::RegisterBenchmark((work + "/" + size + "/" + candidate.name).c_str(), round)
        ->Iterations(1)
        ->Repetitions(rounds)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

}  // namespace ventlock::bench
