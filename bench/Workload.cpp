// SPDX-License-Identifier: MIT
// The fuzzy systems and the streams of input values that the engines are timed on.
#include "bench/Workload.h"

#include <algorithm>
#include <optional>

#include "engine/PrepareRuleBase.h"
#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "shared/Definition.h"
#include "shared/Markers.h"
#include "tests/reference/Random.h"

namespace Quorvane::Bench {
namespace {

/// The workload whose system is that of the process.
std::optional<std::string> installedName;

constexpr std::uint32_t OutputTerms = 7;
/// How many inputs a rule of a sparse system names.
constexpr std::uint32_t NamedInputs = 4;

Text Number(std::uint32_t number) {
    return Widen(std::to_string(number));
}

Text Name(TextView stem, std::uint32_t index) {
    return Text(stem) + Number(index + 1);
}

void Join(Text& list, char16_t separator, const Text& element) {
    if (!list.empty()) {
        list += separator;
    }
    list += element;
}

/// A term with its feet at the tops of its neighbours; the first and the last have a shoulder.
Text OverlappingTerm(std::uint32_t index, std::uint32_t terms) {
    const std::uint32_t left = index == 0 ? 0 : index - 1;
    const std::uint32_t right = std::min(index + 1, terms - 1);
    return Name(u"T", index) + u',' + Number(10 * left) + u',' + Number(10 * index) + u',' +
           Number(10 * index) + u',' + Number(10 * right);
}

Text OverlappingInputs(std::uint32_t inputs, std::uint32_t terms) {
    Text text;
    for (std::uint32_t input = 0; input < inputs; ++input) {
        Text list;
        for (std::uint32_t term = 0; term < terms; ++term) {
            Join(list, u';', OverlappingTerm(term, terms));
        }
        Join(text, u'|', Name(u"In", input) + u'/' + Number(10 * (terms - 1)) + u"/0/" + list);
    }
    return text;
}

Text PairedInputs(std::uint32_t inputs) {
    Text text;
    for (std::uint32_t input = 0; input < inputs; ++input) {
        Join(text, u'|', Name(u"In", input) + u"/100/0/T1,0,0,40,60;T2,40,60,100,100");
    }
    return text;
}

Text OutputsOf(std::uint32_t outputs) {
    Text text;
    for (std::uint32_t output = 0; output < outputs; ++output) {
        Text list;
        for (std::uint32_t term = 0; term < OutputTerms; ++term) {
            Join(list, u';', Name(u"P", term) + u',' + Number(10 * term));
        }
        Join(text, u'|', Name(u"Out", output) + u"/60/0/" + list);
    }
    return text;
}

Text Weight(Reference::Random& random) {
    return random.Percent(50) ? Text(u"1") : u"0." + Number(1 + random.Below(9));
}

Text Consequent(std::uint32_t output, Reference::Random& random) {
    return Name(u"Out", output) + u'<' + Name(u"P", random.Below(OutputTerms));
}

/// The rule for a combination of terms; the last input's term changes from rule to rule.
Text GridRule(std::uint32_t rule, std::uint32_t inputs, std::uint32_t terms, std::uint32_t outputs,
              Reference::Random& random) {
    std::vector<std::uint32_t> chosen(inputs);
    for (std::uint32_t input = inputs; input-- > 0; rule /= terms) {
        chosen[input] = rule % terms;
    }
    Text antecedents;
    for (std::uint32_t input = 0; input < inputs; ++input) {
        Join(antecedents, u';', Name(u"In", input) + u'>' + Name(u"T", chosen[input]));
    }
    Text consequents;
    for (std::uint32_t output = 0; output < outputs; ++output) {
        Join(consequents, u';', Consequent(output, random));
    }
    return antecedents + u'/' + consequents + u':' + Weight(random);
}

Text SparseRule(std::uint32_t inputs, std::uint32_t outputs, Reference::Random& random) {
    std::vector<Text> terms(inputs, Text(NoneMarker));
    for (std::uint32_t named = 0; named < NamedInputs;) {
        Text& term = terms[random.Below(inputs)];
        if (term == NoneMarker) {
            term = Name(u"T", random.Below(2));
            ++named;
        }
    }
    Text antecedents;
    for (std::uint32_t input = 0; input < inputs; ++input) {
        Join(antecedents, u';', Name(u"In", input) + u'>' + terms[input]);
    }
    const std::uint32_t told = random.Below(outputs);
    Text consequents;
    for (std::uint32_t output = 0; output < outputs; ++output) {
        Join(consequents, u';',
             output == told ? Consequent(output, random)
                            : Name(u"Out", output) + u'<' + Text(NoneMarker));
    }
    return antecedents + u'/' + consequents + u':' + Weight(random);
}

/// A value anywhere in the universe, or at a point of a term for one in eight.
double ValueInside(const LinguisticVariable& input, Reference::Random& random) {
    if (random.Below(8) == 0) {
        auto term = input.MF.begin();
        std::advance(term, random.Below(static_cast<std::uint32_t>(input.MF.Count())));
        return term->Item.Points[random.Below(4)];
    }
    const double share = static_cast<double>(random.Bits() >> 11) * 0x1p-53;
    return input.LBound + share * (input.UBound - input.LBound);
}

/// Once in 64 cycles the value lies outside the universe.
double MakeValue(const LinguisticVariable& input, std::size_t cycle, Reference::Random& random) {
    return cycle % 64 == 63 ? input.UBound + 1 : ValueInside(input, random);
}

} // namespace

Workload MakeGrid(std::string name, std::uint32_t inputs, std::uint32_t terms,
                  std::uint32_t outputs, std::uint32_t ruleCount) {
    Reference::Random random(ruleCount);
    Workload workload{std::move(name), OverlappingInputs(inputs, terms), OutputsOf(outputs), {}};
    for (std::uint32_t rule = 0; rule < ruleCount; ++rule) {
        Join(workload.Rules, u'|', GridRule(rule, inputs, terms, outputs, random));
    }
    return workload;
}

Workload MakeSparse(std::string name, std::uint32_t inputs, std::uint32_t outputs,
                    std::uint32_t ruleCount) {
    Reference::Random random(ruleCount);
    Workload workload{std::move(name), PairedInputs(inputs), OutputsOf(outputs), {}};
    StringKeyedDictionary<bool> rules(KeyComparison::IgnoreCase);
    while (rules.Count() < ruleCount) {
        rules.Put(SparseRule(inputs, outputs, random), true);
    }
    for (const auto& [rule, unused] : rules) {
        Join(workload.Rules, u'|', rule);
    }
    return workload;
}

const std::vector<Workload>& Workloads() {
    static const std::vector<Workload> workloads = {
        MakeGrid("W1", 2, 3, 1, 9),    MakeGrid("W2", 3, 5, 2, 125),
        MakeGrid("W3", 4, 7, 2, 2401), MakeGrid("W4", 5, 8, 1, 32767),
        MakeSparse("W5", 32, 4, 1000),
    };
    return workloads;
}

void Install(const Workload& workload) {
    if (IsInstalled(workload)) {
        return;
    }
    Definition::ProcessState& state = Definition::State();
    state.InputsText = Main::TransformText(workload.Inputs, true);
    state.OutputsText = Main::TransformText(workload.Outputs, true);
    state.RulesText = Main::TransformText(workload.Rules, true);
    Main::ParseDefinition();
    RunTime::PrepareRuleBase();
    installedName = workload.Name;
}

bool IsInstalled(const Workload& workload) {
    return installedName == workload.Name;
}

void ForgetInstalled() {
    installedName.reset();
}

Stream MakeStream(Change change) {
    std::vector<const LinguisticVariable*> inputs;
    for (const auto& [name, input] : *Definition::State().InputVariables) {
        inputs.push_back(&input);
    }
    Stream stream{static_cast<std::uint32_t>(inputs.size()), change, {}};
    Reference::Random random(1);
    for (std::size_t cycle = 0; cycle < Stream::CycleCount && change != Change::Nothing; ++cycle) {
        for (std::uint32_t input = 0; input < stream.InputCount; ++input) {
            if (input == stream.ChosenInput(cycle)) {
                stream.Values.push_back(MakeValue(*inputs[input], cycle, random));
            } else if (change == Change::All) {
                stream.Values.push_back(ValueInside(*inputs[input], random));
            }
        }
    }
    return stream;
}

} // namespace Quorvane::Bench
