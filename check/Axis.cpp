// SPDX-License-Identifier: MIT
// The universe of an input, cut into pieces on which nothing changes.
#include "check/Axis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <utility>

namespace Quorvane::Check {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

using Points = std::array<double, 4>;

/// Where the straight lines of a trapezoid begin.
std::array<double, 4> BeginsOf(const Points& points) {
    return {std::nextafter(points[0], Infinity), points[1], std::nextafter(points[2], Infinity),
            points[3]};
}

bool IsFull(const Points& points, double x) {
    return points[1] <= x && x <= points[2];
}

bool IsActive(const Points& points, double x) {
    return IsFull(points, x) || (points[0] < x && x < points[3]);
}

std::vector<Range> Cut(const System::InputVariable& input) {
    if (!(input.Lower <= input.Upper)) {
        return {};
    }
    std::vector<double> begins{input.Lower};
    for (const System::InputTerm& term : input.Terms) {
        for (const double begin : BeginsOf(term.Points)) {
            if (begin > input.Lower && begin <= input.Upper) {
                begins.push_back(begin);
            }
        }
    }
    std::ranges::sort(begins);
    begins.erase(std::unique(begins.begin(), begins.end()), begins.end());
    std::vector<Range> ranges;
    for (std::size_t i = 0; i < begins.size(); ++i) {
        const bool isLast = i + 1 == begins.size();
        ranges.push_back(
            {begins[i], isLast ? input.Upper : std::nextafter(begins[i + 1], -Infinity)});
    }
    return ranges;
}

/// The conditions all of whose terms are marked.
std::vector<std::uint32_t> Holding(const std::vector<Condition>& conditions,
                                   const std::vector<bool>& terms) {
    std::vector<std::uint32_t> holding;
    for (std::uint32_t i = 0; i < conditions.size(); ++i) {
        if (std::ranges::all_of(conditions[i].Terms,
                                [&](std::uint32_t term) { return terms[term]; })) {
            holding.push_back(i);
        }
    }
    return holding;
}

/// Neighbouring pieces on which the same of the marked conditions hold.
struct Run {
    std::vector<std::uint32_t> Active;
    Range Values;
};

std::vector<Run> RunsOf(const Axis& axis, const std::vector<bool>& marked) {
    std::vector<Run> runs;
    for (const Piece& piece : axis.Pieces) {
        std::vector<std::uint32_t> active;
        std::ranges::copy_if(piece.Active, std::back_inserter(active),
                             [&](std::uint32_t condition) { return marked[condition]; });
        if (!runs.empty() && runs.back().Active == active) {
            runs.back().Values.Last = piece.Values.Last;
        } else {
            runs.push_back({std::move(active), piece.Values});
        }
    }
    return runs;
}

} // namespace

Axis MakeAxis(const System::InputVariable& input, std::vector<Condition> conditions) {
    Axis axis{input.Lower, input.Upper, std::move(conditions), {}};
    std::vector<bool> active(input.Terms.size());
    std::vector<bool> full(input.Terms.size());
    for (const Range& range : Cut(input)) {
        for (std::size_t term = 0; term < input.Terms.size(); ++term) {
            active[term] = IsActive(input.Terms[term].Points, range.First);
            full[term] = IsFull(input.Terms[term].Points, range.First);
        }
        axis.Pieces.push_back(
            {range, Holding(axis.Conditions, active), Holding(axis.Conditions, full)});
    }
    return axis;
}

std::vector<Condition> OneForEachTerm(const System::InputVariable& input) {
    std::vector<Condition> conditions;
    for (std::uint32_t term = 0; term < input.Terms.size(); ++term) {
        conditions.push_back({{term}});
    }
    return conditions;
}

double ShareOf(const Axis& axis, const Range& range) {
    // Halves, as the width of a universe can be beyond the largest Double.
    const double whole = axis.Upper / 2 - axis.Lower / 2;
    return whole > 0 ? (range.Last / 2 - range.First / 2) / whole : 1;
}

double MiddleOf(const Range& range) {
    if (range.Last < range.First) {
        return range.First; // Bounds that are not in order: every number is outside.
    }
    const double middle = std::clamp(range.First / 2 + range.Last / 2, range.First, range.Last);
    // With three digits more than the width needs, where there is such a number.
    const double digits = 3 - std::floor(std::log10(range.Last / 2 - range.First / 2));
    const double unit = std::pow(10, std::abs(digits));
    const double rounded =
        digits > 0 ? std::round(middle * unit) / unit : std::round(middle / unit) * unit;
    return range.First <= rounded && rounded <= range.Last ? rounded : middle;
}

std::vector<ActiveClass> ClassesOf(const Axis& axis, const std::vector<bool>& marked) {
    std::map<std::vector<std::uint32_t>, ActiveClass> classes;
    for (const Run& run : RunsOf(axis, marked)) {
        const double share = ShareOf(axis, run.Values);
        ActiveClass& found =
            classes.try_emplace(run.Active, ActiveClass{run.Active, run.Values}).first->second;
        ++found.Ranges;
        found.Share += share;
        if (share > ShareOf(axis, found.Widest)) {
            found.Widest = run.Values;
        }
    }
    std::vector<ActiveClass> sorted;
    sorted.reserve(classes.size());
    for (auto& [active, found] : classes) {
        sorted.push_back(std::move(found));
    }
    std::ranges::stable_sort(sorted, {},
                             [](const ActiveClass& each) { return each.Active.size(); });
    return sorted;
}

bool IsSubset(std::span<const std::uint32_t> first, std::span<const std::uint32_t> second) {
    return std::ranges::includes(second, first);
}

} // namespace Quorvane::Check
