// SPDX-License-Identifier: MIT
// The groups of benchmarks, and the names by which the report finds their times.
#pragma once

#include <map>
#include <string>

namespace Quorvane::Bench {

/// The median of the real time of one iteration, in nanoseconds, by the name of the benchmark.
using Medians = std::map<std::string, double>;

inline std::string CycleName(const std::string& workload, const std::string& stream,
                             const std::string& engine) {
    return "cycle/" + workload + '/' + stream + '/' + engine;
}

void RegisterCycleBenchmarks();
void PrintCycleTable(const Medians& medians);

/// For the plot of how cost grows: "growth/" what grows, "/" its size, and "/all" or "/one" for the
/// inputs that change, or "/dense".
void RegisterGrowthBenchmarks();

void RegisterPreparationBenchmarks();
void PrintPreparationTable(const Medians& medians);

void RegisterNumberBenchmarks();
void PrintNumberTable(const Medians& medians);

void RegisterBatchBenchmarks();
void PrintBatchTable(const Medians& medians);

/// Calls through COM; on Windows alone.
void RegisterComBenchmarks();
void PrintComTable(const Medians& medians);

/// Windows; on Windows alone.
void RegisterFaceBenchmarks();
void PrintFaceTable(const Medians& medians);

} // namespace Quorvane::Bench
