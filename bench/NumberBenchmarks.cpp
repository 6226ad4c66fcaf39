// SPDX-License-Identifier: MIT
// Times the text of a number beside the library function that writes the same.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <vector>

#include "bench/Benchmarks.h"
#include "shared/NumberText.h"
#include "tests/reference/Random.h"

namespace Quorvane::Bench {
namespace {

constexpr std::size_t NumberCount = 4096;

/// Numbers as batches write them: of few digits, as on a grid, and of all 15, as results are.
std::vector<double> MakeNumbers() {
    Reference::Random random(1);
    std::vector<double> numbers;
    while (numbers.size() < NumberCount) {
        numbers.push_back(random.Below(1000) / 8.0);
        numbers.push_back(static_cast<double>(random.Bits() >> 11) * 0x1p-53 * 100);
    }
    return numbers;
}

/// Calls write with one number after the other.
template <class Write>
void Run(benchmark::State& run, Write write) {
    const std::vector<double> numbers = MakeNumbers();
    std::size_t i = 0;
    for (auto _ : run) {
        write(numbers[i]);
        i = (i + 1) % NumberCount;
    }
}

void RunProduct(benchmark::State& run) {
    Run(run, [](double number) {
        const NumberCharacters text(number);
        benchmark::DoNotOptimize(text.View().data());
    });
}

void RunPrintf(benchmark::State& run) {
    Run(run, [](double number) {
        std::array<char, 32> text;
        std::snprintf(text.data(), text.size(), "%.15G", number);
        benchmark::DoNotOptimize(text.data());
    });
}

} // namespace

void RegisterNumberBenchmarks() {
    benchmark::RegisterBenchmark("number/product", RunProduct)->UseRealTime();
    benchmark::RegisterBenchmark("number/snprintf", RunPrintf)->UseRealTime();
}

void PrintNumberTable(const Medians& medians) {
    const auto product = medians.find("number/product");
    const auto printf = medians.find("number/snprintf");
    if (product != medians.end() && printf != medians.end()) {
        std::printf("Text of a number: %.0f ns, snprintf %.0f ns: %.1f times faster\n",
                    product->second, printf->second, printf->second / product->second);
    }
}

} // namespace Quorvane::Bench
