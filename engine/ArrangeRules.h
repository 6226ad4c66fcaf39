// SPDX-License-Identifier: MIT
// Puts rule tables into the form in which they fire fastest; no form changes a sum.
#pragma once

namespace Quorvane::RunTime {

struct RuleTables;

/// Where every rule says something of at most one output, brings the rules of each output together,
/// in their order, and leaves out those that say nothing: the sum of an output takes no notice of
/// the rules of the others.
void GroupByOutput(RuleTables& tables);

/// Fills all rules up to the same number of antecedents, unless that takes much more room.
void EvenOutAntecedents(RuleTables& tables);

/// Whether every rule says something of every output, in the order of the outputs.
bool NamesEveryOutput(const RuleTables& tables);

} // namespace Quorvane::RunTime
