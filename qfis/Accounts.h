// SPDX-License-Identifier: MIT
// The account of a cycle, for people and for programs.
#pragma once

#include <ostream>

#include "explain/Evaluation.h"

namespace Quorvane::Qfis {

void WriteAccount(std::ostream& out, const System::FuzzySystem& system,
                  const Explain::Evaluation& evaluation);

void WriteAccountAsJson(std::ostream& out, const System::FuzzySystem& system,
                        const Explain::Evaluation& evaluation);

/// The share of an output that a rule has.
inline double ShareOf(const Explain::OutputState& output,
                      const Explain::Contribution& contribution) {
    return contribution.Strength / output.Sum.Denominator;
}

} // namespace Quorvane::Qfis
