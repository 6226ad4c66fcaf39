// SPDX-License-Identifier: MIT
// How cycles of the engines are timed.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "bench/Rig.h"

namespace Quorvane::Bench {

template <Engine engine>
void RunCycles(benchmark::State& run, const Workload& workload, Change change) {
    Rig& rig = Rig::Of(workload);
    const Stream stream = MakeStream(change);
    std::size_t cycle = 0;
    for (auto _ : run) {
        rig.Apply(stream, cycle);
        rig.Infer(engine);
        cycle = (cycle + 1) % Stream::CycleCount;
    }
}

/// Registers a benchmark of one cycle. It keeps the address of the workload.
template <Engine engine>
void RegisterCycles(const std::string& name, const Workload& workload, Change change) {
    // Real time: that of the processor comes in steps of many milliseconds under Wine.
    benchmark::RegisterBenchmark(name.c_str(), [&workload, change](benchmark::State& run) {
        RunCycles<engine>(run, workload, change);
    })->UseRealTime();
}

} // namespace Quorvane::Bench
