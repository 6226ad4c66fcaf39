// SPDX-License-Identifier: MIT
// Prints the measured ratios, each with its limit beside it.
#include <cstdio>

#include "bench/Benchmarks.h"
#include "bench/Workload.h"

namespace Quorvane::Bench {
namespace {

struct CycleLimits {
    const char* Workload;
    double All;
    double One;
    double Reference;
};

constexpr CycleLimits Limits[] = {
    {"W1", 0.9, 0.75, 17},       {"W2", 0.18, 0.12, 150}, {"W3", 0.035, 0.02, 1100},
    {"W4", 0.005, 0.003, 25000}, {"W5", 0.5, 0.25, 100},
};

} // namespace

void PrintCycleTable(const Medians& medians) {
    std::printf("Ratios of median times; limits in brackets\n");
    for (const CycleLimits& limits : Limits) {
        const auto time = [&](const char* stream, const char* engine) {
            const auto found = medians.find(CycleName(limits.Workload, stream, engine));
            return found == medians.end() ? 0 : found->second;
        };
        if (time("all", "dense") == 0) {
            continue; // left out by a filter
        }
        std::printf("%s dense %.1f ns  all %.1f ns: %.4f (at most %.4g)  one %.1f ns: %.4f (at "
                    "most %.4g)  nothing %.1f  reference %.0fx (at least %.0fx)\n",
                    limits.Workload, time("all", "dense"), time("all", "product"),
                    time("all", "product") / time("all", "dense"), limits.All,
                    time("one", "product"), time("one", "product") / time("one", "dense"),
                    limits.One, time("nothing", "product"),
                    time("all", "reference") / time("all", "product"), limits.Reference);
    }
}

} // namespace Quorvane::Bench
