// SPDX-License-Identifier: MIT
// Times one inference cycle: engines x workloads x streams.
#include "bench/Benchmarks.h"
#include "bench/Cycles.h"

namespace Quorvane::Bench {

void RegisterCycleBenchmarks() {
    constexpr std::pair<Change, const char*> Streams[] = {
        {Change::All, "all"}, {Change::One, "one"}, {Change::Nothing, "nothing"}};
    for (const Workload& workload : Workloads()) {
        for (const auto& [change, stream] : Streams) {
            const auto name = [&workload, stream](const char* engine) {
                return CycleName(workload.Name, stream, engine);
            };
            RegisterCycles<Engine::Product>(name("product"), workload, change);
            RegisterCycles<Engine::Dense>(name("dense"), workload, change);
            RegisterCycles<Engine::Reference>(name("reference"), workload, change);
        }
    }
}

} // namespace Quorvane::Bench
