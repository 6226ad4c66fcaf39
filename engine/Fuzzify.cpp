// SPDX-License-Identifier: MIT
// From crisp inputs to degrees of membership.
#include "engine/Fuzzify.h"

#include "engine/EngineRoutine.h"
#include "engine/Membership.h"
#include "engine/RulesInUse.h"

namespace Quorvane::RunTime {
namespace {

/// Makes what depends on the degrees of an input follow them when it ends: also where only some of
/// the degrees were set before a term failed.
class DegreeChange {
  public:
    DegreeChange(PreparedRules& rules, std::size_t input) : rules_(rules), input_(input) {}
    DegreeChange(const DegreeChange&) = delete;
    DegreeChange& operator=(const DegreeChange&) = delete;
    // NOLINTNEXTLINE(bugprone-exception-escape): a selector always has a shape
    ~DegreeChange() {
        rules_.Selector.Update(rules_, input_);
        rules_.AreSumsCurrent = false;
    }

  private:
    PreparedRules& rules_;
    std::size_t input_;
};

/// Sets the degrees of an input one after the other. Raises error 80, "Invalid linguistic input
/// variable.", at a term that the model lacks and at a flank wider than the largest Double.
[[gnu::cold, gnu::noinline]] void SetDegreesOneByOne(PreparedRules& rules, const UsedInput& input,
                                                     double x, double upper, double lower) {
    for (std::size_t i = input.FirstTerm; i < input.FirstTerm + input.TermCount; ++i) {
        const LinguisticTerm* const term = rules.BoundTerms[i];
        if (!term) {
            throw EngineError(Message::InvalidInputVariable);
        }
        const double degree = x < lower || x > upper ? 0 : Membership(term->Points, x);
        if (std::isnan(degree)) {
            throw EngineError(Message::InvalidInputVariable);
        }
        rules.Degrees[i] = degree;
    }
}

/// Sets the degrees of an input two at a time.
[[gnu::always_inline]] inline void SetDegreesInPairs(PreparedRules& rules, const UsedInput& input,
                                                     double x, double upper, double lower) {
    const double inside = InUniverse(x, upper, lower);
    const TrapezoidPair* pair = rules.Trapezoids.data() + input.FirstTerm / 2;
    double* degree = rules.Degrees.data() + input.FirstTerm;
    for (const double* const end = degree + input.TermCount; degree < end; degree += 2) {
        const DoublePair degrees = pair->MembershipsOf(DoublePair{inside, inside});
        ++pair;
        degree[0] = degrees[0];
        degree[1] = degrees[1];
    }
}

/// In line, like what it calls: a small system has little more to do in a cycle than this.
[[gnu::always_inline]] inline void SetDegrees(PreparedRules& rules, const UsedInput& input,
                                              std::size_t index, double x, double upper,
                                              double lower) {
    // Every used input has a term, be it "[NONE]", whose degree is not kept.
    NoteRoutine(Message::InvalidInputVariable);
    const DegreeChange change(rules, index);
    if (input.CanBePaired) {
        SetDegreesInPairs(rules, input, x, upper, lower);
    } else {
        SetDegreesOneByOne(rules, input, x, upper, lower);
    }
}

/// Sets the degrees of an input from a value that differs from the one last fuzzified.
template <class Converted>
[[gnu::always_inline]] inline void FuzzifyAnew(PreparedRules& rules, UsedInput& input,
                                               std::size_t index, Converted converted) {
    if (!input.Variable) {
        throw FisError(RuntimeError::MissingKey);
    }
    const double upper = input.Variable->UBound;
    const double lower = input.Variable->LBound;
    // Empty until all degrees are set, so that an input that fails is fuzzified again.
    input.LastInput.reset();
    const double x = converted();
    SetDegrees(rules, input, index, x, upper, lower);
    input.LastInput = x;
}

/// Fuzzifies an input whose value is no number, or is not in a dictionary of the system's own.
/// Reading a host's dictionary, and converting a value of the host, may run code of the host that
/// changes or replaces the dictionary: it is held, and the value is a copy. Out of line, so that
/// cycles that ask nobody need not save the registers for it.
[[gnu::noinline]] void FuzzifyAskingHost(RulesInUse& rules, std::size_t index) {
    rules.Keep();
    const std::shared_ptr<ValueDictionary> values = Definition::State().InputValues;
    UsedInput& input = rules->UsedInputs[index];
    const Value value = Definition::Require(values).Get(input.Name);
    if (!SameTextForm(input.LastInput, value)) {
        rules.Refresh();
        FuzzifyAnew(*rules, input, index, [&] {
            if (IsEmpty(value)) {
                throw FisError(RuntimeError::TypeMismatch);
            }
            const double x = ToNumber(value);
            rules.Refresh();
            return x;
        });
    }
    rules.Refresh();
}

} // namespace

void Fuzzify(RulesInUse& rules) {
    RunRoutine(Message::InvalidInputSignal, [&rules] {
        rules.Refresh();
        PreparedRules& prepared = *rules;
        std::size_t index = 0;
        for (UsedInput& input : prepared.UsedInputs) {
            const double* const number =
                input.Current ? std::get_if<double>(input.Current) : nullptr;
            if (!number) {
                FuzzifyAskingHost(rules, index);
            } else if (!input.LastInput || !SameNumberText(*input.LastInput, *number)) {
                FuzzifyAnew(prepared, input, index, [number] { return *number; });
            }
            ++index;
        }
    });
}

} // namespace Quorvane::RunTime
