// SPDX-License-Identifier: MIT
// Times how the cost of a cycle grows with the rules, the inputs and the outputs of a system.
#include "bench/Benchmarks.h"
#include "bench/Cycles.h"

namespace Quorvane::Bench {
namespace {

/// The rules of a sparse system that grows in its inputs or outputs.
constexpr std::uint32_t SparseRules = 1000;

std::string Name(const char* growing, std::uint32_t size) {
    return "growth/" + std::string(growing) + '/' + std::to_string(size);
}

std::vector<Workload> MakeWorkloads() {
    std::vector<Workload> workloads;
    for (const std::uint32_t terms : {2, 3, 4, 5, 7, 10, 14, 20, 32}) {
        const std::uint32_t rules = terms * terms * terms;
        workloads.push_back(MakeGrid(Name("rules", rules), 3, terms, 1, rules));
    }
    for (const std::uint32_t inputs : {4, 8, 16, 32, 64}) {
        workloads.push_back(MakeSparse(Name("inputs", inputs), inputs, 4, SparseRules));
    }
    for (const std::uint32_t outputs : {1, 2, 4, 8, 16}) {
        workloads.push_back(MakeSparse(Name("outputs", outputs), 32, outputs, SparseRules));
    }
    return workloads;
}

} // namespace

void RegisterGrowthBenchmarks() {
    static const std::vector<Workload> workloads = MakeWorkloads();
    for (const Workload& workload : workloads) {
        RegisterCycles<Engine::Product>(workload.Name + "/all", workload, Change::All);
        RegisterCycles<Engine::Product>(workload.Name + "/one", workload, Change::One);
        RegisterCycles<Engine::Dense>(workload.Name + "/dense", workload, Change::All);
    }
}

} // namespace Quorvane::Bench
