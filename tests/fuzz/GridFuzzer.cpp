// SPDX-License-Identifier: MIT
// The grid walk beside a plain recursion over the same axes.
#include <cmath>
#include <string>
#include <vector>

#include "engine/GridWalk.h"
#include "shared/NumberText.h"
#include "tests/fuzz/Check.h"
#include "tests/reference/Random.h"

namespace Quorvane::Fuzz {
namespace {

using Axes = std::vector<RunTime::GridAxis>;

/// What a visitor is told, one entry for each call.
struct Call {
    bool IsPoint;
    std::size_t Axis;
    std::uint64_t Value;
    std::string Point;

    friend bool operator==(const Call&, const Call&) = default;
};

/// More calls than this end a walk.
constexpr std::size_t MostCalls = 600;

class Recorder final : public RunTime::GridVisitor {
  public:
    void SetInput(std::size_t axis, double value) override {
        Note({false, axis, std::bit_cast<std::uint64_t>(value), {}});
    }
    void VisitPoint(std::string_view point) override { Note({true, 0, 0, std::string(point)}); }

    std::vector<Call> Calls;

  private:
    void Note(Call call) {
        // As a visitor does that cannot go on.
        if (Calls.size() == MostCalls) {
            throw FisError(RuntimeError::InvalidCall);
        }
        Calls.push_back(std::move(call));
    }
};

/// The walk as it is written down: level by level.
void WalkPlainly(const Axes& axes, std::int32_t divisions, std::size_t level,
                 const std::string& prefix, Recorder& recorder) {
    const auto [lower, upper] = axes[level];
    const double step = (upper - lower) / divisions;
    for (std::int64_t i = 0; i <= divisions; ++i) {
        const double value = i == divisions ? upper : lower + static_cast<double>(i) * step;
        recorder.SetInput(level, value);
        const std::string point = prefix + std::string(NumberCharacters(value).View());
        if (level + 1 == axes.size()) {
            recorder.VisitPoint(point);
        } else {
            WalkPlainly(axes, divisions, level + 1, point + ',', recorder);
        }
    }
}

void WalkPlainly(const Axes& axes, std::int32_t divisions, Recorder& recorder) {
    if (axes.empty()) {
        throw FisError(RuntimeError::SubscriptOutOfRange);
    }
    for (const auto& [lower, upper] : axes) {
        if (!std::isfinite((upper - lower) / divisions)) {
            throw FisError(RuntimeError::Overflow);
        }
    }
    WalkPlainly(axes, divisions, 0, {}, recorder);
}

void Run(std::span<const std::uint8_t> input) {
    Reference::SpelledChoices choices(input);
    // Some have more points than texts are kept, some so many that a count of 32 bits is full.
    constexpr std::int32_t Divisions[] = {1, 2, 3, 10, 300, 40000, 0x7FFFFFFF};
    const std::int32_t divisions = Divisions[choices.Below(std::size(Divisions))];
    Axes axes(choices.Below(6));
    for (auto& [lower, upper] : axes) {
        lower = std::bit_cast<double>(choices.Bits());
        upper = choices.Percent(50) ? lower + choices.Below(100)
                                    : std::bit_cast<double>(choices.Bits());
    }
    Recorder plain;
    Recorder actual;
    const auto expected = Raised([&] { WalkPlainly(axes, divisions, plain); });
    Check(Raised([&] { RunTime::WalkGrid(axes, divisions, actual); }) == expected, "the error");
    Check(actual.Calls == plain.Calls, "the points");
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run({data, size});
    return 0;
}
