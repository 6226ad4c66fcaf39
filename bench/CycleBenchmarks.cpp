// SPDX-License-Identifier: MIT
// Times one inference cycle: engines x workloads x streams.
#include <benchmark/benchmark.h>

#include "bench/Benchmarks.h"
#include "bench/Rig.h"

namespace Quorvane::Bench {
namespace {

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

template <Engine engine>
void Register(const Workload& workload, Change change, const std::string& stream,
              const std::string& name) {
    // Real time: that of the processor comes in steps of many milliseconds under Wine.
    benchmark::RegisterBenchmark(
        CycleName(workload.Name, stream, name).c_str(),
        [&workload, change](benchmark::State& run) { RunCycles<engine>(run, workload, change); })
        ->UseRealTime();
}

} // namespace

void RegisterCycleBenchmarks() {
    constexpr std::pair<Change, const char*> Streams[] = {
        {Change::All, "all"}, {Change::One, "one"}, {Change::Nothing, "nothing"}};
    for (const Workload& workload : Workloads()) {
        for (const auto& [change, stream] : Streams) {
            Register<Engine::Product>(workload, change, stream, "product");
            Register<Engine::Dense>(workload, change, stream, "dense");
            Register<Engine::Reference>(workload, change, stream, "reference");
        }
    }
}

} // namespace Quorvane::Bench
