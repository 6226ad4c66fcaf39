// SPDX-License-Identifier: MIT
// What can happen to a loaded system, made up at random.
#include "tests/reference/RandomRun.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "shared/Definition.h"

namespace Quorvane::Reference {
namespace {

using Definition::State;

std::vector<Text> NamesOf(const VariableDictionary& variables) {
    std::vector<Text> names;
    for (const auto& [name, variable] : variables) {
        names.push_back(name);
    }
    return names;
}

/// An entry of a dictionary, or nullptr when it is empty.
template <class Dictionary>
auto PickEntry(Choices& choices, Dictionary& dictionary) {
    auto entry = dictionary.begin();
    std::advance(entry, choices.Below(static_cast<std::uint32_t>(dictionary.Count())));
    return entry == dictionary.end() ? nullptr : &*entry;
}

/// Gives an entry a name that is new, or its old name in capitals.
template <class Dictionary>
void Rename(Choices& choices, Dictionary& dictionary) {
    if (const auto* const entry = PickEntry(choices, dictionary)) {
        Text name = entry->Key;
        if (choices.Percent(50)) {
            std::ranges::transform(name, name.begin(), FoldCase);
        } else {
            name += u"x";
        }
        if (!dictionary.Exists(name)) {
            dictionary.Rekey(Text(entry->Key), name);
        }
    }
}

/// As a host does that goes on where its own dictionary refuses a value.
void PutQuietly(ValueDictionary& values, TextView key, Value value) {
    try {
        values.Put(key, std::move(value));
    } catch (const std::exception&) {
        return;
    }
}

/// The value under a key, Empty where a host's dictionary cannot be read.
Value GetQuietly(ValueDictionary& values, TextView key) {
    try {
        return values.Get(key);
    } catch (const std::exception&) {
        return {};
    }
}

/// Names that no editor lets pass, but texts and code do.
const std::vector<Text>& OddNames() {
    static const std::vector<Text> names = {
        u"",
        u" ",
        u"[NONE]",
        u"[EMPTY]",
        u"x>y",
        u"a;b",
        Text(300, u'n'),
        u"\u00FF",
        u"\u0436\u0416",
    };
    return names;
}

template <class Dictionary>
void RemoveOne(Choices& choices, Dictionary& dictionary) {
    if (const auto* const entry = PickEntry(choices, dictionary)) {
        dictionary.Remove(Text(entry->Key));
    }
}

} // namespace

void RandomRun::Load() {
    const SystemTexts texts = MakeSystem(systems_, limits_);
    State().InputsText = Main::TransformText(texts.Inputs, true);
    State().OutputsText = Main::TransformText(texts.Outputs, true);
    State().RulesText = Main::TransformText(texts.Rules, true);
    Main::ParseDefinition();
}

Step RandomRun::Next() {
    if (choices_.Percent(15)) {
        Edit();
    }
    // Code of a host may have run, and taken the model away.
    const auto hasModel = [] { return State().InputVariables && State().OutputVariables; };
    if (host_.Share != 0 && choices_.Percent(host_.Share) && hasModel()) {
        EditAsHost();
    }
    if (choices_.Percent(85) && hasModel()) {
        SetInputs();
    }
    return choices_.Percent(6) ? Step::Prepare : Step::Infer;
}

void RandomRun::SetInputs() {
    const std::uint32_t share = choices_.Below(101);
    // Held and copied: a host's dictionary may run code that replaces all of it.
    const auto values = State().InputValues;
    std::vector<std::pair<Text, Value>> inputs;
    for (const auto& [name, variable] : *State().InputVariables) {
        if (choices_.Percent(share)) {
            inputs.emplace_back(name, MakeInput(EdgesOf(variable)));
        }
    }
    for (auto& [name, value] : inputs) {
        PutQuietly(*values, name, std::move(value));
    }
}

Value RandomRun::MakeInput(const std::vector<double>& edges) {
    if (host_.Share != 0 && choices_.Percent(host_.Share)) {
        return MakeHostValue(choices_, MakeNumber(choices_, edges), host_.Code);
    }
    return MakeValue(choices_, edges);
}

void RandomRun::Edit() {
    switch (choices_.Below(9)) {
    case 0:
        Load();
        break;
    case 1:
        Main::ParseDefinition();
        break;
    case 2:
        EditOutputs();
        break;
    case 3:
        EditRules();
        break;
    case 4:
        EditValues();
        break;
    case 5:
        ReplaceInputValues();
        break;
    default:
        EditInput();
        break;
    }
}

void RandomRun::EditInput() {
    auto& inputs = *State().InputVariables;
    auto* const entry = PickEntry(choices_, inputs);
    if (!entry) {
        return;
    }
    LinguisticVariable& variable = entry->Item;
    switch (choices_.Below(8)) {
    case 0:
        Rename(choices_, inputs);
        break;
    case 1:
        RemoveOne(choices_, inputs);
        break;
    case 2:
        std::swap(variable.UBound, variable.LBound);
        break;
    case 3:
        variable.UBound = MakeNumber(choices_, EdgesOf(variable));
        break;
    default:
        EditTerm(variable);
        break;
    }
}

void RandomRun::EditTerm(LinguisticVariable& variable) {
    switch (choices_.Below(6)) {
    case 0:
        Rename(choices_, variable.MF);
        break;
    case 1:
        RemoveOne(choices_, variable.MF);
        break;
    case 2:
        variable.MF.Put(
            u"t0", {u"t0", {variable.LBound, variable.LBound, variable.UBound, variable.UBound}});
        break;
    default:
        if (auto* const term = PickEntry(choices_, variable.MF)) {
            auto& points = term->Item.Points;
            points[choices_.Below(4)] = choices_.Pick(EdgesOf(variable));
            std::ranges::sort(points);
        }
        break;
    }
}

void RandomRun::EditOutputs() {
    auto* const entry = PickEntry(choices_, *State().OutputVariables);
    if (!entry) {
        return;
    }
    switch (choices_.Below(3)) {
    case 0:
        RemoveOne(choices_, *State().OutputVariables);
        break;
    case 1:
        Rename(choices_, entry->Item.MF);
        break;
    default:
        if (auto* const term = PickEntry(choices_, entry->Item.MF)) {
            term->Item.Points.fill(choices_.Between(-9, 9));
        }
        break;
    }
}

void RandomRun::EditRules() {
    RuleDictionary& rules = *State().RuleBase;
    if (choices_.Percent(50)) {
        RemoveOne(choices_, rules);
    } else if (const auto* const entry = PickEntry(choices_, rules)) {
        const Text rule = Text(entry->Key) + u'0';
        if (!rules.Exists(rule)) {
            rules.Add(rule);
        }
    }
}

void RandomRun::EditValues() {
    auto* const entry = PickEntry(choices_, *State().OutputVariables);
    if (entry && choices_.Percent(50)) {
        const auto defaults = State().DefaultOutputValues;
        const Text name = entry->Key;
        PutQuietly(*defaults, name, MakeInput(EdgesOf(entry->Item)));
    } else if (auto* const own = dynamic_cast<OwnValueDictionary*>(State().InputValues.get())) {
        RemoveOne(choices_, own->Items);
    }
}

/// As a host does that assigns a dictionary of its own, in which keys may compare exactly.
void RandomRun::ReplaceInputValues() {
    const auto comparison = choices_.Percent(70) ? KeyComparison::IgnoreCase : KeyComparison::Exact;
    auto values = std::make_shared<OwnValueDictionary>(comparison);
    const auto former = State().InputValues;
    for (const Text& name : NamesOf(*State().InputVariables)) {
        values->Put(name, GetQuietly(*former, name));
    }
    State().InputValues = std::move(values);
}

void RandomRun::EditAsHost() {
    switch (choices_.Below(6)) {
    case 0:
    case 1:
        State().InputValues = MakeDictionary(*State().InputVariables);
        break;
    case 2:
    case 3:
        ReplaceOutputs();
        break;
    case 4:
        if (auto* const entry = PickEntry(choices_, *State().InputVariables)) {
            EditOddly(entry->Item);
        }
        break;
    default:
        if (auto* const entry = PickEntry(choices_, *State().OutputVariables)) {
            EditOddly(entry->Item);
        }
        break;
    }
}

/// The values that outputs have when no rule fires, or when a cycle fails.
void RandomRun::ReplaceOutputs() {
    auto values = MakeDictionary(*State().OutputVariables);
    if (choices_.Percent(50)) {
        State().DefaultOutputValues = std::move(values);
    } else {
        State().ErrorOutputValues = choices_.Percent(20) ? nullptr : std::move(values);
    }
}

std::shared_ptr<ValueDictionary> RandomRun::MakeDictionary(const VariableDictionary& variables) {
    auto own = std::make_shared<OwnValueDictionary>(KeyComparison::Exact);
    auto hosts = std::make_shared<HostDictionary>(choices_, host_.Code);
    for (const auto& [name, variable] : variables) {
        // Now and then one is missing.
        if (!choices_.Percent(10)) {
            const Value value = MakeInput(EdgesOf(variable));
            own->Put(name, value);
            hosts->Give(name, value);
        }
    }
    return choices_.Percent(30) ? std::shared_ptr<ValueDictionary>(std::move(own))
                                : std::move(hosts);
}

/// What only code can make of a variable, or a text that no editor has written.
void RandomRun::EditOddly(LinguisticVariable& variable) {
    constexpr double Largest = std::numeric_limits<double>::max();
    switch (choices_.Below(4)) {
    case 0:
        variable.LBound = MakeNumber(choices_, EdgesOf(variable));
        break;
    case 1:
        variable.LBound = -Largest;
        variable.UBound = Largest;
        break;
    case 2: {
        const Text name = choices_.Pick(OddNames());
        const auto* const term = PickEntry(choices_, variable.MF);
        if (term && !variable.MF.Exists(name)) {
            variable.MF.Rekey(Text(term->Key), name);
        }
        break;
    }
    default:
        if (auto* const term = PickEntry(choices_, variable.MF)) {
            // Flanks wider than the largest Double.
            auto& points = term->Item.Points;
            points[choices_.Below(4)] = choices_.Percent(50) ? -Largest : Largest;
            points[choices_.Below(4)] = choices_.Percent(50) ? Largest / 2 : -Largest;
            if (choices_.Percent(80)) {
                std::ranges::sort(points);
            }
        }
        break;
    }
}

} // namespace Quorvane::Reference
