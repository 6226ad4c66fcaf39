// SPDX-License-Identifier: MIT
// The parser and builder: any texts parse or are refused, and what parses reads back the same.
#include "engine/Infer.h"
#include "engine/PrepareRuleBase.h"
#include "model/BuildDefinition.h"
#include "model/ParseDefinition.h"
#include "model/TransformText.h"
#include "tests/fuzz/Check.h"

namespace Quorvane::Fuzz {
namespace {

using Definition::State;

struct StoredTexts {
    Text Inputs = State().InputsText;
    Text Outputs = State().OutputsText;
    Text Rules = State().RulesText;

    friend bool operator==(const StoredTexts&, const StoredTexts&) = default;
};

/// The input's lines, of which the first three are the definition texts. Characters that the codec
/// writes with one digit do not read back, so they are left to its own fuzzer.
void StoreLines(Text lines) {
    for (char16_t& character : lines) {
        character = character < 0x10 && character != u'\n' ? u'?' : character;
    }
    const auto pieces = Split(lines, u'\n');
    Text* const targets[] = {&State().InputsText, &State().OutputsText, &State().RulesText};
    for (std::size_t i = 0; i < 3; ++i) {
        *targets[i] = i < pieces.size() ? Main::TransformText(pieces[i], true) : Text();
    }
}

bool HasVariableWithoutTerms(const VariableDictionary& variables) {
    for (const auto& [name, variable] : variables) {
        if (variable.MF.Empty()) {
            return true;
        }
    }
    return false;
}

/// Whether building and parsing gives the model back: a variable without terms does not read back.
bool ReadsBack() {
    return !HasVariableWithoutTerms(*State().InputVariables) &&
           !HasVariableWithoutTerms(*State().OutputVariables);
}

void CheckRebuilding() {
    const Text rules = State().RulesText;
    const bool readsBack = ReadsBack();
    Main::BuildDefinition();
    const StoredTexts built;
    Check(built.Rules == rules, "rules are written as they were read");
    // The largest Doubles are written with fifteen digits that lie beyond the range.
    const auto raised = Raised(Main::ParseDefinition);
    if (!readsBack || (raised && IsPlatformError(*raised, RuntimeError::Overflow))) {
        return;
    }
    Check(!raised, "what was built parses");
    Main::BuildDefinition();
    Check(StoredTexts() == built, "what was built is built again");
}

void Run(const Text& lines) {
    Definition::Reset();
    StoreLines(lines);
    if (Raised(Main::ParseDefinition)) {
        return;
    }
    if (!Raised(RunTime::PrepareRuleBase)) {
        Raised(RunTime::Infer);
        Raised(RunTime::Infer);
    }
    CheckRebuilding();
}

} // namespace
} // namespace Quorvane::Fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Quorvane::Fuzz::Run(Quorvane::Fuzz::BytesAsText({data, size}));
    return 0;
}
