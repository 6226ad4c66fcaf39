// SPDX-License-Identifier: MIT
// Times batches: the control's, and the plain way to write the same files.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <set>
#include <stdexcept>

#include "bench/BatchWriters.h"
#include "bench/Benchmarks.h"
#include "bench/Rig.h"
#ifdef _WIN32
#include "bench/ControlHost.h"
#endif

namespace Quorvane::Bench {
namespace {

/// Writes the files of a batch into a folder.
using Writer = std::function<void(const BatchCase&, const std::filesystem::path&)>;

void WritePlain(const BatchCase& batch, const std::filesystem::path& folder) {
    WritePlainBatch(Rig::Of(Workloads()[batch.Workload]).Dense(), folder, batch.Divisions);
}

void WriteCore(const BatchCase& batch, const std::filesystem::path& folder) {
    WriteCoreBatch(folder, batch.Divisions);
}

#ifdef _WIN32
void WriteSilently(const BatchCase& batch, const std::filesystem::path& folder) {
    ControlHost::Of(Workloads()[batch.Workload]).RunBatch(folder, batch.Divisions);
}

void WriteWithSink(const BatchCase& batch, const std::filesystem::path& folder) {
    ControlHost& host = ControlHost::Of(Workloads()[batch.Workload]);
    const ConnectedSink sink(host.Control());
    host.RunBatch(folder, batch.Divisions);
    if (sink.Count() != batch.Points) {
        throw std::runtime_error("the event did not come once for each point");
    }
}
#endif

std::string Name(const BatchCase& batch, const std::string& writer) {
    return "batch/" + Workloads()[batch.Workload].Name + '/' + writer;
}

/// Throws std::runtime_error where the files are not those of the plain writer, byte for byte.
void RequireSameFiles(const BatchCase& batch, const Writer& writer) {
    const BatchFolder plain;
    const BatchFolder other;
    WritePlain(batch, plain.Path());
    writer(batch, other.Path());
    if (plain.Bytes().empty() || plain.Bytes() != other.Bytes()) {
        throw std::runtime_error("the files of a batch differ from those of the plain writer");
    }
}

void RunBatches(benchmark::State& run, const BatchCase& batch, const std::string& name,
                const Writer& writer) {
    // The system is installed before the clock runs.
    Rig::Of(Workloads()[batch.Workload]);
    static std::set<std::string> compared;
    if (compared.insert(name).second) {
        RequireSameFiles(batch, writer);
    }
    const BatchFolder folder;
    writer(batch, folder.Path());
    for (auto _ : run) {
        writer(batch, folder.Path());
    }
    run.SetItemsProcessed(run.iterations() * static_cast<std::int64_t>(batch.Points));
}

void Register(const BatchCase& batch, const std::string& writerName, const Writer& writer) {
    const std::string name = Name(batch, writerName);
    benchmark::RegisterBenchmark(name.c_str(), [&batch, name, writer](benchmark::State& run) {
        RunBatches(run, batch, name, writer);
    });
}

} // namespace

void RegisterBatchBenchmarks() {
    for (const BatchCase& batch : BatchCases()) {
        Register(batch, "plain", WritePlain);
        Register(batch, "core", WriteCore);
#ifdef _WIN32
        Register(batch, "control", WriteSilently);
        Register(batch, "sink", WriteWithSink);
#endif
    }
}

void PrintBatchTable(const Medians& medians) {
    struct Limits {
        const char* Writer;
        double AtLeast[2];
    };
    constexpr Limits writers[] = {{"core", {3, 15}}, {"control", {3, 15}}, {"sink", {2, 8}}};
    std::printf("Batches, in millions of points a second and times faster than the plain writer; "
                "limits in brackets\n");
    for (std::size_t i = 0; i < BatchCases().size(); ++i) {
        const BatchCase& batch = BatchCases()[i];
        const auto plain = medians.find(Name(batch, "plain"));
        if (plain == medians.end()) {
            continue;
        }
        const auto speed = [points = batch.Points](double nanoseconds) {
            return 1000 * static_cast<double>(points) / nanoseconds;
        };
        std::printf("%s, %zu points: plain %.2f", Workloads()[batch.Workload].Name.c_str(),
                    batch.Points, speed(plain->second));
        for (const Limits& writer : writers) {
            if (const auto found = medians.find(Name(batch, writer.Writer));
                found != medians.end()) {
                std::printf("  %s %.2f: %.1fx (at least %.0fx)", writer.Writer,
                            speed(found->second), plain->second / found->second, writer.AtLeast[i]);
            }
        }
        std::printf("\n");
    }
}

} // namespace Quorvane::Bench
