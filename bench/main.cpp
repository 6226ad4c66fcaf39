// SPDX-License-Identifier: MIT
// Runs the benchmarks and prints the ratios that matter.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/Benchmarks.h"

namespace {

/// Shows progress as the library does, and keeps the medians.
class MedianReporter final : public benchmark::ConsoleReporter {
  public:
    MedianReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                Medians[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    Quorvane::Bench::Medians Medians;
};

} // namespace

int main(int argc, char** argv) {
    // Repetitions of all benchmarks are mixed, so that a disturbance of the machine does not hit
    // one engine alone.
    std::vector<const char*> arguments = {
        argv[0], "--benchmark_repetitions=9", "--benchmark_min_time=0.03",
        "--benchmark_report_aggregates_only=true", "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, const_cast<char**>(arguments.data()));
    if (benchmark::ReportUnrecognizedArguments(count, const_cast<char**>(arguments.data()))) {
        return 1;
    }
    Quorvane::Bench::RegisterCycleBenchmarks();
    Quorvane::Bench::RegisterGrowthBenchmarks();
    Quorvane::Bench::RegisterPreparationBenchmarks();
    Quorvane::Bench::RegisterNumberBenchmarks();
    Quorvane::Bench::RegisterBatchBenchmarks();
#ifdef _WIN32
    Quorvane::Bench::RegisterComBenchmarks();
    Quorvane::Bench::RegisterFaceBenchmarks();
#endif
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    Quorvane::Bench::PrintCycleTable(reporter.Medians);
    Quorvane::Bench::PrintPreparationTable(reporter.Medians);
    Quorvane::Bench::PrintNumberTable(reporter.Medians);
    Quorvane::Bench::PrintBatchTable(reporter.Medians);
#ifdef _WIN32
    Quorvane::Bench::PrintComTable(reporter.Medians);
    Quorvane::Bench::PrintFaceTable(reporter.Medians);
#endif
    return 0;
}
