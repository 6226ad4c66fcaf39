// SPDX-License-Identifier: MIT
// Times what comes before the first cycle: reading the texts of a system and preparing its rules.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "bench/Benchmarks.h"
#include "bench/Workload.h"
#include "engine/PrepareRuleBase.h"
#include "model/ParseDefinition.h"
#include "shared/Definition.h"

namespace Quorvane::Bench {
namespace {

/// Rules of five inputs with eight terms each; the last are those of W4.
constexpr std::uint32_t RuleCounts[] = {4096, 8192, 16384, 32767};

/// The most that W4 may take, in milliseconds.
constexpr double Limit = 25;

void Parse() {
    Main::ParseDefinition();
}

void ParseAndPrepare() {
    Main::ParseDefinition();
    RunTime::PrepareRuleBase();
}

std::string Name(std::uint32_t ruleCount, const std::string& work) {
    return "prepare/" + std::to_string(ruleCount) + '/' + work;
}

void Run(benchmark::State& run, std::uint32_t ruleCount, void (*work)()) {
    Install(MakeGrid("prepare/" + std::to_string(ruleCount), 5, 8, 1, ruleCount));
    for (auto _ : run) {
        work();
    }
    run.counters["characters"] = static_cast<double>(Definition::State().RulesText.size());
    ForgetInstalled();
}

void Register(std::uint32_t ruleCount, const std::string& name, void (*work)()) {
    benchmark::RegisterBenchmark(Name(ruleCount, name).c_str(), [ruleCount,
                                                                 work](benchmark::State& run) {
        Run(run, ruleCount, work);
    })->UseRealTime();
}

} // namespace

void RegisterPreparationBenchmarks() {
    for (const std::uint32_t ruleCount : RuleCounts) {
        Register(ruleCount, "parse", Parse);
        Register(ruleCount, "prepare", RunTime::PrepareRuleBase);
        Register(ruleCount, "both", ParseAndPrepare);
    }
}

void PrintPreparationTable(const Medians& medians) {
    constexpr double NanosecondsPerMillisecond = 1e6;
    std::printf("From texts to tables, in milliseconds; W4 takes at most %.0f\n", Limit);
    for (const std::uint32_t ruleCount : RuleCounts) {
        const auto time = [&](const char* work) {
            const auto found = medians.find(Name(ruleCount, work));
            return found == medians.end() ? 0 : found->second / NanosecondsPerMillisecond;
        };
        if (time("both") == 0) {
            continue; // left out by a filter
        }
        std::printf("%u rules: parse %.1f  prepare %.1f  both %.1f\n", ruleCount, time("parse"),
                    time("prepare"), time("both"));
    }
}

} // namespace Quorvane::Bench
