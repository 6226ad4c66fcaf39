// SPDX-License-Identifier: MIT
// The search for the highest value of an output.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "check/RuleTable.h"

namespace Quorvane::Check {

/// The highest value found, and where.
struct Extreme {
    std::optional<double> Value;
    std::vector<double> Point;
    /// Whether there is none higher.
    bool IsComplete = true;
};

/// Finds the highest value of an output, or the highest of its negative.
///
/// On a cell, where each input stays on one piece of its axis, numerator and denominator are linear
/// in each input by itself, and so their quotient rises or falls in each: the highest value of all
/// is at a corner of a cell. The search goes through the corners input by input and leaves a branch
/// as soon as no rule that is left concludes more than has been found.
class RangeSearch {
  public:
    /// Looks for the highest value of sign x output. All weights of its rules have to be positive.
    RangeSearch(const RuleTable& rules, std::size_t output, double sign, std::size_t steps);

    /// Starts from a value that is known; stops at one that is as high as the limit.
    Extreme Run(std::span<const std::uint32_t> firing, Extreme known, double limit);

  private:
    struct Candidate {
        std::uint32_t Rule;
        double Strength;
    };
    /// A value of an input, with the degrees of its conditions.
    struct Corner {
        double Value;
        std::vector<double> Degrees;
    };

    void MakeCorners(std::size_t input);
    Corner MakeCorner(std::size_t input, const Piece& piece, double x) const;
    Corner CornerAt(std::size_t input, const Piece& piece, double x) const;
    void Search(const std::vector<Candidate>& candidates, std::size_t depth);
    static void ScaleUp(std::vector<Candidate>& candidates);
    bool CanRise(const std::vector<Candidate>& candidates) const;
    void Evaluate(const std::vector<Candidate>& candidates);
    double PositionOf(std::uint32_t rule) const {
        return sign_ * *rules_.PositionOf(rule, output_);
    }

    const RuleTable& rules_;
    std::size_t output_;
    double sign_;
    std::size_t steps_;
    double limit_ = 0;
    std::vector<std::vector<Corner>> corners_;
    std::vector<std::vector<Candidate>> levels_;
    std::vector<double> point_;
    Extreme best_;
};

} // namespace Quorvane::Check
