// SPDX-License-Identifier: MIT
// The outputs of a system over a regular grid, and interpolation between its points.
#include "code/LookupTable.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Quorvane::Code {
namespace {

constexpr std::size_t MostInputs = 8;
constexpr std::size_t MostNumbers = 1'000'000;

/// A sequence of shares from 0 to below 1 that is the same in every run (SplitMix64).
class Shares {
  public:
    double Next() {
        state_ += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        constexpr double Unit = 0x1p-53;
        return static_cast<double>((mixed ^ (mixed >> 31)) >> 11) * Unit;
    }

  private:
    std::uint64_t state_ = 1;
};

/// Sums up the errors at points.
class ErrorCount {
  public:
    ErrorCount(const LookupTable& table, const CompiledSystem& system)
        : table_(table), system_(system), exact_(system.Outputs.size()),
          interpolated_(system.Outputs.size()) {
        error_.LargestOf.resize(system.Outputs.size());
        error_.MeanOf.resize(system.Outputs.size());
    }

    void Add(const std::vector<double>& inputs) {
        if (!Run(system_, inputs, exact_)) {
            return;
        }
        table_.Interpolate(inputs, interpolated_);
        ++error_.Points;
        for (std::uint32_t output = 0; output < exact_.size(); ++output) {
            const double by = std::abs(exact_[output] - interpolated_[output]);
            error_.MeanOf[output] += by;
            error_.LargestOf[output] = std::max(error_.LargestOf[output], by);
            if (by > error_.Largest) {
                error_.Largest = by;
                error_.Output = output;
                error_.Inputs = inputs;
            }
        }
    }

    TableError Total() {
        for (double& mean : error_.MeanOf) {
            mean /= static_cast<double>(std::max<std::size_t>(error_.Points, 1));
        }
        return error_;
    }

  private:
    const LookupTable& table_;
    const CompiledSystem& system_;
    std::vector<double> exact_;
    std::vector<double> interpolated_;
    TableError error_;
};

/// A number between two others, from 0 for the first to 1 for the second.
double Between(double first, double second, double share) {
    return first * (1 - share) + second * share;
}

} // namespace

LookupTable::LookupTable(const CompiledSystem& system, std::size_t divisions)
    : system_(system), divisions_(divisions) {
    RequireRoom();
    Fill();
}

void LookupTable::RequireRoom() const {
    if (divisions_ == 0) {
        throw CodeError("a table needs at least one division");
    }
    if (system_.Inputs.empty() || system_.Inputs.size() > MostInputs) {
        throw CodeError("a table is for 1 to " + std::to_string(MostInputs) + " inputs, not for " +
                        std::to_string(system_.Inputs.size()));
    }
    std::size_t numbers = system_.Outputs.size();
    for (const CompiledInput& input : system_.Inputs) {
        if (!(input.Lower < input.Upper) || !std::isfinite(input.Upper - input.Lower)) {
            throw CodeError("a table needs inputs whose lower bound is below the upper one");
        }
        if (divisions_ >= MostNumbers || numbers * (divisions_ + 1) > MostNumbers) {
            throw CodeError("the table would have more than " + std::to_string(MostNumbers) +
                            " numbers; take fewer divisions");
        }
        numbers *= divisions_ + 1;
    }
}

/// The last value is the bound itself, whatever rounding does to the steps.
double LookupTable::GridValue(std::size_t input, std::size_t index) const {
    const auto& [name, lower, upper] = system_.Inputs[input];
    const double step = (upper - lower) / static_cast<double>(divisions_);
    return index == divisions_ ? upper : lower + static_cast<double>(index) * step;
}

void LookupTable::Fill() {
    const std::size_t inputs = system_.Inputs.size();
    std::vector<std::size_t> place(inputs);
    std::vector<double> point(inputs);
    std::vector<double> outputs(system_.Outputs.size());
    for (bool isOver = false; !isOver;) {
        for (std::size_t input = 0; input < inputs; ++input) {
            point[input] = GridValue(input, place[input]);
        }
        if (!Run(system_, point, outputs)) {
            throw CodeError("an output is beyond the range of a double at a point of the table");
        }
        numbers_.insert(numbers_.end(), outputs.begin(), outputs.end());
        std::size_t input = inputs;
        while (input > 0 && ++place[input - 1] > divisions_) {
            place[--input] = 0;
        }
        isOver = input == 0;
    }
}

void LookupTable::Interpolate(std::span<const double> inputs, std::span<double> outputs) const {
    std::vector<double> fractions(inputs.size());
    std::size_t first = 0;
    for (std::size_t input = 0; input < inputs.size(); ++input) {
        const auto& [name, lower, upper] = system_.Inputs[input];
        // Written so that what is not a number becomes the lower bound.
        const double inside = inputs[input] > lower ? std::min(inputs[input], upper) : lower;
        const double position =
            (inside - lower) / (upper - lower) * static_cast<double>(divisions_);
        const std::size_t cell = std::min(static_cast<std::size_t>(position), divisions_ - 1);
        fractions[input] = position - static_cast<double>(cell);
        first = first * (divisions_ + 1) + cell;
    }
    std::ranges::fill(outputs, 0);
    const std::size_t corners = std::size_t{1} << inputs.size();
    for (std::size_t corner = 0; corner < corners; ++corner) {
        double weight = 1;
        std::size_t offset = 0;
        for (std::size_t input = 0; input < inputs.size(); ++input) {
            const bool isUpper = (corner >> input & 1) != 0;
            weight *= isUpper ? fractions[input] : 1 - fractions[input];
            offset = offset * (divisions_ + 1) + (isUpper ? 1 : 0);
        }
        for (std::size_t output = 0; output < outputs.size(); ++output) {
            outputs[output] += weight * numbers_[(first + offset) * outputs.size() + output];
        }
    }
}

TableError LookupTable::Measure() const {
    constexpr std::size_t MostMiddles = 20'000;
    constexpr std::size_t RandomPoints = 20'000;
    ErrorCount count(*this, system_);
    Shares shares;
    const std::size_t inputs = system_.Inputs.size();
    std::size_t cells = 1;
    for (std::size_t input = 0; input < inputs; ++input) {
        cells = std::min(cells * divisions_, MostMiddles + 1);
    }
    std::vector<double> point(inputs);
    const std::size_t middles = std::min(cells, MostMiddles);
    for (std::size_t i = 0; i < middles + RandomPoints; ++i) {
        std::size_t rest = i;
        for (std::size_t input = 0; input < inputs; ++input) {
            const double share = shares.Next();
            const auto& [name, lower, upper] = system_.Inputs[input];
            const std::size_t cell =
                cells <= MostMiddles
                    ? rest % divisions_
                    : static_cast<std::size_t>(share * static_cast<double>(divisions_));
            rest /= divisions_;
            point[input] = i < middles
                               ? Between(GridValue(input, cell), GridValue(input, cell + 1), 0.5)
                               : Between(lower, upper, share);
        }
        count.Add(point);
    }
    return count.Total();
}

} // namespace Quorvane::Code
