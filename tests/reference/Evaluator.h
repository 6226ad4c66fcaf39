// SPDX-License-Identifier: MIT
// Fuzzy inference written down plainly: what the engine has to compute, step by step.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "explain/Arithmetic.h"
#include "shared/StringKeyedDictionary.h"
#include "shared/Value.h"

namespace Quorvane::Reference {

/// A dictionary whose keys compare exactly, as all tables of the evaluator do.
template <class Item>
class Table : public StringKeyedDictionary<Item> {
  public:
    Table() : StringKeyedDictionary<Item>(KeyComparison::Exact) {}
};

/// Everything that a rule base is compiled to. Inputs and outputs appear only if a rule names them:
/// inputs as soon as any rule does, outputs only as rule 0 does.
struct Tables {
    /// The number of rules minus 1.
    std::ptrdiff_t LastRule = -1;
    std::vector<double> RuleWeights;
    /// Rule i: input -> term, which may be "[NONE]".
    std::vector<Table<Text>> Antecedents;
    /// Rule i: output -> position of the singleton, or the text "[NONE]".
    std::vector<Table<Value>> Consequents;
    /// Input -> term -> degree of membership, for the terms that some antecedent uses.
    Table<Table<double>> UsedTerms;
    /// Input -> the number last fuzzified, or the text "[EMPTY]".
    Table<Value> LastInputs;
    /// Output -> crisp value.
    Table<Value> OutputValues;
    /// Output -> running sums.
    Table<Explain::WeightedSum> Sums;
};

/// A zero-order inference system with product activation and weighted-average outputs. It works on
/// the model of the process (Definition::State()), which it only reads, and holds tables and
/// outputs of its own: it can run beside the engine, over the same model.
///
/// Its arithmetic is that of the explanations, over names, values and edits as a host has them. It
/// is slow on purpose. Every step looks names up in dictionaries and does one thing, every rule is
/// evaluated, and every arithmetic result beyond the range of a Double fails the routine.
class Evaluator {
  public:
    /// Compiles RuleBase into new tables, with the outputs at their defaults. Raises error 82; the
    /// tables of the last successful preparation then stay.
    void PrepareRuleBase();

    /// One cycle: InputValues -> OutputValues. Raises error 83.
    void Infer();

    Tables Prepared;

    /// The text id of the message of the routine that last started, 0 before any has.
    std::int32_t CurrentErrorId = 0;

  private:
    template <class Body>
    auto RunRoutine(std::int32_t messageId, Body body);

    void AddAntecedents(Tables& tables, TextView list) const;
    void AddConsequents(Tables& tables, TextView list, bool isFirstRule);
    Value ConsequentPoint(TextView output, TextView term);

    bool Fuzzify();
    void FuzzifyInput(TextView input, Table<double>& degrees);
    double Membership(TextView input, TextView term, double x, double upper, double lower);

    double Activation(std::size_t rule) const;
    void SetOutput(TextView output);
};

} // namespace Quorvane::Reference
