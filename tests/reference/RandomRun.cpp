// SPDX-License-Identifier: MIT
// What can happen to a loaded system, made up at random.
#include "tests/reference/RandomRun.h"

#include <algorithm>
#include <utility>

#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "shared/Definition.h"

namespace Quorvane::Reference {
namespace {

using Definition::State;

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

template <class Dictionary>
void RemoveOne(Choices& choices, Dictionary& dictionary) {
    if (const auto* const entry = PickEntry(choices, dictionary)) {
        dictionary.Remove(Text(entry->Key));
    }
}

} // namespace

void RandomRun::Load() {
    const SystemTexts texts = MakeSystem(choices_, limits_);
    State().InputsText = Main::TransformText(texts.Inputs, true);
    State().OutputsText = Main::TransformText(texts.Outputs, true);
    State().RulesText = Main::TransformText(texts.Rules, true);
    Main::ParseDefinition();
}

Step RandomRun::Next() {
    if (choices_.Percent(15)) {
        Edit();
    }
    if (choices_.Percent(85)) {
        SetInputs();
    }
    return choices_.Percent(6) ? Step::Prepare : Step::Infer;
}

void RandomRun::SetInputs() {
    const std::uint32_t share = choices_.Below(101);
    for (const auto& [name, variable] : *State().InputVariables) {
        if (choices_.Percent(share)) {
            State().InputValues->Put(name, MakeValue(choices_, EdgesOf(variable)));
        }
    }
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
        State().DefaultOutputValues->Put(entry->Key, MakeValue(choices_, EdgesOf(entry->Item)));
    } else if (auto* const own = dynamic_cast<OwnValueDictionary*>(State().InputValues.get())) {
        RemoveOne(choices_, own->Items);
    }
}

/// As a host does that assigns a dictionary of its own, in which keys may compare exactly.
void RandomRun::ReplaceInputValues() {
    const auto comparison = choices_.Percent(70) ? KeyComparison::IgnoreCase : KeyComparison::Exact;
    auto values = std::make_shared<OwnValueDictionary>(comparison);
    for (const auto& [name, variable] : *State().InputVariables) {
        values->Put(name, State().InputValues->Get(name));
    }
    State().InputValues = std::move(values);
}

} // namespace Quorvane::Reference
