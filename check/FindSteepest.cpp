// SPDX-License-Identifier: MIT
// Where outputs change fastest.
#include "check/FindSteepest.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "check/Draw.h"

namespace Quorvane::Check {
namespace {

/// The step, as a share of the input's universe.
constexpr double Step = 0.01;

/// Shares of an output's universe below which a change between neighbouring values is no jump.
constexpr double JumpTolerance = 1e-6;

/// The largest change of an output found so far.
struct Change {
    double By = 0;
    std::uint32_t Input = 0;
    std::vector<double> From;
};

/// Goes from sample to sample. Around each it moves one input after the other: over a step that
/// begins or ends where a piece does or lies somewhere, and from one piece to the next.
class SlopeSampler {
  public:
    SlopeSampler(const RuleTable& rules, Response& response)
        : rules_(rules), response_(response), Steepest(rules.Outputs.size()),
          Jumps(rules.Outputs.size()), point_(rules.Inputs()) {
        for (const Axis& axis : rules.Axes) {
            begins_.push_back(BeginsOfSteps(axis));
        }
    }

    void Run(std::size_t samples) {
        for (std::size_t sample = 0; sample < samples; ++sample) {
            for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
                point_[input] = DrawOn(rules_.Axes[input]);
            }
            for (std::size_t input = 0; input < rules_.Inputs(); ++input) {
                TryStep(input, sample);
                TryJump(input, sample);
            }
        }
    }

  private:
    const RuleTable& rules_;
    Response& response_;

  public:
    /// For each output.
    std::vector<Change> Steepest;
    std::vector<Change> Jumps;

  private:
    static double StepOf(const Axis& axis) { return (axis.Upper / 2 - axis.Lower / 2) * 2 * Step; }

    static std::vector<double> BeginsOfSteps(const Axis& axis) {
        std::vector<double> begins;
        const double step = StepOf(axis);
        for (const Piece& piece : axis.Pieces) {
            begins.insert(begins.end(), {piece.Values.First, piece.Values.First - step,
                                         piece.Values.Last, piece.Values.Last - step});
        }
        std::erase_if(begins,
                      [&](double x) { return x < axis.Lower || !(x + step <= axis.Upper); });
        std::ranges::sort(begins);
        begins.erase(std::unique(begins.begin(), begins.end()), begins.end());
        return begins;
    }

    /// At an end of a piece or anywhere.
    double DrawOn(const Axis& axis) {
        if (axis.Pieces.empty()) {
            return axis.Lower;
        }
        const Range& range = axis.Pieces[draw_.Below(axis.Pieces.size())].Values;
        switch (draw_.Below(4)) {
        case 0:
            return range.First;
        case 1:
            return range.Last;
        default:
            return Between(axis);
        }
    }

    double Between(const Axis& axis) {
        const double share = draw_.Share();
        return std::clamp(axis.Lower * (1 - share) + axis.Upper * share, axis.Lower, axis.Upper);
    }

    void TryStep(std::size_t input, std::size_t sample) {
        const Axis& axis = rules_.Axes[input];
        if (begins_[input].empty()) {
            return;
        }
        const double step = StepOf(axis);
        const auto& begins = begins_[input];
        // Every other step begins anywhere.
        const double begin = sample % 2 == 0 ? begins[sample / 2 % begins.size()]
                                             : std::max(axis.Lower, Between(axis) - step);
        Compare(input, begin, std::min(begin + step, axis.Upper), Steepest);
    }

    void TryJump(std::size_t input, std::size_t sample) {
        const auto& pieces = rules_.Axes[input].Pieces;
        if (pieces.size() < 2) {
            return;
        }
        const std::size_t piece = sample % (pieces.size() - 1);
        Compare(input, pieces[piece].Values.Last, pieces[piece + 1].Values.First, Jumps);
    }

    /// Notes how the outputs change between two values of an input.
    void Compare(std::size_t input, double from, double to, std::vector<Change>& changes) {
        const double former = point_[input];
        point_[input] = to;
        const std::vector<std::optional<double>> after = response_.At(point_);
        point_[input] = from;
        const std::vector<std::optional<double>>& before = response_.At(point_);
        for (std::size_t output = 0; output < changes.size(); ++output) {
            if (!before[output] || !after[output]) {
                continue;
            }
            const double by = *after[output] - *before[output];
            if (std::abs(by) > std::abs(changes[output].By)) {
                changes[output] = {by, static_cast<std::uint32_t>(input), point_};
            }
        }
        point_[input] = former;
    }

    std::vector<std::vector<double>> begins_;
    std::vector<double> point_;
    Draw draw_;
};

Finding FindingOf(FindingKind kind, const Change& change, std::uint32_t output, double width) {
    Finding finding;
    finding.Kind = kind;
    finding.Level = Severity::Note;
    finding.Input = change.Input;
    finding.Output = output;
    finding.Example = change.From;
    finding.Figure = change.By;
    finding.Share = width > 0 ? std::abs(change.By) / width : 0;
    finding.IsExact = false;
    return finding;
}

/// Fewer samples for large systems: one takes the time of so many rules and inputs.
std::size_t AffordableSamples(const RuleTable& rules, const CheckLimits& limits) {
    constexpr std::size_t MostWords = 100'000'000;
    const std::size_t words =
        (rules.Rules() / 64 + 16) * (rules.Inputs() + 1) * (4 * rules.Inputs() + 1);
    return std::clamp<std::size_t>(MostWords / words, 50,
                                   std::max<std::size_t>(limits.Samples, 50));
}

} // namespace

std::vector<Finding> FindSteepest(const RuleTable& rules, Response& response,
                                  const CheckLimits& limits) {
    SlopeSampler sampler(rules, response);
    sampler.Run(AffordableSamples(rules, limits));
    std::vector<Finding> findings;
    for (std::size_t output = 0; output < rules.Outputs.size(); ++output) {
        if (!rules.Outputs[output].IsSet) {
            continue;
        }
        const std::uint32_t variable = rules.Outputs[output].Variable;
        const auto& bounds = rules.Checked().Outputs[variable];
        const double width = bounds.Upper - bounds.Lower;
        if (const Change& steepest = sampler.Steepest[output]; steepest.By != 0) {
            findings.push_back(FindingOf(FindingKind::Steepest, steepest, variable, width));
        }
        if (const Change& jump = sampler.Jumps[output];
            std::abs(jump.By) > JumpTolerance * std::abs(width)) {
            findings.push_back(FindingOf(FindingKind::Jump, jump, variable, width));
        }
    }
    return findings;
}

} // namespace Quorvane::Check
